#include "markov/MarkovReport.h"

#include <array>

#include "basic/format.h"
#include "markov/Markov.h"

namespace Markov {
namespace {

// Gap between "START" and the words above the columns, so that they stand over the middle of 1 to 10 columns.
constexpr std::array<int, kMostStates> kStateGaps = {4, 4, 4, 8, 11, 15, 18, 22, 25, 29};
constexpr std::array<int, kMostStates> kAbsorbingGaps = {3, 3, 6, 10, 13, 17, 20, 24, 27, 31};

// With more rows than these the blank lines between them are left out.
constexpr std::size_t kSpacedAbsorptionRows = 4;
constexpr int kSpacedSteadyRows = 5;

std::string TableHeading(const std::array<int, kMostStates>& gaps, std::size_t columns,
                         std::string_view words)
{
    const std::size_t index = columns == 0 ? 0 : columns - 1;  // a file may hold a chain without states
    return "  START" + Blanks(gaps.at(index)) + std::string(words);
}

std::string StateText(int state)
{
    return Format(std::to_string(state), "@@");
}

std::string Probability7(double probability)
{
    constexpr int kWidth = 7;
    return FlushRight(Format(probability, "##0.000"), kWidth);
}

std::string StateRow(const std::vector<int>& states)
{
    std::string row = "  STATE  ";
    for (const int state : states)
        row += "   " + StateText(state);
    return row;
}

std::string RuleRow(std::size_t columns)
{
    std::string row = "  *****  ";
    for (std::size_t column = 0; column < columns; ++column)
        row += "  *****";
    return row;
}

std::string RowStart(int state)
{
    return "   " + StateText(state) + "    ";
}

void OneAbsorbingState(ReportChannel& out)
{
    out.Line();
    out.Line();
    out.Line("THE MARKOV PROCESS YOU HAVE DESCRIBED HAS ONE ABSORBING STATE!");
    out.Line();
    out.Line("    The absorbing state is state " + PlainText(Result.AbsorbingList[0]));
    out.Line();
    out.Line("    All units will end up in this absorbing state.");
    out.Line();
}

void AbsorbingStates(ReportChannel& out)
{
    out.Line("THE MARKOV PROCESS HAS " + std::to_string(Result.AbsorbingList.size()) + " ABSORBING STATES");
    out.Line("*****************************************");
    out.Line();
    out.Line("        THE ABSORBING STATES ARE");
    out.Line("        ------------------------");
    out.Line();
    for (const int state : Result.AbsorbingList)
        out.Line(Blanks(19) + StateText(state));
    out.Line();
    out.Line("    The following table provides the probabilities that units currently in");
    out.Line("    nonabsorbing states will be absorbed by each of the absorbing states.");
    out.Line();
}

void AbsorptionHeading(ReportChannel& out)
{
    out.Line("PROBABILITY OF ENDING IN EACH ABSORBING STATE");
    out.Line("*********************************************");
}

void AbsorptionTable(ReportChannel& out)
{
    const std::size_t columns = Result.AbsorbingList.size();
    out.Line(TableHeading(kAbsorbingGaps, columns, "ABSORBING STATE"));
    if (columns < kMostStates) out.Line(StateRow(Result.AbsorbingList));
    out.Line(RuleRow(columns));
    int k = 0;
    for (const int state : Result.NonAbsorbingList) {
        if (++k == 1 || Result.NonAbsorbingList.size() <= kSpacedAbsorptionRows) out.Line();
        std::string row = RowStart(state);
        for (int a = 1; a <= static_cast<int>(columns); ++a)
            row += Probability7(Result.AbsorptionTable(k, a));
        out.Line(row);
    }
}

std::string SteadyStateRow(int state)
{
    constexpr int kWidth = 5;
    const std::string gap = Blanks(12);
    return gap + StateText(state) + gap + FlushRight(Format(Result.Distribution(state), "0.000"), kWidth);
}

// Stands on the screen, on paper and in the text file alike.
void SteadyState(ReportChannel& out)
{
    out.Line("THE STEADY STATE PROBABILITIES ARE AS FOLLOWS:");
    out.Line("**********************************************");
    out.Line();
    out.Line("           STATE       PROBABILITY");
    out.Line("           *****       ***********");
    out.Line();
    const int n = Result.Distribution.Upper();
    for (int state = 1; state <= n; ++state) {
        out.Line(SteadyStateRow(state));
        if (n <= kSpacedSteadyRows) out.Line();
    }
}

void TransitionTable(ReportChannel& out)
{
    const int n = Problem.StateCount;
    std::vector<int> states;
    for (int state = 1; state <= n; ++state)
        states.push_back(state);
    out.Line(TableHeading(kStateGaps, states.size(), "TRANSITION TO STATE"));
    out.Line(StateRow(states));
    out.Line(RuleRow(states.size()));
    for (const int from : states) {
        out.Line();
        std::string row = RowStart(from);
        for (const int to : states)
            row += Probability7(Probability(from, to));
        out.Line(row);
    }
}

// Screen and paper tell the states that absorb each in their own way.
void ScreenBody(ReportChannel& out)
{
    out.Line("Markov Processes Solution");
    if (Result.AbsorbingList.empty()) {
        SteadyState(out);
        return;
    }
    if (Result.AbsorbingList.size() == 1) OneAbsorbingState(out);
    AbsorbingStates(out);
    AbsorptionHeading(out);
    out.Line();
    AbsorptionTable(out);
}

void FullBody(ReportChannel& out)
{
    out.Line("MARKOV PROCESSES");
    out.Line("****************");
    out.Line();
    out.Line("YOU HAVE INPUT THE FOLLOWING TRANSITION PROBABILITIES:");
    out.Line("******************************************************");
    out.Line();
    TransitionTable(out);
    out.Line();
    if (Result.AbsorbingList.size() == 1) {
        out.Line("THE MARKOV PROCESS YOU HAVE DESCRIBED HAS ONE ABSORBING STATE!");
        out.Line("    The absorbing state is state" + PrintItem(Result.AbsorbingList[0]));
        out.Line("    All units will end up in this absorbing state.");
    }
    if (Result.AbsorbingList.empty()) {
        SteadyState(out);
    } else if (!Result.NonAbsorbingList.empty()) {
        AbsorptionHeading(out);
        AbsorptionTable(out);
    }
}

}  // namespace

void WriteReport(ReportChannel& out)
{
    if (out.OnScreen())
        ScreenBody(out);
    else
        FullBody(out);
}

}  // namespace Markov
