// Steps and meaning of each module at its limit: a row of the table each, with milliseconds of processor time
// (the least of five runs) and the number of steps.
#include <algorithm>
#include <cstdio>
#include <ctime>

#include "desk.h"
#include "problems.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr int kRuns = 5;

template <typename Work>
double Milliseconds(const Work& work)
{
    double least = 1e9;
    for (int run = 0; run < kRuns; ++run) {
        const std::clock_t begun = std::clock();
        work();
        least = std::min(least, 1000.0 * static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC);
    }
    return least;
}

}  // namespace

int main()
{
    for (const bench::ModuleSize& limit : bench::kLimits) {
        bench::Desk desk(limit.Module, limit.Limit);
        desk.Solve();
        const ModuleRoutines& routines = *CurrentModule().Routines;
        std::size_t count = 0;
        const double steps = Milliseconds([&] { count = routines.Steps().size(); });
        const double meaning = Milliseconds([&] { routines.Meaning(); });
        const std::string name = NameOf(CurrentModule());
        std::printf("| %s | %d | %zu | %.1f | %.1f |\n", name.c_str(), limit.Limit, count, steps, meaning);
    }
    return 0;
}
