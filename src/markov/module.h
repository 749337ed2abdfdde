// Markov processes as the shell sees them.
#pragma once

#include "shell/module.h"

const ModuleRoutines& MarkovProcesses();
