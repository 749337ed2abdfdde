#include "markov/frmChain.h"
