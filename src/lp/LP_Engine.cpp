#include "lp/LP_Engine.h"

#include "lp/IntegerSearch.h"
#include "lp/Simplex.h"

namespace LP_Engine {

LpResult Result;

namespace {

bool SomeValueIsNegative(const LpResult& at)
{
    for (int i = 1; i <= at.Problem.NumConstraints; ++i)
        if (at.Basis.BasicValues(i) < 0) return true;
    return false;
}

// False: unbounded.
bool SolveLinear(LpResult& at, Simplex& simplex)
{
    simplex.DualSteps();
    if (SomeValueIsNegative(at)) {
        at.SolvePhase = 1;
        return true;
    }
    return simplex.PrimalSteps();
}

Outcome Run(LpResult& at, Recorder* recorder)
{
    Simplex simplex(at, recorder);
    simplex.MakeTables();
    if (at.Integer) ReadIntegerTypes(at);
    simplex.BuildColumns();
    const bool bounded = at.Integer ? SearchIntegers(at, simplex, recorder) : SolveLinear(at, simplex);
    if (!bounded) return Outcome::Unbounded;
    if (at.SolvePhase == 1) return Outcome::Infeasible;
    simplex.ComputeObjective();
    return Outcome::Optimal;
}

}  // namespace

// A search that fills its tables, or that the user breaks off, keeps what it found so far: here the error is
// an outcome, which the command raises again.
LpResult Solve(const VtLP::LpProblem& problem, bool minimize, bool integer, Recorder* recorder)
{
    LpResult at;
    at.Solved = true;
    at.Problem = problem;
    at.Minimize = minimize;
    at.Integer = integer;
    try {
        at.End = Run(at, recorder);
    } catch (const RuntimeError& error) {
        at.Error = error.Number();
        at.End = error.Number() == ErrorNumber::UserInterrupt ? Outcome::Interrupted : Outcome::OutOfRoom;
    }
    return at;
}

}  // namespace LP_Engine
