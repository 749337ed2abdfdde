// How the last solve ended, for what stands beside the report: pictures, steps and sentences come with a
// report and go with it, and come beside the problem where a solve has ended without one.
#pragma once

#include <functional>

enum class SolveEnd {
    None,           // there is nothing that belongs to the problem on screen
    Report,         // its report is on screen
    WithoutReport,  // the engine ran and gave no report: infeasible, unbounded, broken off, ...
};

class LastSolve {
public:
    [[nodiscard]] SolveEnd End() const { return end_; }
    // Counts the solves that have ended: what was computed for an earlier one is out of date.
    [[nodiscard]] int Number() const { return number_; }

    // Written by the shell alone.
    void Set(SolveEnd end);

    // Called after each change. The page of a report is on screen by then, and no box stands in front of it.
    std::function<void()> Changed = {};

private:
    SolveEnd end_ = SolveEnd::None;
    int number_ = 0;
};

extern LastSolve TheLastSolve;
