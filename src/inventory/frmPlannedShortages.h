// The entry form of the order quantity with planned shortages.
#pragma once

#include "inventory/frmInventory.h"

class frmPlannedShortages : public InventoryForm {
    Q_OBJECT
public:
    explicit frmPlannedShortages(QWidget* parent);
};
