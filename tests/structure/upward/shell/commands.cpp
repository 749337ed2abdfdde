#include "markov/module.h"
