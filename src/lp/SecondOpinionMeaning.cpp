// What a second opinion says beside a result.
#include <algorithm>
#include <cmath>

#include "lp/LpFigures.h"
#include "lp/LpReplay.h"
#include "lp/SecondOpinion.h"
#include "picture/words.h"

namespace LP_Engine {
namespace {

using picture::Listed;
using picture::Sentence;
using picture::SentenceKind;

constexpr double kSameValue = 1e-6;  // relative

class Comparison {
public:
    Comparison(const LpResult& result, const OtherResult& other)
        : result_(result), problem_(result.Problem), other_(other)
    {
    }

    std::vector<Sentence> Tell()
    {
        switch (other_.End) {
            case OtherEnd::NotInstalled:
                Say(SentenceKind::Limit, "Nothing was checked by a second solver: none is installed.");
                break;
            case OtherEnd::Optimal:
                TellOptimal();
                break;
            case OtherEnd::Infeasible:
                TellEnd(Outcome::Infeasible, "no plan keeps to all limits");
                break;
            case OtherEnd::Unbounded:
                TellEnd(Outcome::Unbounded, "the value improves without end");
                break;
            case OtherEnd::TimeOut:
                TellTimeOut();
                break;
            default:
                Say(SentenceKind::Limit, "A second solver came to no end; nothing was checked.");
        }
        return said_;
    }

private:
    [[nodiscard]] std::string Text(double value) const { return NumberText(problem_, value); }
    void Say(SentenceKind kind, std::string text) { said_.push_back({kind, std::move(text)}); }

    [[nodiscard]] static bool Same(double p, double q)
    {
        return std::abs(p - q) <= kSameValue * (1 + std::max(std::abs(p), std::abs(q)));
    }

    [[nodiscard]] std::string Plan() const
    {
        std::vector<std::string> made;
        for (int j = 1; j <= problem_.NumVariables; ++j) {
            const double value = other_.Values[static_cast<std::size_t>(j) - 1];
            if (std::abs(value) > kSameValue)
                made.push_back(Text(value) + " of " + problem_.LpVariableNames(j));
        }
        return made.empty() ? "nothing of all" : Listed(made);
    }

    void TellOptimal()
    {
        if (!other_.HasPlan) {
            Say(SentenceKind::Limit,
                "A second solver gave a plan that does not keep to all limits; nothing is told of it.");
            return;
        }
        if (result_.End == Outcome::Optimal)
            CompareValues();
        else
            TellFound();
    }

    void CompareValues()
    {
        const Figures figures = FiguresOf(result_);
        if (Same(figures.Objective, other_.Objective)) {
            bool same = true;
            for (int j = 1; j <= problem_.NumVariables; ++j)
                same = same && Same(figures.Values(j), other_.Values[static_cast<std::size_t>(j) - 1]);
            Say(SentenceKind::Limit,
                same ? "A second solver found the same plan."
                     : "A second solver found another plan with the same value: " + Plan() + ".");
            return;
        }
        const bool better =
            result_.Minimize ? other_.Objective < figures.Objective : other_.Objective > figures.Objective;
        if (better)
            Say(SentenceKind::Caution, "A second solver found a better plan, with the value " +
                                           Text(other_.Objective) + ": " + Plan() + ".");
        else
            Say(SentenceKind::Caution, "A second solver found nothing better than " + Text(other_.Objective) +
                                           ": the plan of the report may miss a limit.");
    }

    void TellFound()
    {
        std::string text = "A second solver found a best plan, with the value " + Text(other_.Objective) +
                           ": " + Plan() + ".";
        Say(SentenceKind::Caution, text);
        if (result_.End == Outcome::Unbounded) TellTurnedRows();
    }

    // The fewest of the rows with "=" or ">" and 0 that have to be turned round before the method finds the
    // optimum itself.
    void TellTurnedRows()
    {
        std::vector<int> rows;
        for (int i = 1; i <= problem_.NumConstraints; ++i)
            if (problem_.LpRelations(i) != VtLP::kLess && problem_.LpCoefficients(i, 0) == 0)
                rows.push_back(i);
        if (rows.empty() || !FindsOptimum(rows)) return;
        for (std::size_t k = rows.size(); k-- > 0;) {
            std::vector<int> fewer = rows;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(k));
            if (FindsOptimum(fewer)) rows = fewer;
        }
        std::vector<std::string> numbers;
        numbers.reserve(rows.size());
        for (const int i : rows)
            numbers.push_back(std::to_string(i));
        Say(SentenceKind::Caution, std::string("With all signs of ") +
                                       (rows.size() == 1 ? "limit " : "limits ") + Listed(numbers) +
                                       " turned round the method finds it, too.");
    }

    [[nodiscard]] bool FindsOptimum(const std::vector<int>& rows) const
    {
        VtLP::LpProblem turned = problem_;
        for (const int i : rows) {
            for (int j = 0; j <= turned.NumVariables; ++j)
                turned.LpCoefficients(i, j) = 0 - turned.LpCoefficients(i, j);
            if (turned.LpRelations(i) == VtLP::kGreater) turned.LpRelations(i) = VtLP::kLess;
        }
        Replay replay;
        const LpResult solved = Solve(turned, result_.Minimize, result_.Integer, &replay);
        if (solved.End != Outcome::Optimal) return false;
        return Same(result_.Minimize ? 0 - solved.ObjectiveValue : solved.ObjectiveValue, other_.Objective);
    }

    void TellEnd(Outcome end, const std::string& what)
    {
        if (result_.End == end)
            Say(SentenceKind::Limit, "A second solver says the same: " + what + ".");
        else
            Say(SentenceKind::Caution, "A second solver says that " + what + ".");
    }

    void TellTimeOut()
    {
        std::string text = "Two seconds were not enough for a second opinion";
        if (other_.HasPlan) text += "; the best plan until then has the value " + Text(other_.Objective);
        Say(SentenceKind::Limit, text + ".");
    }

    const LpResult& result_;
    const VtLP::LpProblem& problem_;
    const OtherResult& other_;
    std::vector<Sentence> said_;
};

}  // namespace

std::vector<Sentence> Compared(const LpResult& result, const OtherResult& other)
{
    return Comparison(result, other).Tell();
}

}  // namespace LP_Engine
