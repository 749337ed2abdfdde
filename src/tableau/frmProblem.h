// The problem form of the modules that enter their data in one table: a heading, the table and a line of
// advice; before there is a problem, the introduction to the module.
#pragma once

#include "qt/entrygrid.h"
#include "qt/forms.h"

class QLayout;
class QVBoxLayout;

class frmProblem : public qt::ChildForm {
    Q_OBJECT

public:
    explicit frmProblem(QWidget* parent);

private:
    void AddIntroduction(QVBoxLayout* page);
    void AddProblem(QLayout* page);
    [[nodiscard]] qt::EntryRules Rules() const;
    [[nodiscard]] bool IsClosed(int row, int column) const;

    qt::EntryGrid* gridDisplayEdit = nullptr;
};
