// Which forecasting method, and its inputs.
#pragma once

#include <array>

#include "qt/forms.h"

class QFormLayout;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

class frmForecastingModels : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmForecastingModels(QWidget* parent);

private:
    void AddMethods(QVBoxLayout* page);
    [[nodiscard]] int ChosenMethod() const;  // 1 for the first option
    void ShowFields();
    void Solve();

    std::array<QRadioButton*, 4> Option1{};
    std::array<QLineEdit*, 2> txtValue{};
};
