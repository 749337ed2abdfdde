// The modal entry forms of the modules whose problems have no grid: how a form is left decides what follows.
#pragma once

#include <string_view>

enum class FormExit {
    Closed,     // the problem is kept as it was when the form was opened
    Solve,      // the Solve command follows
    Save,       // the Save command follows
    Cancelled,  // the problem is given up, the list of models follows
};

// Shows the form, the menus off while it is open, and runs the command that it was left with. The problem has
// then either been kept, or the answer is FormExit::Cancelled; after
// FormExit::Closed the module puts it back.
FormExit RunModelForm(std::string_view form);

// From the report back to the model's form.
void ReturnToModelForm();

// The problem of a form has been given up, the menus are those of a module without one.
void LeaveNoProblem();

// ---- for the forms ----

// Says how the form is being left; the form hides itself behind it.
void LeaveModelForm(FormExit exit);

// The Cancel button. A problem that is in a file is kept; any other is given up after a question. False: the
// user wants to go on, the form stays.
bool CancelModelForm(bool problemIsInFile);

// The check of Solve and Save for one box: it must hold something.
bool RequireValue(std::string_view text);
