#include "project/PertReport.h"

#include <algorithm>
#include <string>

#include "basic/format.h"
#include "project/VtPert_CPM.h"

namespace VtPert_CPM {
namespace {

// What stands above a table: one or two lines and a rule.
struct Head {
    std::vector<std::string> Lines;
    std::string Rule;
};

constexpr std::string_view kScheduleTitle = "                         ***  ACTIVITY SCHEDULE  ***";

const Head kEstimatesOnScreen = {{"                 ACTIVITY    EXPECTED TIME     VARIANCE"},
                                 "                ******************************************"};
const Head kEstimatesPrinted = {{"                    ACTIVITY    EXPECTED TIME     VARIANCE"},
                                "                  -------------------------------------------"};

const Head kScheduleOnScreen = {
    {"            EARLIEST    LATEST    EARLIEST    LATEST              CRITICAL ",
     " ACTIVITY     START      START     FINISH     FINISH     SLACK    ACTIVITY "},
    " *************************************************************************"};
const Head kSchedulePrinted = {
    {"           EARLIEST     LATEST     EARLIEST     LATEST                CRITICAL ",
     " ACTIVITY    START       START      FINISH      FINISH      SLACK     ACTIVITY "},
    " ----------------------------------------------------------------------------"};

const Head kEstimatesList = {{"                IMMEDIATE       OPTIMISTIC   MOST PROBABLE   PESSIMISTIC",
                              "   ACTIVITY    PREDECESSORS        TIME          TIME           TIME"},
                             " -------------------------------------------------------------------------"};
constexpr std::string_view kEstimatesListEnd =
    " -----------------------------------------------------------------------------";

const Head kKnownTimesList = {{"                             IMMEDIATE           EXPECTED",
                               "            ACTIVITY        PREDECESSORS           TIME"},
                              "          --------------------------------------------------"};

void WriteHead(ReportChannel& out, const Head& head)
{
    for (const std::string& line : head.Lines)
        out.Line(line);
    out.Line(head.Rule);
}

constexpr DecimalPatterns kTimePatterns = {"#####0", "###0.0", "##0.00"};
constexpr DecimalPatterns kSchedulePatterns = {"########0", "######0.0", "#####0.00"};

std::string TimeText(double time, const DecimalPatterns& patterns)
{
    return Format(time, patterns.For(Problem.TimeDecimals.Value()));
}

// ---- expected times ----

std::string EstimateRow(int i)
{
    constexpr int kTimeWidth = 15;
    constexpr int kVarianceWidth = 17;
    return Blanks(21) + Problem.ActivityName(i) +
           FlushRight(TimeText(Problem.ActivityTime(i).Value(), kTimePatterns), kTimeWidth) +
           FlushRight(Format(Problem.TimeVariance(i).Value(), "###0.00"), kVarianceWidth);
}

void Estimates(ReportChannel& out, const Head& head)
{
    out.Line();
    WriteHead(out, head);
    for (int i = 1; i <= Problem.NumActivities; ++i)
        out.Line(EstimateRow(i));
    out.Line("               *******************************************");
    out.Line();
}

// ---- schedule ----

std::string ScheduleRow(int i)
{
    constexpr int kFirstWidth = 12;
    constexpr int kWidth = 11;
    std::string row = Blanks(5) + Problem.ActivityName(i) +
                      FlushRight(TimeText(Result.EarliestStart(i), kSchedulePatterns), kFirstWidth);
    for (const double time :
         {Result.LatestStart(i), Result.EarliestFinish(i), Result.LatestFinish(i), Result.ActivitySlack(i)})
        row += FlushRight(TimeText(time, kSchedulePatterns), kWidth);
    return row + Blanks(5) + Result.CriticalFlag(i);
}

void Schedule(ReportChannel& out, const Head& head)
{
    out.Line();
    WriteHead(out, head);
    out.Line();
    for (int i = 1; i <= Problem.NumActivities; ++i)
        out.Line(ScheduleRow(i));
    out.Line();
    out.Line(" ******************************************************************************");
    out.Line();
}

// ---- closing lines ----

void ProjectTotals(ReportChannel& out)
{
    out.Line("        CRITICAL PATH:  " + Result.PathText);
    out.Line();
    if (HasThreeEstimates()) {
        out.Line("        EXPECTED PROJECT COMPLETION TIME = " + PlainText(Result.RoundedProjectTime));
        out.Line("        VARIANCE OF PROJECT COMPLETION TIME = " + PlainText(Result.RoundedProjectVariance));
    } else {
        out.Line("        PROJECT COMPLETION TIME = " + PlainText(Result.ProjectTime));
    }
}

void SeveralPathsNote(ReportChannel& out)
{
    if (Result.CriticalCount <= Result.PathCount) return;
    out.Line();
    out.Line();
    out.Line("   NOTE:  There is more than one critical path for this project.  ");
    out.Line("          The number of critical activities (zero slack) is greater");
    out.Line("          than the number of activities on the computed critical path.");
    out.Line();
    if (!HasThreeEstimates()) return;
    out.Line("          ANOTHER CRITICAL PATH MAY YIELD A DIFFERENT PROJECT VARIANCE.");
    out.Line();
}

// ---- activity list ----

// Columns at which the fields of a row end, counted from 1.
struct ListColumns {
    int Name;
    int Predecessors;  // where they begin
    std::vector<int> Times;
};

const ListColumns kEstimatesColumns = {7, 16, {39, 53, 68}};
const ListColumns kKnownTimesColumns = {17, 29, {55}};

// A long list of predecessors moves the times to the right; nothing is cut.
std::string ListRow(int i, const ListColumns& columns, const std::vector<double>& times)
{
    const std::string predecessors = PredecessorText(i);
    std::string row = FlushRight(Problem.ActivityName(i), columns.Name);
    row += Blanks(columns.Predecessors - columns.Name - 1) + (predecessors.empty() ? "-" : predecessors);
    int end = static_cast<int>(row.size());
    for (std::size_t k = 0; k < times.size(); ++k) {
        const std::string time = TimeText(times[k], kTimePatterns);
        const int length = static_cast<int>(time.size());
        const int gap = std::max(2, columns.Times[k] - end - length);
        row += Blanks(gap) + time;
        end += gap + length;
    }
    return row;
}

std::string ListRow(int i)
{
    if (!HasThreeEstimates()) return ListRow(i, kKnownTimesColumns, {Problem.ActivityTime(i).Value()});
    return ListRow(i, kEstimatesColumns,
                   {Problem.OptimisticTime(i).Value(), Problem.ProbableTime(i).Value(),
                    Problem.PessimisticTime(i).Value()});
}

void ActivityList(ReportChannel& out)
{
    out.Line("                       ***  PROJECT ACTIVITY LIST  ***");
    WriteHead(out, HasThreeEstimates() ? kEstimatesList : kKnownTimesList);
    for (int i = 1; i <= Problem.NumActivities; ++i)
        out.Line(ListRow(i));
    out.Line(HasThreeEstimates() ? kEstimatesListEnd : kKnownTimesList.Rule);
}

}  // namespace

void WritePertReport(ReportChannel& out)
{
    const bool onScreen = out.OnScreen();
    if (HasThreeEstimates()) {
        out.Line(onScreen ? "               EXPECTED TIMES AND VARIANCES FOR ACTIVITIES"
                          : "                  EXPECTED TIMES AND VARIANCES FOR ACTIVITIES");
        Estimates(out, onScreen ? kEstimatesOnScreen : kEstimatesPrinted);
    }
    out.Line(kScheduleTitle);
    Schedule(out, onScreen ? kScheduleOnScreen : kSchedulePrinted);
    ProjectTotals(out);
    SeveralPathsNote(out);
}

void PrintPertReport(ReportChannel& out)
{
    if (!Result.Solved) return;
    out.Line("PROJECT SCHEDULING WITH PERT/CPM");
    out.Line("********************************");
    ActivityList(out);
    WritePertReport(out);
}

}  // namespace VtPert_CPM
