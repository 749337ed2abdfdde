#include "markov/frmChain.h"
#include "shell/commands.h"
