// What holds after every step on the screens, whatever the step was.
#pragma once

#include <QList>
#include <QPointer>
#include <QString>
#include <string>
#include <vector>

#include "qt/entrygrid.h"

// The first thing that does not hold, in words; empty when all is well.
//
// A cell shows what the record holds, or is being typed. The heading below is the name above it. There is
// something that takes the next key.
[[nodiscard]] std::string WhatDoesNotHold();

// Looks at the tables before and after a key that types: what it changes is the current cell of the table
// that has the keys, and that cell is in sight.
class TypedKey {
public:
    TypedKey();
    [[nodiscard]] std::string WhatDoesNotHold() const;

private:
    struct Before {
        QPointer<qt::EntryGrid> Grid;
        qt::GridState State;
    };
    std::vector<Before> grids_;
};
