// The entry form of the order quantity with quantity discounts.
#pragma once

#include "inventory/frmInventory.h"

class QGridLayout;

class frmQtyDiscounts : public InventoryForm {
    Q_OBJECT
public:
    explicit frmQtyDiscounts(QWidget* parent);

private:
    using TakeCategory = bool (*)(int category, std::string_view text);

    void AddCategories();
    // One column of the table: a box a category, those that the problem does not have hidden.
    std::vector<QLineEdit*> AddColumn(QGridLayout* table, int column, const char* name, const char* heading,
                                      TakeCategory take, const Array1<Variant>& values);
    bool Keep() override;

    std::vector<QLineEdit*> txtMinQty_;
};
