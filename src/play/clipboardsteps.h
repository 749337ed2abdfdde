// Steps on the clipboard.
#pragma once

#include "play/steps.h"

namespace play {

Outcome CopyFocus(const Step& step, Stage& stage);
Outcome PasteIntoFocus(const Step& step, Stage& stage);

}  // namespace play
