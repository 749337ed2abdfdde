// A problem of a module on a desktop without screens, with the answers that its dialogs get.
#pragma once

#include <string>

#include "support/fake_desktop.h"

namespace bench {

class Desk {
public:
    Desk(int module, int size);

    // Solve, with the report on the solution page.
    void Solve();
    // The full report, as Save As Text File writes it.
    std::string Report();

private:
    FakeDesktop desktop_;
};

}  // namespace bench
