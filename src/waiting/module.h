// Waiting lines as the shell sees them.
#pragma once

#include "shell/module.h"

const ModuleRoutines& WaitingLines();
