// What the entry forms of models have in common: boxes from top to bottom, and under them the buttons Solve,
// Save and Cancel. Solve and Save first ask for every box that is shown, in the order in which the form
// states them.
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
    void Require(QLineEdit* box);  // a box that was made in another way
    void AddButtons();             // the last that a form states; the first box gets the focus

private:
    // What follows when no box is empty; false: it was refused, the form stays.
    virtual bool Keep() = 0;
    // The problem's flag: it is in a file.
    [[nodiscard]] virtual bool Saved() const = 0;

    bool IsComplete();
    void Leave(FormExit exit);
    void Cancel();

    QFormLayout* rows_;
    std::vector<QLineEdit*> required_;
};
