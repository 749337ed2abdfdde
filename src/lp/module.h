// The modules Linear Programming and Integer Linear Programming. They share everything but what Solve asks
// and does, and whether printing solves again.
#pragma once

#include "shell/module.h"

const ModuleRoutines& LinearProgramming();
const ModuleRoutines& IntegerLinearProgramming();
