// The picture "Plan" of two variables.
#pragma once

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

picture::Picture PlanPicture(const LpResult& result);

}  // namespace LP_Engine
