// What the result of a linear or integer program says, in sentences: what to do, what limits it, what a
// change would bring, and what to be careful with. Claims about other values are solved again.
#pragma once

#include <vector>

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

std::vector<picture::Sentence> Meaning(const LpResult& result);

}  // namespace LP_Engine
