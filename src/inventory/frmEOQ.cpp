#include "inventory/frmEOQ.h"

frmEOQ::frmEOQ(QWidget* parent) : InventoryForm(parent, "frmEOQ", " Economic Order Quantity")
{
    AddAnnualDemand("txtEOQ(0)");
    AddOrderCost("txtEOQ(1)");
    AddHoldingCost();
    AddWorkingDays("txtEOQ(2)");
    AddReorderPoint();
    AddButtons();
}
