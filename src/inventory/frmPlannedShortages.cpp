#include "inventory/frmPlannedShortages.h"

using VtInvent::Problem;

frmPlannedShortages::frmPlannedShortages(QWidget* parent)
    : InventoryForm(parent, "frmPlannedShortages", " Planned Shortages")
{
    AddAnnualDemand("txtPlannedShortages(0)");
    AddOrderCost("txtPlannedShortages(1)");
    AddField("txtPlannedShortages(2)", "Backorder Cost ($/Unit/Year):", VtInvent::TakeBackorderCost,
             Problem.BackorderCost);
    AddWorkingDays("txtPlannedShortages(3)");
    AddHoldingCost();
    AddReorderPoint();
    AddButtons();
}
