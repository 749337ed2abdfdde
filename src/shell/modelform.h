// The modal entry forms of the modules whose problems have no grid: how a form is left decides what follows.
#pragma once

#include <string_view>

enum class FormExit {
    Closed,   // the problem is kept as it was when the form was opened
    Solve,    // the Solve command follows
    Save,     // the Save command follows
    GivenUp,  // there is no problem any more, the list of models follows
};

// Shows the form, the menus off while it is open, and runs the command that it was left with. After
// FormExit::Closed the module puts the problem back as it was.
FormExit RunModelForm(std::string_view form, bool problemIsInFile);

// From the report back to the model's form.
void ReturnToModelForm();

// The problem of a form has been given up, the menus are those of a module without one.
void LeaveNoProblem();

// ---- for the forms ----

// Its buttons Solve and Save.
void LeaveModelForm(FormExit exit);

// Its Cancel. A problem that is in a file is kept; any other is given up after a question, or the form stays.
void CancelModelForm();

// The check of Solve and Save for one box: it must hold something.
bool RequireValue(std::string_view text);
