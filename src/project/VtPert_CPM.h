// PERT/CPM: the activity table as the user enters it, and the schedule that follows from it.
//
// Activities are numbered from 1 and named by letters, A for 1 up to Y for 25. A predecessor always has a
// letter earlier in the alphabet, so one sweep in table order visits every activity behind its predecessors.
// Times are in the user's own unit.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"
#include "shell/modaldialog.h"

namespace VtPert_CPM {

constexpr int kMostActivities = 25;
constexpr int kMostPredecessors = 8;

// TimeMode
constexpr int kKnownTimes = 1;
constexpr int kThreeEstimates = 2;

struct PertProblem {
    std::int16_t NumActivities = 0;
    Variant TimeMode = kKnownTimes;
    Variant DecimalPlaces = 0.0;       // 0 to 2, raised by known times
    Variant TimeDecimals = 0.0;        // decimals of the report, 0 to 2, raised by expected times
    std::int16_t CurrentActivity = 1;  // the one on the form
    Array1<std::string> ActivityName;
    Array1<Variant> PredCount;
    Array2<Variant> PredTable;  // 8 x 25, (position, activity): ascending from position 1, 0 behind the last
    Array1<Variant> ActivityTime;  // entered, or the expected time after a solve with three estimates
    Array1<Variant> OptimisticTime;
    Array1<Variant> ProbableTime;
    Array1<Variant> PessimisticTime;
    Array1<Variant> TimeVariance;  // of three estimates, after a solve
};

struct PertResult {
    bool Solved = false;
    Array1<double> EarliestStart;
    Array1<double> EarliestFinish;
    Array1<double> LatestStart;
    Array1<double> LatestFinish;
    Array1<double> ActivitySlack;      // never negative
    Array1<std::string> CriticalFlag;  // "YES" or a single blank
    Array1<std::string> PathFlag;      // "YES" on the computed critical path, otherwise a single blank
    int CriticalCount = 0;
    int PathCount = 0;
    int LastActivity = 1;               // of the project: the first one that ends with it
    std::string PathText;               // "A-C-G", in alphabetical order
    double ProjectTime = 0;             // as computed
    double RoundedProjectTime = 0;      // to hundredths
    double RoundedProjectVariance = 0;  // of the path, to hundredths
};

extern PertProblem Problem;
extern PertResult Result;
extern int TableNumber;  // of the table at hand: each one that is made has another

[[nodiscard]] bool HasThreeEstimates();

// ---- model and entry ----

void MakeTable();  // an empty table; NumActivities and TimeMode stay
bool Ask();        // asks for the parameters; false: cancelled, the table stays
void Fill();       // shows `frmPERT_CPM`

// `frmPERTCPM_Init`, whose answer is the time mode; the count is stored when its field is left. False:
// refused and told, the form keeps the field.
extern ModalDialog<NoQuestion, int> TheParameters;
bool TakeActivityCount(std::string_view text);  // on leaving the field; an empty one is passed over
bool TakeParameters(std::string_view countText, int timeMode);  // OK

// `frmPERT_CPM`, on leaving a time of the current activity; an empty one is left alone. False: refused and
// told, the stored time stays.
bool TakeExpectedTime(std::string_view text);
bool TakeOptimisticTime(std::string_view text);
bool TakeProbableTime(std::string_view text);
bool TakePessimisticTime(std::string_view text);

// The predecessors of the current activity, ascending. A ninth raises "Subscript out of range".
void TakePredecessors(const std::vector<int>& predecessors);

[[nodiscard]] std::vector<int> PredecessorsOf(int activity);
[[nodiscard]] std::string PredecessorText(int activity);  // "A, C"; empty without predecessors

// Set by the entry form as long as it is there: checks the times that stand in its boxes.
extern std::function<void()> CheckTimeBoxes;

// ---- engine ----

// Expected times and variances from three estimates, kept with the problem: a file saved later holds them.
// Raises TimeDecimals.
void EstimateTimes(PertProblem& problem);

// From the activity times. A table with more than eight predecessors of an activity raises "Subscript out of
// range".
PertResult FindSchedule(const PertProblem& problem);

// Both for the problem at hand; keeps the result.
void Calculate();

}  // namespace VtPert_CPM
