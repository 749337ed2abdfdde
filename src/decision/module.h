#pragma once

#include "shell/module.h"

const ModuleRoutines& DecisionAnalysis();
