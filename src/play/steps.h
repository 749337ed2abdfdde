// The steps of a script, done on the screen in front.
#pragma once

#include <QString>
#include <functional>

#include "play/outcome.h"
#include "play/script.h"
#include "play/transcript.h"

namespace play {

// What a step may need besides the screens.
struct Stage {
    Transcript& Out;
    QString Folder;  // that paths in the script are relative to
    // What is left of a step that a dialog came into; done when the program is idle again.
    std::function<void()> Rest = {};
};

// Does the step. It returns when the program has taken it in, dialogs that it brought up included.
Outcome Perform(const Step& step, Stage& stage);

// Why the step can never be done: there is no such step, or its arguments are wrong in number. Empty when it
// may be.
Outcome CheckStep(const Step& step);

}  // namespace play
