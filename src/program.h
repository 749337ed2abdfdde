// The whole program as one object: the desktop, the screens and the modules put together.
#pragma once

#include <memory>

#include "qt/dialogs.h"
#include "qt/forms.h"
#include "qt/printer.h"
#include "qt/screen.h"

class Program {
public:
    // The dialogs may be watched by whoever runs the program.
    explicit Program(std::unique_ptr<qt::QtDialogs> dialogs = std::make_unique<qt::QtDialogs>());

    // Shows the start-up notice. What follows is the event loop's.
    void Start();

    [[nodiscard]] qt::QtForms& Forms() { return forms_; }
    [[nodiscard]] const qt::QtScreen& Screen() const { return screen_; }

private:
    std::unique_ptr<qt::QtDialogs> dialogs_;
    qt::QtForms forms_;
    qt::QtScreen screen_{forms_};
    qt::QtPrinter printer_;
};
