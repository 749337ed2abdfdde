// Linear and integer programs: a bounded-variable revised simplex that always maximises, on the factors of
// the basis (lp/Factors.h), with dual steps for values outside of their bounds and two phases for the rows
// that start on artificial columns. Integer programs are searched by branch and bound over it.
//
// Solve works on tables of its own; the problem stays as it is. Its result tells how it ended:
//
//   Optimal      there is a solution to report
//   Infeasible   no point fulfils all constraints, or none was found
//   Unbounded    the objective grows without end, or a column was found that says so
//   Interrupted  the user broke it off: neither a cycling simplex nor a search without an integer solution
//                ends by itself
//   OutOfRoom    a table was full or a number too large, with the run-time error in Error: more columns than
//                the tables hold, a zero on the diagonal of the basis, more than 49 branchings, a node number
//                or a bound beyond 16 bits
//
// Logical columns stand behind the decision variables in the order of the rows: the slack of a "<" row, the
// artificial of a "=" row, the surplus and the artificial of a ">" row.
#pragma once

#include <cstdint>

#include "basic/array.h"
#include "basic/error.h"
#include "lp/Factors.h"
#include "lp/VtLP.h"

namespace LP_Engine {

constexpr double EngineInfinity = 1e15;    // an absent upper bound; no candidate
constexpr double EngineTolerance = 1e-5;   // pivots and values below it are zero
constexpr double PricingThreshold = 1e-7;  // a reduced cost must reach it to enter
constexpr double kLeastGain = 1;           // what a node must promise, in the objective's units

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

// How a column leaves the basis.
constexpr int kBoundFlip = 0;  // it stays: the entering one goes to its other bound
constexpr int kToLower = 1;
constexpr int kToUpper = 2;

enum class Outcome { Optimal, Infeasible, Unbounded, Interrupted, OutOfRoom };

// Where the method stands: all that a jump of the integer search brings back.
struct BasisState {
    // By column.
    Array1<std::int16_t> ColumnStatus;
    Array1<std::int16_t> ColumnKind;
    Array1<double> UpperBound;
    Array1<double> LowerBound;

    // By row position. Positions rotate with each pivot and are no constraints.
    Array1<std::int16_t> BasisList;  // the column that is basic in each
    Array1<double> BasicValues;
    BasisFactors Factors;
};

// What became of a node of the integer search.
enum class Fate {
    Open,
    Branched,
    Whole,            // all integer variables are whole
    NoPlan,           // the dual step found no column
    NotBetter,        // than the best whole solution
    NotBetterByGain,  // by more than kLeastGain
    PassedOver,       // not visited: its parent's value is not better than a whole solution
};

struct SearchNode {
    std::int16_t Bound = 0;
    std::int16_t Variable = 0;  // negative: a lower bound
    std::int16_t Number = 0;    // as in a heap: the children of p are 2p and 2p + 1
    double ParentValue = 0;     // in the minimising sense
    bool Closed = false;

    // For those who look at the tree.
    int Visit = 0;  // 1 for the root; 0: not visited
    Fate Became = Fate::Open;
    double Value = 0;  // of its own relaxation, in the minimising sense; there is none with NoPlan
    int BranchingColumn = 0;
    double BranchingValue = 0;
    bool InPhaseOne = false;  // its value is that of the artificial costs
    bool TookOver = false;    // it became the best whole solution
};

// Record 0 is the root, record 1 is not used.
struct SearchTree {
    Array1<SearchNode> Nodes;
    std::int16_t RecordCount = 1;
    int Visits = 0;
    bool Exhausted = false;  // every node is closed, and there is no whole solution

    double Incumbent = EngineInfinity;  // in the minimising sense
    int IncumbentNode = 0;              // its number; 0: none
    int IncumbentIndex = 0;             // its record
};

struct LpResult {
    Outcome End = Outcome::OutOfRoom;
    ErrorNumber Error = ErrorNumber::SubscriptOutOfRange;  // of Interrupted and OutOfRoom
    bool Solved = false;                                   // some problem was given to Solve

    // What was solved.
    VtLP::LpProblem Problem;
    bool Minimize = false;
    bool Integer = false;

    // The problem with its logical columns: rows 0 to M, columns 0 to NumColumns. Row 0 is negated when
    // minimising; the artificials have -1 there.
    std::int16_t NumColumns = 0;
    Array2<double> Coefficients;
    Array1<std::int16_t> ConstraintColumn;  // by constraint: the slack, or the artificial
    Array1<std::int16_t> IntegerColumn;     // 1: must be whole
    int IntegerCount = 0;

    BasisState Basis;
    Array1<double> CostVector;  // of the phase
    Array1<double> ReducedCosts;
    Array1<double> DualVector;  // by constraint
    double ObjectiveValue = 0;  // in the sense of maximising, at the costs of the last pricing
    int SolvePhase = 0;         // left at 1: there is no feasible point
    int ArtificialCount = 0;
    int ClearedArtificials = 0;  // as last counted
    int PivotCount = 0;          // of the primal steps

    SearchTree Tree;  // of an integer program
};

// Of the last solve.
extern LpResult Result;

class Recorder;

// Minimises or maximises; `integer` has the type lines of the problem read. A recorder hears of every step.
LpResult Solve(const VtLP::LpProblem& problem, bool minimize, bool integer, Recorder* recorder = nullptr);

}  // namespace LP_Engine
