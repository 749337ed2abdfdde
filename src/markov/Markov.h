// Markov processes: the chain as the user enters it, and where it ends, or how it spreads when it never ends.
//
// Tables are indexed from 1. States keep the order in which the user numbered them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"

namespace Markov {

constexpr int kMostStates = 10;

struct MarkovProblem {
    int StateCount = 0;                // n, 1 to 10
    Array2<Variant> TransitionMatrix;  // 10 x 10, (from, to)
};

struct MarkovResult {
    bool Solved = false;                // false: nothing has been solved since the problem began
    std::vector<int> AbsorbingList;     // states that are never left, ascending
    std::vector<int> NonAbsorbingList;  // all others, ascending
    Array2<double> AbsorptionTable;     // (k, a): from NonAbsorbingList[k - 1] into AbsorbingList[a - 1]
    Array1<double> Distribution;        // n probabilities, when no state absorbs
};

extern MarkovProblem Problem;
extern MarkovResult Result;

// ---- model and entry ----

void MakeArrays();  // an empty problem; StateCount stays
bool Ask();         // asks for the number of states; false: cancelled, nothing has changed
void Fill();        // puts the table on `frmProblem`
int CommitCell(int row, int column, std::string_view text);
double Probability(int from, int to);

// The count of states and the table in a row, and back (shell/module.h).
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

// ---- engine ----

constexpr double kTolerance = 0.00001;  // a step that moves no probability by more is the last one
constexpr int kStepLimit = 150;

// One step of the repetition, as the engine tells it to whoever listens.
struct ChainStep {
    int Start;             // the state in which all units start; 0: they are spread evenly
    int Number;            // 1 for the first
    Array1<double> Row;    // where the units are behind the step
    double LargestChange;  // of a probability in this step
};
using StepListener = std::function<void(const ChainStep&)>;

// A row of the table adds up to 1 as far as the problem check allows and is not normalised. A chain that
// still moves at the step limit is no failure: a periodic one reports its last row.
MarkovResult Solve(const MarkovProblem& problem, const StepListener& listener = {});

}  // namespace Markov
