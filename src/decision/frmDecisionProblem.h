// The entry form of decision problems: payoffs, state probabilities and the probabilities of the indicator
// outcomes, each in a grid of its own.
#pragma once

#include <QVBoxLayout>
#include <array>
#include <string_view>

#include "qt/entrygrid.h"
#include "qt/forms.h"

class QVBoxLayout;

class frmDecisionProblem : public qt::ChildForm {
    Q_OBJECT

public:
    explicit frmDecisionProblem(QWidget* parent = nullptr);

private:
    void AddIntroduction(QVBoxLayout* page);
    void AddGrid(QVBoxLayout* page, int index, std::string_view description);
    qt::EntryRules Rules(int index);
    void EnterNextGrid(int from, int step);  // the next one that is shown, round the form

    std::array<qt::EntryGrid*, 3> Grid{};
};
