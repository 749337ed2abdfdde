// What the entry forms of models have in common: boxes from top to bottom, and under them the buttons Solve,
// Save and Cancel. Solve and Save first ask for every box that is shown, in the order in which the form
// states them, and then check what each of them holds: a question may have kept the focus out of a box that
// was never left.
#pragma once

#include <string_view>
#include <vector>

#include "qt/fields.h"
#include "qt/forms.h"
#include "shell/modelform.h"

class ModelEntryForm : public qt::ModalForm {
    Q_OBJECT

protected:
    ModelEntryForm(QWidget* parent, const char* name, std::string_view title);

    [[nodiscard]] QFormLayout* Rows() const { return rows_; }
    // A box with its text; `rows` is Rows() or the layout of a frame.
    QLineEdit* AddField(QFormLayout* rows, const char* name, std::string_view label, qt::TextCheck check,
                        std::string_view text, const char* labelName = "");
    void Require(QLineEdit* box, qt::TextCheck check);  // a box that was made in another way
    // What Solve and Save check of the box, where leaving it does more.
    void CheckAtSolve(const QLineEdit* box, const qt::TextCheck& check);
    void AddButtons();  // the last that a form states; the first box gets the focus

private:
    // What follows when no box is empty; false: it was refused, the form stays.
    virtual bool Keep() = 0;

    struct Field {
        QLineEdit* Box;
        qt::TextCheck Check;
    };

    bool IsComplete();
    bool IsTaken();
    void Leave(FormExit exit);

    QFormLayout* rows_;
    std::vector<Field> fields_;
};
