// Solves once more what a result came from, for those who want to see how: every comparison and sum is that
// of the first time.
#pragma once

#include <optional>
#include <vector>

#include "lp/Simplex.h"
#include "picture/picture.h"

namespace LP_Engine {

// Breaks off a run that goes round: a cycling simplex, a search without a whole solution.
class Replay : public Recorder {
public:
    bool GoesOn(const LpResult& at) override;

private:
    static constexpr int kMostSteps = 20000;
    int steps_ = 0;
};

// Whether the entering column, or the one that it drives out, goes to the largest number of the method:
// nothing stops them, but the test for an unbounded program does not see it.
bool GoesFarAway(const LpResult& at, const Pivot& pivot);

// The corners that the relaxation went through, for two variables. At most some hundreds.
std::vector<picture::Point> WayOf(const LpResult& result);

// The search, visit by visit: the best whole plan behind it and the best that open nodes still promise, in
// the problem's own sense. Nothing: there is none.
struct SearchMark {
    std::optional<double> Plan;
    std::optional<double> Bound;
};
std::vector<SearchMark> CourseOf(const LpResult& result);

}  // namespace LP_Engine
