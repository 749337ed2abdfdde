#include "project/VtPert_CPM.h"

#include "basic/number.h"
#include "desktop/desktop.h"
#include "tableau/decimals.h"
#include "tableau/tanumchk.h"

namespace VtPert_CPM {

PertProblem Problem;
PertResult Result;
int TableNumber = 0;
ModalDialog<NoQuestion, int> TheParameters{{.StaysLoaded = true}};
std::function<void()> CheckTimeBoxes;

namespace {

Array1<Variant> Zeroes()
{
    Array1<Variant> zeroes(kMostActivities);
    zeroes.Fill(0.0);
    return zeroes;
}

Array1<std::string> Letters()
{
    Array1<std::string> letters(kMostActivities);
    for (int i = 1; i <= kMostActivities; ++i)
        letters(i) = static_cast<char>('A' + i - 1);
    return letters;
}

// Stores a time of the current activity that is a number and at least `least`.
bool TakeTime(std::string_view text, double least, std::string_view noNumber, std::string_view tooSmall,
              Array1<Variant>& times)
{
    if (text.empty()) return true;
    const NumberText number = CheckNumber(text);
    if (!number.IsNumber) return Refuse(noNumber);
    const double time = number.Value();
    if (time < least) return Refuse(tooSmall);
    times(Problem.CurrentActivity) = time;
    return true;
}

}  // namespace

bool HasThreeEstimates()
{
    return Problem.TimeMode.Value() == kThreeEstimates;
}

void MakeTable()
{
    ++TableNumber;
    Problem.DecimalPlaces = 0.0;
    Problem.TimeDecimals = 0.0;
    Problem.CurrentActivity = 1;
    Problem.ActivityName = Letters();
    Problem.PredCount = Zeroes();
    Problem.PredTable = Array2<Variant>(kMostPredecessors, kMostActivities);
    Problem.PredTable.Fill(0.0);
    Problem.ActivityTime = Zeroes();
    Problem.OptimisticTime = Zeroes();
    Problem.ProbableTime = Zeroes();
    Problem.PessimisticTime = Zeroes();
    Problem.TimeVariance = Zeroes();
    Result = {};
}

bool Ask()
{
    const auto timeMode = TheParameters.Ask("frmPERTCPM_Init");
    if (!timeMode) return false;
    Problem.TimeMode = *timeMode;
    MakeTable();
    return true;
}

void Fill()
{
    desktop::TheForms().Load("frmPERT_CPM");
    desktop::TheForms().Show("frmPERT_CPM");
}

bool TakeActivityCount(std::string_view text)
{
    if (text.empty()) return true;
    const NumberText number = CheckNumber(text);
    if (!number.IsWholeNumeral()) return Refuse("NOTE:  THE NUMBER OF ACTIVITIES MUST BE AN INTEGER VALUE.");
    const double count = number.Value();
    if (count < 1 || count > kMostActivities)
        return Refuse("NOTE:  THE NUMBER OF ACTIVITIES MUST BE BETWEEN 1 AND 25.");
    Problem.NumActivities = ToInt16(count);
    return true;
}

bool TakeParameters(std::string_view countText, int timeMode)
{
    if (countText.empty()) return Refuse("You must enter the number of activities.");
    TheParameters.Give(timeMode);
    return true;
}

bool TakeExpectedTime(std::string_view text)
{
    constexpr std::string_view kMessage = "NOTE:  THE COMPLETION TIME MUST BE GREATER THAN OR EQUAL TO ZERO.";
    if (!TakeTime(text, 0, kMessage, kMessage, Problem.ActivityTime)) return false;
    if (!text.empty())
        RaiseDecimalPlaces(Problem.DecimalPlaces, Problem.ActivityTime(Problem.CurrentActivity).Value());
    return true;
}

bool TakeOptimisticTime(std::string_view text)
{
    constexpr std::string_view kMessage = "NOTE:  THE OPTIMISTIC TIME MUST BE GREATER THAN OR EQUAL TO 0.";
    return TakeTime(text, 0, kMessage, kMessage, Problem.OptimisticTime);
}

bool TakeProbableTime(std::string_view text)
{
    return TakeTime(
        text, Problem.OptimisticTime(Problem.CurrentActivity).Value(),
        "NOTE:  THE MOST PROBABLE TIME MUST BE GREATER THAN OR EQUAL TO THE OPTIMISTIC TIME.",
        "NOTE:  THE MOST PROBABLE TIME MUST BE GREATER THAN OR EQUAL TO THE OPTIMISTIC TIME.  PLEASE "
        "REENTER TIMES.",
        Problem.ProbableTime);
}

bool TakePessimisticTime(std::string_view text)
{
    return TakeTime(
        text, Problem.ProbableTime(Problem.CurrentActivity).Value(),
        "NOTE:  THE PESSIMISTIC TIME MUST BE GREATER THAN OR EQUAL TO THE MOST PROBABLE TIME.",
        "NOTE:  THE PESSIMISTIC TIME MUST BE GREATER THAN OR EQUAL TO THE MOST PROBABLE TIME.  PLEASE "
        "REENTER TIMES.",
        Problem.PessimisticTime);
}

void TakePredecessors(const std::vector<int>& predecessors)
{
    const int activity = Problem.CurrentActivity;
    Problem.PredCount(activity) = static_cast<double>(predecessors.size());
    for (int position = 1; position <= kMostPredecessors; ++position)
        Problem.PredTable(position, activity) = 0.0;
    int position = 0;
    for (const int predecessor : predecessors)
        Problem.PredTable(++position, activity) = predecessor;
}

// A count beyond the table, which a refused ninth predecessor leaves behind, shows the eight that are there.
std::vector<int> PredecessorsOf(int activity)
{
    std::vector<int> predecessors;
    for (int position = 1; position <= kMostPredecessors; ++position) {
        if (position > Problem.PredCount(activity).Value()) break;
        predecessors.push_back(ToInt32(Problem.PredTable(position, activity).Value()));
    }
    return predecessors;
}

std::string PredecessorText(int activity)
{
    std::string text;
    for (const int predecessor : PredecessorsOf(activity))
        text += (text.empty() ? "" : ", ") + Problem.ActivityName(predecessor);
    return text;
}

}  // namespace VtPert_CPM
