// The entry form of the economic order quantity.
#pragma once

#include "inventory/frmInventory.h"

class frmEOQ : public InventoryForm {
    Q_OBJECT
public:
    explicit frmEOQ(QWidget* parent);
};
