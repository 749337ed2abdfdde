#include "play/script.h"
#include "markov/frmChain.h"
