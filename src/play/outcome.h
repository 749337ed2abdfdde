#pragma once

#include <string>

namespace play {

// Why a step cannot be done; empty when it was done.
using Outcome = std::string;

inline const Outcome kDone;

}  // namespace play
