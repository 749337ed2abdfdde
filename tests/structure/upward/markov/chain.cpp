#include <QString>

#include "basic/text.h"
#include "lp/model.h"
#include "markov/frmChain.h"
#include "tableau/tanumchk.h"
