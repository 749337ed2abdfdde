// A second opinion on a linear or integer program: the same problem solved by another, well-kept solver,
// whose plan is checked here before anything is told. The solver stands in a module of its own beside the
// program (lp/opinion/opinion.h), loaded when it is first asked.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

enum class OtherEnd { NotInstalled, Optimal, Infeasible, Unbounded, TimeOut, Failed };

struct OtherResult {
    OtherEnd End = OtherEnd::NotInstalled;
    bool HasPlan = false;             // checked: it keeps to all limits and is whole where it must be
    std::vector<double> Values = {};  // by variable from 0
    double Objective = 0;             // in the problem's own sense, computed anew
};

// Where the other program stands; the program's own folder unless it is set.
void SetOpinionFolder(const std::string& folder);

// Asks the other solver, for two seconds at most, or until it is told to stop: then it has failed, at once.
// May run beside the program, on a result of its own.
OtherResult AskOther(const LpResult& result, const std::stop_token& stop = {});

// Whether the values keep to all limits and signs and are whole where they must be, as far as doubles can
// say: the sums are taken without rounding.
bool KeepsToLimits(const LpResult& result, const std::vector<double>& values);

// What the other result says about this one. Solves again; in the program's own thread.
std::vector<picture::Sentence> Compared(const LpResult& result, const OtherResult& other);

}  // namespace LP_Engine
