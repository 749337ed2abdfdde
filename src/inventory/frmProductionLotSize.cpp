#include "inventory/frmProductionLotSize.h"

using VtInvent::Problem;

frmProductionLotSize::frmProductionLotSize(QWidget* parent)
    : InventoryForm(parent, "frmProductionLotSize", " Production Lot Size")
{
    AddAnnualDemand("txtProdLot(0)");
    const QLineEdit* rate =
        AddField("txtProdLot(1)", "Annual Production Rate (Units/Year):", VtInvent::TakeProductionRate,
                 Problem.ProductionRate);
    CheckAtSolve(rate, VtInvent::StoreProductionRate);  // the warning comes on leaving the box only
    AddField("txtProdLot(2)", "Setup Cost ($/Setup):", VtInvent::TakeSetupCost, Problem.OrderCost);
    AddWorkingDays("txtProdLot(3)");
    AddHoldingCost();
    AddReorderPoint();
    AddButtons();
}
