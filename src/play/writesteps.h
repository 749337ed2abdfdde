// Steps that write down what is on the screen.
#pragma once

#include "play/steps.h"

namespace play {

Outcome WriteScreen(const Step& step, Stage& stage);
Outcome WriteReport(const Step& step, Stage& stage);
Outcome WriteSession(const Step& step, Stage& stage);
Outcome WritePictures(const Step& step, Stage& stage);
Outcome WriteSteps(const Step& step, Stage& stage);
Outcome WriteMeaning(const Step& step, Stage& stage);
Outcome SavePicture(const Step& step, Stage& stage);

}  // namespace play
