// The text of a problem read back into the model: a scanner with three states that finds the variables in the
// order of their first appearance.
#include <algorithm>
#include <string>

#include "basic/error.h"
#include "basic/number.h"
#include "desktop/dialogs.h"
#include "lp/VtLP.h"

namespace VtLP {
namespace {

constexpr int kLongestLine = 32767;  // characters that a 16-bit position can reach

bool IsSign(char c)
{
    return c == '+' || c == '-' || c == '.';
}

bool IsNumberPart(char c)
{
    return IsSign(c) || (c >= '0' && c <= '9');
}

// The code of the relation's character; 0 for any other.
std::int16_t RelationOf(char c)
{
    if (c == '<') return kLess;
    if (c == '=') return kEqual;
    return c == '>' ? kGreater : std::int16_t{0};
}

// The column of the name; 0 when no variable has it. No name stands twice, so the search may begin anywhere:
// behind the variable found last it mostly ends at once.
int FindVariable(const std::string& name, int behind)
{
    for (int step = 0; step < Problem.NumVariables; ++step) {
        const int column = (behind + step) % Problem.NumVariables + 1;
        if (Problem.LpVariableNames(column) == name) return column;
    }
    return 0;
}

// One line of the text into the row of the cursor. Take... routines handle one character in their state; they
// answer false when there are too many variables.
class LineScanner {
public:
    bool Read(const std::string& line)
    {
        for (const char c : line)
            if (c != ' ' && !Take(c)) return false;
        if (relation_.empty()) {
            if (!FlushName()) return false;
            RefuseNumberWithoutName();
        }
        Problem.LpCoefficients(Problem.ConstraintCursor, 0) = Val(number_);
        return true;
    }

private:
    enum class State { Number, Name, RightHandSide };

    bool Take(char c)
    {
        if (state_ == State::Number) return TakeInNumber(c);
        if (state_ == State::Name) return TakeInName(c);
        if (c != '=') number_ += c;  // "<=" counts as "<"
        return true;
    }

    bool TakeInNumber(char c)
    {
        if (number_.empty() && !FlushName()) return false;
        if (!IsNumberPart(c)) return TakeInName(c);
        number_ += c;
        name_.clear();
        relation_.clear();
        state_ = State::Number;
        return true;
    }

    bool TakeInName(char c)
    {
        if (name_.empty()) {
            if (RelationOf(c) != 0) RefuseNumberWithoutName();
            TakeCoefficient();
        }
        if (IsSign(c)) return TakeInNumber(c);
        if (RelationOf(c) != 0) return TakeRelation(c);
        name_ += c;
        state_ = State::Name;
        TakeObjectiveWord();
        return true;
    }

    bool TakeRelation(char c)
    {
        relation_ += c;
        number_.clear();
        if (!FlushName()) return false;
        state_ = State::RightHandSide;
        Problem.LpRelations(Problem.ConstraintCursor) = RelationOf(c);
        return true;
    }

    // "MIN" and "MAX" are no part of a name, wherever they stand.
    void TakeObjectiveWord()
    {
        const bool minimize = name_.starts_with("MIN");
        if (!minimize && !name_.starts_with("MAX")) return;
        SetMinimizeFlag(minimize);
        name_.clear();
        state_ = State::Number;
    }

    void TakeCoefficient()
    {
        if (number_ == "-")
            coefficient_ = -1;
        else if (number_ == "+" || number_.empty())
            coefficient_ = 1;
        else
            coefficient_ = Val(number_);
        const std::size_t point = number_.find('.');
        if (point != std::string::npos) {
            const std::int16_t decimals = ToInt16(static_cast<double>(number_.size() - point - 1));
            Problem.LpDecimalPlaces = std::max(Problem.LpDecimalPlaces, decimals);
        }
        number_.clear();
    }

    void RefuseNumberWithoutName() const
    {
        if (!number_.empty()) Raise(ErrorNumber::InvalidProcedureCall);
    }

    bool FlushName()
    {
        if (name_.empty()) return true;
        int column = FindVariable(name_, last_);
        if (column == 0) {
            if (Problem.NumVariables >= kMostVariables) return TellTooManyVariables();
            column = ++Problem.NumVariables;
            Problem.LpVariableNames(column) = name_;
        }
        last_ = column;
        Problem.LpCoefficients(Problem.ConstraintCursor, column) = coefficient_;
        return true;
    }

    static bool TellTooManyVariables()
    {
        MsgBox(
            "YOUR PROBLEM HAS EXCEEDED THE DIMENSIONS OF THIS PROGRAM.  THE NUMBER OF DECISION VARIABLES "
            "EXCEEDS 100.",
            "Problem Error");
        return false;
    }

    State state_ = State::Number;
    std::string number_;
    std::string name_;
    std::string relation_;
    double coefficient_ = 0;
    int last_ = 0;  // the column of the last name
};

bool IsBlank(const std::string& line)
{
    return line.find_first_not_of(' ') == std::string::npos;
}

void ParseLines()
{
    const int last = kObjectiveLine + Problem.NumConstraints;
    for (int i = kObjectiveLine; i <= last; ++i) {
        const std::string& line = Problem.LpLines(i);
        if (IsBlank(line)) continue;
        if (line.size() > kLongestLine) Raise(ErrorNumber::SubscriptOutOfRange);
        ++Problem.ConstraintCursor;
        LineScanner scanner;
        if (!scanner.Read(line)) return;
    }
}

}  // namespace

void ParseLpLines()
{
    Problem.NumVariables = 0;
    Problem.ConstraintCursor = -1;
    try {
        ParseLines();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::Overflow) throw;  // the reader's own failures
        ShowError(error);
    }
}

}  // namespace VtLP
