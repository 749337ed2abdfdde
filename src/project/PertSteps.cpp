#include "project/PertSteps.h"

#include <string>

#include "basic/format.h"
#include "picture/words.h"
#include "project/PertChains.h"
#include "project/PertPicture.h"

namespace VtPert_CPM {
namespace {

// The weighted mean of the three estimates.
std::string ExpectedTime(const std::string& name, const std::string& a, const std::string& m,
                         const std::string& b)
{
    return name + ": (" + a + " + 4 * " + m + " + " + b + ") / 6 = ";
}

std::string SpreadTerm(const std::string& a, const std::string& b)
{
    return ", ((" + b + " - " + a + ") / 6)^2 = ";
}

using picture::Listed;
using picture::Step;
using Rows = std::vector<std::vector<std::string>>;

class Story {
public:
    Story(const PertProblem& problem, const PertResult& result) : problem_(problem), result_(result) {}

    [[nodiscard]] std::vector<Step> Steps() const
    {
        std::vector<Step> steps;
        if (problem_.TimeMode.Value() == kThreeEstimates) steps.push_back(ExpectedTimes());
        for (int i = 1; i <= problem_.NumActivities; ++i)
            steps.push_back(Forward(i));
        for (int i = problem_.NumActivities; i >= 1; --i)
            steps.push_back(Backward(i));
        steps.push_back(Slacks());
        steps.push_back(Walk());
        steps.push_back(Proof());
        return steps;
    }

private:
    [[nodiscard]] std::string Name(int i) const { return problem_.ActivityName(i); }
    [[nodiscard]] std::string Time(double value) const { return TimeOf(problem_, value); }
    [[nodiscard]] double TimeOfActivity(int i) const { return problem_.ActivityTime(i).Value(); }

    [[nodiscard]] static Step On(std::string heading, std::vector<std::string> marks)
    {
        return {.Heading = std::move(heading), .Picture = "Schedule", .Marks = std::move(marks)};
    }

    [[nodiscard]] Step ExpectedTimes() const
    {
        Step step = On("Expected times from the three estimates", {});
        Rows rows{{"activity", "a", "m", "b", "expected", "variance"}};
        for (int i = 1; i <= problem_.NumActivities; ++i) {
            const std::string a = PlainText(problem_.OptimisticTime(i).Value());
            const std::string m = PlainText(problem_.ProbableTime(i).Value());
            const std::string b = PlainText(problem_.PessimisticTime(i).Value());
            const std::string time = Time(TimeOfActivity(i));
            const std::string variance = Format(problem_.TimeVariance(i).Value(), "0.00");
            rows.push_back({Name(i), a, m, b, time, variance});
            step.Arithmetic.push_back(
                ExpectedTime(Name(i), a, m, b).append(time).append(SpreadTerm(a, b)).append(variance));
        }
        step.Figures = picture::Aligned(rows);
        step.Why =
            "The most probable time counts four times as much as each of the others, and a sixth of "
            "their span is taken as the standard deviation.";
        return step;
    }

    // The predecessor that ends last, the first of several.
    [[nodiscard]] int Deciding(int i) const
    {
        int deciding = 0;
        for (const int predecessor : PredecessorsIn(problem_, i))
            if (deciding == 0 || result_.EarliestFinish(predecessor) > result_.EarliestFinish(deciding))
                deciding = predecessor;
        return deciding;
    }

    [[nodiscard]] Step Forward(int i) const
    {
        Step step =
            On("Forward pass: " + Name(i) + " starts at " + Time(result_.EarliestStart(i)), {Name(i)});
        const auto predecessors = PredecessorsIn(problem_, i);
        Rows rows;
        for (const int predecessor : predecessors)
            rows.push_back({Name(predecessor) + " ends at", Time(result_.EarliestFinish(predecessor))});
        step.Figures = picture::Aligned(rows);
        step.Figures.push_back(Time(result_.EarliestStart(i)) + " + " + Time(TimeOfActivity(i)) + " = " +
                               Time(result_.EarliestFinish(i)));
        if (predecessors.empty()) {
            step.Why = Name(i) + " waits for nothing.";
            return step;
        }
        const int deciding = Deciding(i);
        step.Marks.push_back(Name(deciding));
        step.Why = predecessors.size() == 1
                       ? Name(i) + " waits for " + Name(deciding) + " alone."
                       : Name(i) + " waits for " + Listed(NamesOf(problem_, predecessors)) + "; " +
                             Name(deciding) + " decides, as none of them ends later.";
        return step;
    }

    [[nodiscard]] int DecidingSuccessor(int i) const
    {
        int deciding = 0;
        for (const int successor : SuccessorsIn(problem_, i))
            if (deciding == 0 || result_.LatestStart(successor) < result_.LatestStart(deciding))
                deciding = successor;
        return deciding;
    }

    [[nodiscard]] Step Backward(int i) const
    {
        Step step =
            On("Backward pass: " + Name(i) + " must end by " + Time(result_.LatestFinish(i)), {Name(i)});
        const auto successors = SuccessorsIn(problem_, i);
        Rows rows;
        for (const int successor : successors)
            rows.push_back({Name(successor) + " must start by", Time(result_.LatestStart(successor))});
        step.Figures = picture::Aligned(rows);
        step.Figures.push_back(Time(result_.LatestFinish(i)) + " - " + Time(TimeOfActivity(i)) + " = " +
                               Time(result_.LatestStart(i)));
        if (successors.empty()) {
            step.Why = "Nothing waits for " + Name(i) + ": it must end with the project.";
            return step;
        }
        const int deciding = DecidingSuccessor(i);
        step.Marks.push_back(Name(deciding));
        step.Why = successors.size() == 1
                       ? Name(deciding) + " alone waits for it."
                       : Listed(NamesOf(problem_, successors)) + " wait for it; " + Name(deciding) +
                             " decides, as none of them must start earlier.";
        return step;
    }

    [[nodiscard]] Step Slacks() const
    {
        Step step = On("Slack is what lies between the two starts", {});
        Rows rows{{"activity", "latest start", "earliest start", "slack", "critical"}};
        for (int i = 1; i <= problem_.NumActivities; ++i) {
            const bool critical = IsCritical(result_, i);
            rows.push_back({Name(i), Time(result_.LatestStart(i)), Time(result_.EarliestStart(i)),
                            Time(result_.ActivitySlack(i)), critical ? "yes" : "no"});
            if (critical) step.Marks.push_back(Name(i));
        }
        step.Figures = picture::Aligned(rows);
        step.Why = "An activity with a slack below 0.00001 is critical.";
        return step;
    }

    [[nodiscard]] Step Walk() const
    {
        const auto path = WalkedPath(problem_, result_);
        Step step = On("The path is walked back from " + Name(result_.LastActivity), NamesOf(problem_, path));
        Rows rows;
        for (std::size_t i = path.size(); i-- > 1;) {
            const Link link{path[i - 1], path[i]};
            const double gap = result_.EarliestStart(link.To) - result_.EarliestFinish(link.From);
            rows.push_back({Name(link.To) + " back to " + Name(link.From),
                            IsTight(result_, link) ? "tight" : "gap of " + Time(gap)});
        }
        step.Figures = picture::Aligned(rows);
        step.Figures.push_back("path: " + result_.PathText);
        step.Why = Name(result_.LastActivity) +
                   " is the first to end with the project, and from each activity the first predecessor "
                   "without slack is taken, whether or not it is the one that is waited for.";
        return step;
    }

    // The chain of tight links, which adds up to the completion time.
    [[nodiscard]] Step Proof() const
    {
        const auto chain = CriticalChain(problem_, result_);
        Step step = On("The critical chain adds up to the completion time", NamesOf(problem_, chain));
        std::string sum;
        for (const int activity : chain)
            sum += (sum.empty() ? "" : " + ") + Time(TimeOfActivity(activity));
        step.Figures = {"chain: " + Listed(NamesOf(problem_, chain), chain.size()),
                        sum + " = " + Time(LengthOf(problem_, chain)),
                        "completion time: " + CompletionText(problem_, result_)};
        if (problem_.TimeMode.Value() == kThreeEstimates)
            step.Figures.push_back("variance of the path " + result_.PathText + ": " +
                                   PlainText(result_.RoundedProjectVariance));
        step.Why =
            "Each of its activities starts when the one before it ends, the first at 0 and the last "
            "ending with the project.";
        return step;
    }

    const PertProblem& problem_;
    const PertResult& result_;
};

}  // namespace

std::vector<Step> PertSteps(const PertProblem& problem, const PertResult& result)
{
    if (!HasSchedule(problem, result)) return {};
    return Story(problem, result).Steps();
}

}  // namespace VtPert_CPM
