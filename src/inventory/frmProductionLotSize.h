// The entry form of the economic production lot size.
#pragma once

#include "inventory/frmInventory.h"

class frmProductionLotSize : public InventoryForm {
    Q_OBJECT
public:
    explicit frmProductionLotSize(QWidget* parent);
};
