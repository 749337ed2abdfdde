#include "forecasting/frmForecastingModels.h"

#include "forecasting/VtForecasting.h"
#include "qt/fields.h"
#include "qt/text.h"

frmForecastingModels::frmForecastingModels(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Forecasting Models");
    auto* page = new QVBoxLayout(this);
    AddMethods(page);
    auto* rows = new QFormLayout;
    page->addLayout(rows);
    txtValue[0] = qt::AddBox(rows, "txtValue(0)", "", {}, "lblValue(0)");
    txtValue[1] = qt::AddBox(rows, "txtValue(1)", "", {}, "lblValue(1)");
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "CmdSolve", "Solve", [this] { Solve(); });
    qt::AddCancelButton(buttons, "CmdCancel", "Cancel", [] { VtForecasting::TheMethod.Cancel(); });
    Option1[0]->setChecked(true);
    ShowFields();
}

void frmForecastingModels::AddMethods(QVBoxLayout* page)
{
    constexpr std::array<const char*, 4> kMethods = {"Moving Averages", "Exponential Smoothing",
                                                     "Trend Projection", "Trend and Seasonal"};
    for (std::size_t i = 0; i < Option1.size(); ++i) {
        const std::string name = "Option1(" + std::to_string(i) + ")";
        Option1[i] = qt::AddOption(page, name.c_str(), kMethods[i]);
        connect(Option1[i], &QRadioButton::toggled, this, [this](bool on) {
            if (on) ShowFields();
        });
    }
}

int frmForecastingModels::ChosenMethod() const
{
    int method = VtForecasting::kMovingAverages;
    for (const QRadioButton* option : Option1) {
        if (option->isChecked()) return method;
        ++method;
    }
    return VtForecasting::kMovingAverages;
}

void frmForecastingModels::ShowFields()
{
    const auto labels = VtForecasting::FieldLabels(ChosenMethod());
    const auto ranges = VtForecasting::FieldRanges(ChosenMethod());
    for (std::size_t i = 0; i < txtValue.size(); ++i) {
        qt::ShowRow(txtValue[i], !labels[i].empty());
        qt::SetRowLabel(txtValue[i], labels[i]);
        txtValue[i]->setToolTip(qt::ToQt(ranges[i]));
    }
}

void frmForecastingModels::Solve()
{
    VtForecasting::TakeMethod(ChosenMethod(), {qt::TextOf(txtValue[0]), qt::TextOf(txtValue[1])},
                              qt::PointAt(txtValue));
}
