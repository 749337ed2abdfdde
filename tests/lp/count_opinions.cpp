// Counts, over random linear and integer programs, how often the engine's answer holds against the second
// solver's: 1,000 of each kind, always the same. Where it does not, a caution of the meaning must tell why;
// the status is 1 when one does not.
#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <random>

#include "lp/LpMeaning.h"
#include "lp/SecondOpinion.h"
#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::OtherEnd;
using LP_Engine::Outcome;
using LP_Engine::Result;

Lp RandomProgram(std::mt19937& random)
{
    const auto whole = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    Lp lp;
    lp.Minimize = whole(0, 1) == 1;
    const int n = whole(2, 6);
    for (int j = 0; j < n; ++j)
        lp.Objective.push_back(whole(1, 20));
    const int m = whole(1, 5);
    for (int i = 0; i < m; ++i) {
        LpRow row;
        for (int j = 0; j < n; ++j)
            row.Coefficients.push_back(whole(0, 3) == 0 ? 0 : whole(-2, 12));
        row.Relation = (lp.Minimize ? ">>>=<" : "<<<<=>")[whole(0, lp.Minimize ? 4 : 5)];
        row.RightHandSide = whole(0, 7) == 0 ? 0 : whole(1, 60);
        lp.Rows.push_back(row);
    }
    return lp;
}

std::string Verdict(const LP_Engine::OtherResult& other)
{
    if (Result.End == Outcome::Optimal && other.End == OtherEnd::Optimal) {
        const double room = 1e-6 * (1 + std::abs(other.Objective));
        if (std::abs(Objective() - other.Objective) <= room) return "agrees";
        return (Objective() < other.Objective) == Result.Minimize ? "reports a value that cannot be had"
                                                                  : "misses a better plan";
    }
    if (Result.End == Outcome::Infeasible && other.End == OtherEnd::Infeasible) return "agrees: no plan";
    if (Result.End == Outcome::Unbounded && other.End == OtherEnd::Unbounded) return "agrees: no end";
    if (Result.End == Outcome::Unbounded && other.End == OtherEnd::TimeOut)
        return "says unbounded, where the second solver needs more than its time";
    if (Result.End == Outcome::Unbounded) return "says unbounded wrongly";
    if (Result.End == Outcome::Infeasible) return "says infeasible wrongly";
    if (Result.End == Outcome::Optimal) return "reports a plan where there is none, or no best";
    return Result.End == Outcome::OutOfRoom ? "runs out of room" : "goes round without end";
}

// The sentences on prices and on fields that are too narrow say nothing of the plan.
bool IsExplained()
{
    const auto meaning = LP_Engine::Meaning(Result);
    return std::any_of(meaning.begin(), meaning.end(), [](const picture::Sentence& sentence) {
        return sentence.Kind == picture::SentenceKind::Caution && sentence.Text.rfind("Prices", 0) != 0 &&
               sentence.Text.rfind("Some figures", 0) != 0;
    });
}

// A user who breaks off what has not ended after a while.
class Impatient : public FakeScreen {
public:
    bool Interrupted() override { return ++asked > 3; }  // asked every 100 ms

    int asked = 0;
};

// The number of disagreements without a caution.
int Count(bool integer, unsigned seed, Impatient& screen)
{
    std::mt19937 random(seed);
    std::map<std::string, int> counts;
    std::map<std::string, int> unexplained;
    for (int round = 0; round < 1000; ++round) {
        const Lp lp = RandomProgram(random);
        screen.asked = 0;
        if (integer)
            SolveInteger(lp, {"DIN"});
        else
            Solve(lp);
        const std::string verdict = Verdict(LP_Engine::AskOther(Result));
        ++counts[verdict];
        screen.asked = 0;
        if (verdict.rfind("agrees", 0) != 0 && !IsExplained()) ++unexplained[verdict];
    }
    std::cout << (integer ? "integer programs" : "linear programs") << '\n';
    for (const auto& [verdict, count] : counts)
        std::cout << "  " << count << "  " << verdict << '\n';
    int sum = 0;
    for (const auto& [verdict, count] : unexplained) {
        std::cout << "  " << count << " without a caution: " << verdict << '\n';
        sum += count;
    }
    return sum;
}

}  // namespace

int main()
{
    FakeDesktop desktop;
    Impatient screen;
    desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
    LP_Engine::SetOpinionFolder(VANTREL_OPINION_FOLDER);
    const int linear = Count(false, 81, screen);
    const int integer = Count(true, 82, screen);
    return linear + integer == 0 ? 0 : 1;
}
