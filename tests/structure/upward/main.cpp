#include "markov/frmChain.h"
#include "play/script.h"
