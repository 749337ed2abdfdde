#include "decision/frmdecnopt.h"

#include <string>

#include "decision/VtDecisionAnalysis.h"
#include "qt/fields.h"

frmdecnopt::frmdecnopt(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Select Optimization/Decision Criteria");
    auto* page = new QVBoxLayout(this);
    AddSense(page);
    AddCriteria(page);
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { Decision::TheSenseAndCriterion.Cancel(); });
}

void frmdecnopt::AddSense(QVBoxLayout* page)
{
    auto* frame = qt::AddFrame(page, "Frame1", "Optimization Criteria");
    optMaximize = qt::AddOption(frame->layout(), "optMaximize", "Maximize the Payoff");
    optMinimize = qt::AddOption(frame->layout(), "optMinimize", "Minimize the Payoff");
    (Decision::TheSenseAndCriterion.Question().Maximize ? optMaximize : optMinimize)->setChecked(true);
}

void frmdecnopt::AddCriteria(QVBoxLayout* page)
{
    constexpr std::array kCaptions = {"Optimistic Criterion", "Conservative Criterion",
                                      "Minimax Regret Criterion"};
    auto* frame = qt::AddFrame(page, "Frame2", "Decision Criteria");
    const int chosen = Decision::TheSenseAndCriterion.Question().Criterion;
    for (std::size_t i = 0; i < Optcriterion.size(); ++i) {
        const std::string name = "Optcriterion(" + std::to_string(i) + ")";
        Optcriterion.at(i) = qt::AddOption(frame->layout(), name.c_str(), kCaptions.at(i));
        Optcriterion.at(i)->setChecked(chosen == static_cast<int>(i) + 1);
    }
}

void frmdecnopt::Accept()
{
    int criterion = 1;
    while (!Optcriterion.at(static_cast<std::size_t>(criterion) - 1)->isChecked())
        ++criterion;
    Decision::TheSenseAndCriterion.Give({.Maximize = optMaximize->isChecked(), .Criterion = criterion});
}
