// What each module takes at its limit: reading its file, solving with the report on screen, writing the full
// report; and how solving grows with the size of the problem.
#include <benchmark/benchmark.h>

#include <iterator>

#include "desk.h"
#include "problems.h"
#include "shell/module.h"

namespace {

constexpr int kGrowthSteps = 5;

void Read(benchmark::State& state, int module, int size)
{
    const bench::Desk desk(module, size);
    const std::string text = bench::ProblemText(module, size);
    const ModuleRoutines& routines = *ModuleOf(module).Routines;
    for (auto _ : state) {
        RecordReader file(text);
        routines.Read(file);
    }
}

void Solve(benchmark::State& state, int module, int size)
{
    bench::Desk desk(module, size);
    for (auto _ : state)
        desk.Solve();
}

void Report(benchmark::State& state, int module, int size)
{
    bench::Desk desk(module, size);
    desk.Solve();
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.Report());
}

using Routine = void (*)(benchmark::State&, int, int);

void Register(const char* what, Routine routine, int module, int size)
{
    const std::string name = std::string(what) + "/" + NameOf(ModuleOf(module)) + "/" + std::to_string(size);
    benchmark::RegisterBenchmark(name.c_str(), routine, module, size)
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.05);
}

void RegisterModule(const bench::ModuleSize& limit)
{
    Register("Read", Read, limit.Module, limit.Limit);
    Register("Report", Report, limit.Module, limit.Limit);
    for (int step = 1; step <= kGrowthSteps; ++step)
        Register("Solve", Solve, limit.Module, limit.Limit * step / kGrowthSteps);
}

}  // namespace

int main(int argc, char* argv[])
{
    for (const bench::ModuleSize& limit : bench::kLimits)
        if (ModuleOf(limit.Module).Routines != nullptr) RegisterModule(limit);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
