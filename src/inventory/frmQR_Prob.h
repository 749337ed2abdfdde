// The entry form of the order quantity and reorder point with probabilistic demand.
#pragma once

#include "inventory/frmInventory.h"

class frmQR_Prob : public InventoryForm {
    Q_OBJECT
public:
    explicit frmQR_Prob(QWidget* parent);

private:
    void AddLeadTimeDemand();
    void AddService();
    void ShowServiceMethod();

    QLineEdit* txtStockout_ = nullptr;
};
