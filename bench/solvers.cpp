// The linear program at the limit, solved here and by a general solver where the machine has one. Both get the
// same problem in memory; only the solve is timed.
#include <benchmark/benchmark.h>

#include "desk.h"
#include "problems.h"

#ifdef VANTREL_WITH_GLPK
#include <glpk.h>
#endif
