// A user who breaks off a search that goes on and on.
#pragma once

#include "support/fake_desktop.h"

class ImpatientScreen : public FakeScreen {
public:
    bool Interrupted() override { return ++asked_ > kMost; }

private:
    static constexpr int kMost = 300;
    int asked_ = 0;
};
