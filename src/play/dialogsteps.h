// Steps on the desktop's own dialogs, and the close button of a window.
#pragma once

#include "play/steps.h"

namespace play {

Outcome AnswerBox(const Step& step, Stage& stage);
Outcome AnswerInput(const Step& step, Stage& stage);
Outcome AnswerFileDialog(const Step& step, Stage& stage);
Outcome AnswerPrinterDialog(const Step& step, Stage& stage);
Outcome CloseScreen(const Step& step, Stage& stage);

}  // namespace play
