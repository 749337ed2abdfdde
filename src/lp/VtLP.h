// The linear program at hand and its three forms:
//
//   the grids     of `frmLPproblem`, which the user edits: Grid(0) names and objective, Grid(1) constraints
//   the model     LpCoefficients and what stands around it, which the engine reads
//   the text      LpLines, one string a line in ordinary algebra ("MAX 3X1+2X2", "1X1+1X2<10"): the problem
//                 file, the echo of the printed report and, behind the constraints, the integer types
//
// GridToModel writes model and text from the grids, ParseLpLines the model from the text, ModelToGrid the
// grids from the model. The grids are the reference: every solve, save and print of a linear program begins
// with GridToModel.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "desktop/dialogs.h"
#include "shell/modaldialog.h"

namespace VtLP {

constexpr int ColumnCapacity = 200;  // decision variables and logical columns
constexpr int RowCapacity = 50;
constexpr int kMostVariables = 100;
constexpr int kMostConstraints = 50;

constexpr int kObjectiveLine = 2;  // in LpLines; constraint i is at kObjectiveLine + i

constexpr std::int16_t kLess = 2;
constexpr std::int16_t kEqual = 3;
constexpr std::int16_t kGreater = 4;

struct LpProblem {
    std::int16_t NumConstraints = 0;
    std::int16_t NumVariables = 0;
    Array1<std::string> LpLines;    // 0 to 255; 0 and 1 are not used
    std::string LpObjectiveLine;    // for the report: without the variables that have no coefficient
    Array2<double> LpCoefficients;  // row 0 the objective, column 0 the right-hand sides
    Array1<std::int16_t> LpRelations;
    Array1<std::string> LpVariableNames;
    std::int16_t LpDecimalPlaces = 3;  // the most decimals of any number, at least 3
    std::int16_t ConstraintCursor = -1;
};

extern LpProblem Problem;

// The objective's type, 1 minimise, 0 maximise. It outlives the problem: a text without a type keeps the
// last.
extern std::int16_t MinimizeFlag;
void SetMinimizeFlag(bool minimize);  // and proposes it to the criterion form of other modules

// A fresh, empty problem.
void AllocateLpModel();

bool AskFeatures();  // false: cancelled
void ModelToGrid();
void GridToModel();

// A file with more than 100 names is told about, and so is a number beyond a double's range: the problem is
// then what had been read so far. Raises a run-time error for a coefficient without a name.
void ParseLpLines();

// `frmLPFeatures`, whose answer is whether the objective is minimised. OK tells what it finds wrong, of box
// 0, box 1 or the types (2); each size is stored as soon as it has passed.
extern ModalDialog<NoQuestion, bool> TheFeatures;
bool TakeFeatures(std::string_view constraints, std::string_view variables, bool minimize, bool maximize,
                  const BoxPointer& point = {});

// One cell of Grid(index), with the text that was typed: kCellStored or kCellRefused. A name that passes
// follows at once into the heading of Grid(1).
int ValidateCell(int index, int row, int column, std::string_view text);

// The name of a column of Grid(0) as it stands now goes into the heading of Grid(1).
void MirrorName(int column);

// A menu of the bar was opened while a name is being typed.
void FinishEdit();

// The sizes of the problem, and back (shell/module.h): everything else of it is in the grids.
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

// What a key does to a cell: the edit keys of the grids are letters of a name, digits of a number or a
// relation.
enum class Key { Taken, Beeps, Refused };
Key JudgeKey(int index, int row, int column, char key, bool first);  // a refused one has been told

// The Edit menu.
void AddConstraints();
void AddVariables();
void DeleteConstraint();
void DeleteVariable();
void ChangeOptimizationType();

}  // namespace VtLP
