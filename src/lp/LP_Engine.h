// Linear and integer programs: a bounded-variable revised simplex that always maximises, on the factors of
// the basis (lp/Factors.h), with dual steps for values outside of their bounds and two phases for the rows
// that start on artificial columns. Integer programs are searched by branch and bound over it.
//
// Reads   VtLP::Problem and the type lines behind its constraints; Session.IntegerProblem
// Leaves  State, and the report on screen when there is a solution; tells when there is none
// Changes VtLP::Problem for good: logical columns are added to the coefficients and the names, a minimised
//         objective row is negated, and the report of a linear program writes the tableau over the rows
// Fails   with run-time errors: more columns than the tables hold, a zero on the diagonal of the basis, more
//         than 49 branchings, a node number or a bound beyond 16 bits. UserInterrupt from LetUserInterrupt:
//         neither a cycling simplex nor a search without an integer solution ends by itself
//
// Logical columns stand behind the decision variables in the order of the rows: the slack of a "<" row, the
// artificial of a "=" row, the surplus and the artificial of a ">" row.
#pragma once

#include <cstdint>

#include "basic/array.h"
#include "lp/Factors.h"

namespace LP_Engine {

constexpr double EngineInfinity = 1e15;    // an absent upper bound; no candidate
constexpr double EngineTolerance = 1e-5;   // pivots and values below it are zero
constexpr double PricingThreshold = 1e-7;  // a reduced cost must reach it to enter

// ColumnStatus. At a bound a column is nonbasic, else basic.
constexpr std::int16_t kBelowLower = -2;
constexpr std::int16_t kAtLower = -1;
constexpr std::int16_t kBasic = 0;
constexpr std::int16_t kAtUpper = 1;
constexpr std::int16_t kAboveUpper = 2;

// ColumnKind. A positive kind is basic; a slack is so from the start, the others have the sign of their first
// state.
constexpr std::int16_t kDecision = 1;
constexpr std::int16_t kSlack = 2;
constexpr std::int16_t kSurplus = 3;
constexpr std::int16_t kArtificial = 4;
constexpr std::int16_t kRetired = 0;  // an artificial that has left; it never returns

// RunStatus
constexpr std::int16_t kRunning = 1;     // or optimal
constexpr std::int16_t kNoEntering = 2;  // the dual step found no column
constexpr std::int16_t kIntegral = 3;    // all integer variables are whole

// How a column leaves the basis.
constexpr int kBoundFlip = 0;
constexpr int kToLower = 1;
constexpr int kToUpper = 2;

struct EngineState {
    // By column, 0 to ColumnCapacity.
    std::int16_t NumColumns = 0;
    Array1<double> CostVector;  // of the current phase
    Array1<double> ReducedCosts;
    Array1<std::int16_t> ColumnStatus;
    Array1<std::int16_t> ColumnKind;
    Array1<std::int16_t> IntegerColumn;  // 1: must be whole
    Array1<double> UpperBound;
    Array1<double> LowerBound;

    // By row, 0 to RowCapacity. Row positions rotate with each pivot and are no constraints.
    Array1<double> RightHandSide;
    Array1<std::int16_t> BasisList;  // the column that is basic in each position
    Array1<double> BasicValues;
    Array1<double> PriceVector;
    Array1<double> DualVector;  // by constraint
    Array1<double> WorkColumn;
    Array1<double> PivotColumn;
    Array1<std::int16_t> ConstraintColumn;  // by constraint: the slack, or the artificial
    BasisFactors Factors;

    bool Solved = false;        // there is a solution to report
    double ObjectiveValue = 0;  // in the sense of maximising
    int SolvePhase = 0;         // left at 1: there is no feasible point
    std::int16_t RunStatus = 0;
    int IntegerCount = 0;

    int ArtificialCount = 0;
    int ClearedArtificials = 0;  // as last counted
    int PivotCount = 0;

    // The step that is being chosen.
    int EnteringColumn = 0;
    int Direction = 0;  // +1 up from the lower bound, -1 down from the upper one
    int LeavingRow = 0;
    int LeavingKind = kBoundFlip;
    double Step = 0;
    double InfeasibleStep = 0;
    double LargestReducedCost = 0;
};

extern EngineState State;

void Solve();

// Value times cost over all columns, at the costs of the last pricing.
void ComputeObjective();

// ---- for the search and the ranges ----

void BuildColumns();
void DualSteps();
// False: the objective grows without end.
[[nodiscard]] bool PrimalSteps();
void TransformColumn(int column);

}  // namespace LP_Engine
