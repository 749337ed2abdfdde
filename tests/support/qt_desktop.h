// A desktop for tests of screens: real forms, and dialogs that record and answer from lists.
#pragma once

#include "qt/forms.h"
#include "qt/screen.h"
#include "support/fake_desktop.h"

class QtDesktop {
public:
    QtDesktop() { desktop::Install({&dialogs, &screen, &forms, &printer}); }
    ~QtDesktop() { desktop::Install({}); }
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    FakeDialogs dialogs;
    qt::QtForms forms;
    qt::QtScreen screen{forms};
    FakePrinter printer;
};
