// The entry form of the five waiting line models; the model decides which boxes it has.
#pragma once

#include "shell/frmModelEntry.h"
#include "waiting/VtWait.h"

class frmWL_Model : public ModelEntryForm {
    Q_OBJECT
public:
    explicit frmWL_Model(QWidget* parent);

private:
    using Take = bool (*)(std::string_view text);

    void AddModelBox(int index);
    void AddEconomicAnalysis();
    QLineEdit* AddCheckedField(QFormLayout* rows, const std::string& name, std::string_view label, Take take,
                               const Variant& value, const std::string& labelName);
    void ChooseEconomicAnalysis(bool wanted);
    bool Keep() override;

    QLineEdit* arrivalRate_ = nullptr;
    QGroupBox* frameECONAnal_ = nullptr;
    std::vector<QLineEdit*> txtECONAnal_;
};
