// Shortest route and minimal spanning tree: the arc table, its entry rules and the problem on its form.
//
// Lengths are kept as whole thousandths of the entered distance. Arcs have no direction.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"
#include "desktop/dialogs.h"
#include "shell/modaldialog.h"

namespace Network {

constexpr int kMostNodes = 20;
constexpr int kMostArcs = 40;
constexpr double kThousand = 1000;  // lengths are thousandths of the entered distance

enum ArcRow : int { kStart = 1, kEnd = 2, kLength = 3 };  // rows of the arc tables

struct NetworkProblem {
    std::int16_t NumNodes = 0;
    std::int16_t NumArcs = 0;
    // By arc: start node, end node (0: left empty), length. As large as the largest problem.
    Array2<std::int32_t> ArcTable;
    Variant DecimalPlaces = 0.0;  // of the lengths: 0, 1 or 2; it only grows
    std::int16_t StartNode = 0;   // of the route
    std::int16_t EndNode = 0;
};

extern NetworkProblem Problem;

// Empties the record and makes the arc table.
void Allocate();

bool AskSize();  // asks for the two counts and makes the arc table; false: cancelled, nothing has changed
void Fill();     // puts the network on the problem form: empty cells when NewProblem is true

// A cell of the grid, the fixed row and column being 0: a cell commit (shell/module.h). A blank cell stores
// 0.
int EnterCell(int row, int column, std::string_view text);

// Sizes and arcs in a row, and back (shell/module.h).
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

// A distance in thousandths; half of one rounds up. "Overflow" beyond 32 bits.
std::int32_t ToThousandths(double distance);

// ---- `frminputnodes` ----

struct RouteEnds {
    std::int16_t Start = 0;
    std::int16_t End = 0;
};

extern ModalDialog<NoQuestion, RouteEnds> Ends;
bool AskNodes();  // into the problem; false: cancelled
// OK: which answer is refused, after its message (0: start, 1: end); -1: both are given.
int TakeNodes(const std::string& start, const std::string& end, const BoxPointer& point = {});

}  // namespace Network
