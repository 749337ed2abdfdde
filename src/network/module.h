// Shortest route and minimal spanning tree as the shell sees them.
#pragma once

#include "shell/module.h"

const ModuleRoutines& ShortestRoute();
const ModuleRoutines& MinimalSpanningTree();
