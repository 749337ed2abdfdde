// What the six inventory forms share: the fields that more than one of them has. A form states its own fields
// and these in their order.
#pragma once

#include "inventory/VtInvent.h"
#include "shell/frmModelEntry.h"

class InventoryForm : public ModelEntryForm {
    Q_OBJECT

protected:
    using ModelEntryForm::ModelEntryForm;

    using Take = bool (*)(std::string_view text);

    QLineEdit* AddField(const char* name, std::string_view label, Take take, const Variant& value);
    void AddAnnualDemand(const char* name);
    void AddOrderCost(const char* name);
    void AddWorkingDays(const char* name);
    void AddHoldingCost();   // the method and its one or two boxes
    void AddReorderPoint();  // the check box and the lead time
    // A list with a label; `chosen` gets the line that is chosen from now on.
    QComboBox* AddChoice(QFormLayout* rows, const char* name, std::string_view label,
                         const std::vector<std::string_view>& items, int current,
                         std::function<void(int index)> chosen);

    bool Keep() override;

    using ModelEntryForm::AddField;

private:
    void ShowHoldingMethod();
    void ChooseHoldingMethod(int method);
    void ChooseReorderPoint(bool compute);

    QLineEdit* workingDays_ = nullptr;
    QLineEdit* txtFrame1_ = nullptr;
    QLineEdit* txtframe2_ = nullptr;
    QLineEdit* txtleadtime_ = nullptr;
};
