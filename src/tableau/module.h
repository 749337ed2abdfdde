// Transportation and assignment as the shell sees them.
#pragma once

#include "shell/module.h"

const ModuleRoutines& Transportation();
const ModuleRoutines& Assignment();
