// The modal entry forms of the modules whose problems have no grid: how a form is left decides what follows.
#pragma once

#include <string_view>

#include "shell/commands.h"

enum class FormExit {
    Closed,   // the problem is kept as it was when the form was opened
    Solve,    // the Solve command follows
    Save,     // the Save command follows
    GivenUp,  // there is no problem any more, the list of models follows
};

// Shows the form, the menus off while it is open, and runs the command that it was left with.
FormExit RunModelForm(std::string_view form, bool problemIsInFile);

// The problem of a form has been given up: menus and status text are those of a module without one.
void LeaveNoProblem();

// The form on the module's problem, until it is left: a problem that is closed is as it was, one that is
// given up is none any more, its `model` being 0, and the list of the models follows. That one is in no file.
template <typename Problem>
void EditInForm(std::string_view form, Problem& problem, int Problem::*model)
{
    const Problem opened = problem;
    const FormExit exit = RunModelForm(form, problem.Saved);
    if (exit == FormExit::Closed) problem = opened;
    if (exit != FormExit::GivenUp) return;
    problem.*model = 0;
    LeaveNoProblem();
    BeginProblem();
}

// From the report back to the model's form.
void ReturnToModelForm();

// ---- for the forms ----

// Its buttons Solve and Save.
void LeaveModelForm(FormExit exit);

// Its Cancel. A problem that is in a file is kept; any other is given up after a question, or the form stays.
void CancelModelForm();

// The check of Solve and Save for one box: it must hold something.
bool RequireValue(std::string_view text);
