// The entry form of the order quantity with planned shortages.
#pragma once

#include "inventory/frmInventory.h"

class frmPlannedShortages : public frmInventory {
    Q_OBJECT
public:
    explicit frmPlannedShortages(QWidget* parent);
};
