#include "lp/IntegerTypes.h"

#include "lp/VtLP.h"

namespace VtLP {
namespace {

void MarkListed(IntegerChoice& choice, const std::string& name, bool binary)
{
    for (int column = 1; column <= Problem.NumVariables; ++column) {
        if (Problem.LpVariableNames(column) != name) continue;
        const auto index = static_cast<std::size_t>(column) - 1;
        (binary ? choice.Binary : choice.General)[index] = true;
        (binary ? choice.General : choice.Binary)[index] = false;
        return;
    }
}

// Writes the chosen names from the line on; the line behind them.
int WriteNames(int line, const std::vector<bool>& chosen)
{
    for (std::size_t i = 0; i < chosen.size(); ++i)
        if (chosen[i]) Problem.LpLines(line++) = Problem.LpVariableNames(static_cast<int>(i) + 1);
    return line;
}

}  // namespace

ModalDialog<IntegerQuestion, IntegerChoice> TheIntegerChoice;

bool AskIntegerChoice()
{
    IntegerQuestion question{.Names = {}, .Stored = StoredIntegerChoice()};
    for (int j = 1; j <= Problem.NumVariables; ++j)
        question.Names.push_back(Problem.LpVariableNames(j));
    const auto choice = TheIntegerChoice.Ask("frmIP", std::move(question));
    if (choice) StoreIntegerChoice(*choice);
    return choice.has_value();
}

bool IsListWord(std::string_view word)
{
    return word == kBinaryList || word == kGeneralList;
}

int TypeLine(const LpProblem& problem)
{
    return kObjectiveLine + problem.NumConstraints + 1;
}

void ForEachListedName(const LpProblem& problem,
                       const std::function<void(const std::string& name, bool binary)>& visit)
{
    int line = TypeLine(problem);
    bool binary = problem.LpLines(line) == kBinaryList;
    for (++line; !problem.LpLines(line).empty(); ++line) {
        const std::string& text = problem.LpLines(line);
        if (IsListWord(text))
            binary = text == kBinaryList;
        else
            visit(text, binary);
    }
}

IntegerChoice StoredIntegerChoice()
{
    const auto count = static_cast<std::size_t>(Problem.NumVariables);
    IntegerChoice choice{.Kind = IntegerKind::Multiple,
                         .Binary = std::vector<bool>(count),
                         .General = std::vector<bool>(count)};
    const std::string& word = Problem.LpLines(TypeLine());
    if (word == kAllBinary) choice.Kind = IntegerKind::AllBinary;
    if (word == kAllGeneral) choice.Kind = IntegerKind::AllGeneral;
    if (IsListWord(word))
        ForEachListedName(
            Problem, [&choice](const std::string& name, bool binary) { MarkListed(choice, name, binary); });
    return choice;
}

void StoreIntegerChoice(const IntegerChoice& choice)
{
    int line = TypeLine();
    if (choice.Kind == IntegerKind::Multiple) {
        Problem.LpLines(line++) = kBinaryList;
        line = WriteNames(line, choice.Binary);
        Problem.LpLines(line++) = kGeneralList;
        line = WriteNames(line, choice.General);
        Problem.LpLines(line).clear();
    } else {
        Problem.LpLines(line) = choice.Kind == IntegerKind::AllBinary ? kAllBinary : kAllGeneral;
    }
}

}  // namespace VtLP
