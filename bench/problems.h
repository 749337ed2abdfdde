// Problems of any size for the benchmarks, as the text of a problem file. The same size gives the same
// problem in every run.
#pragma once

#include <array>
#include <string>

#include "shell/module.h"

namespace bench {

struct ModuleSize {
    int Module;  // its number in the table
    int Limit;   // the largest size
};

// What the size of a module counts: constraints, with twice as many variables (1 and 4), origins and
// destinations (2), agents and tasks (3), nodes, with twice as many arcs (5 and 6), activities (7), discount
// categories (8), channels (9), alternatives, states and indicator outcomes (10), periods (11), states (12).
inline constexpr std::array<ModuleSize, 12> kLimits = {{{1, 50},
                                                        {2, 30},
                                                        {3, 30},
                                                        {4, 50},
                                                        {5, 20},
                                                        {6, 20},
                                                        {7, 25},
                                                        {8, 5},
                                                        {9, 25},
                                                        {10, 10},
                                                        {11, 100},
                                                        {12, 10}}};
static_assert(kLimits.size() == kModuleCount);

std::string ProblemText(int module, int size);

}  // namespace bench
