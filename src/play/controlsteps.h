// Steps on the controls of the forms, the menus and the keyboard.
#pragma once

#include "play/steps.h"

namespace play {

Outcome ChooseModule(const Step& step, Stage& stage);
Outcome TriggerMenuItem(const Step& step, Stage& stage);
Outcome ClickControl(const Step& step, Stage& stage);
Outcome DoubleClickControl(const Step& step, Stage& stage);
Outcome TypeText(const Step& step, Stage& stage);
Outcome PressKey(const Step& step, Stage& stage);
Outcome PressKeys(const Step& step, Stage& stage);
Outcome PickEntry(const Step& step, Stage& stage);
Outcome TypeIntoCell(const Step& step, Stage& stage);
Outcome ClickCell(const Step& step, Stage& stage);

}  // namespace play
