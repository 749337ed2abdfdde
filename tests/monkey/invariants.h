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
// A cell shows what the record holds, or is being typed. The heading below is the name above it.
[[nodiscard]] std::string WhatDoesNotHold();

// The same of the boxes and lists of projects, inventories and waiting lines, also while their dialog runs: a
// box that is not being edited shows what the record holds.
[[nodiscard]] std::string WhatBoxesDoNotHold();

// There is always a way on by keys, once a window that has just come up is the active one.
[[nodiscard]] bool SomethingTakesTheNextKey();

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
