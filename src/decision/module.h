// Decision analysis as the shell sees it.
#pragma once

#include "shell/module.h"

const ModuleRoutines& DecisionAnalysis();
