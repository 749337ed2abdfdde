// The problem form of the linear and integer programs: the names and the objective in one grid, the
// constraints in another; before there is a problem, the introduction to the module.
#pragma once

#include <array>

#include "qt/entrygrid.h"
#include "qt/forms.h"

class QLayout;
class QVBoxLayout;

class frmLPproblem : public qt::ChildForm {
    Q_OBJECT

public:
    explicit frmLPproblem(QWidget* parent);

private:
    void AddIntroduction(QVBoxLayout* page);
    void AddProblem(QLayout* page);
    qt::EntryGrid* AddGrid(QLayout* page, int index);
    [[nodiscard]] qt::EntryRules Rules(int index);
    void GoToConstraints();
    void GoToObjective();

    std::array<qt::EntryGrid*, 2> grids_{};  // objective, constraints
};
