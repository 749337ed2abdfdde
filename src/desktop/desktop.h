// The desktop that the logic talks to: one object of each kind, installed at start (or by a test).
#pragma once

#include "desktop/dialogs.h"
#include "desktop/forms.h"
#include "desktop/printer.h"
#include "desktop/screen.h"

namespace desktop {

struct Parts {
    Dialogs* dialogs = nullptr;
    Screen* screen = nullptr;
    Forms* forms = nullptr;
    Printer* printer = nullptr;
};

void Install(const Parts& parts);

Dialogs& TheDialogs();
Screen& TheScreen();
Forms& TheForms();
Printer& ThePrinter();

}  // namespace desktop
