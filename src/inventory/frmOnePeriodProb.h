// The entry form of the single period with probabilistic demand.
#pragma once

#include "inventory/frmInventory.h"

class frmOnePeriodProb : public InventoryForm {
    Q_OBJECT
public:
    explicit frmOnePeriodProb(QWidget* parent);

private:
    void AddDistribution();
    void ShowDistribution();

    QLineEdit* txtSmallValue_ = nullptr;
    QLineEdit* txtLargeValue_ = nullptr;
};
