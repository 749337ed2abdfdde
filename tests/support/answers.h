// The answers of a user to the dialogs that Solve shows, one of each: for runs that are about what comes
// behind.
#pragma once

#include "support/fake_desktop.h"

// Minimise; the optimistic criterion; all variables whole; from node 1 to node 2; a trend with four seasons.
void AnswerSolveDialogs(FakeForms& forms);
