// The screens as the logic sees them. A form is known by its name ("frmProblem") and its controls by theirs
// ("lblTitle", "txtAnswer(0)").
//
// A form that is loaded stays so until it is unloaded; a hidden one keeps its contents.
#pragma once

#include <string_view>

#include "desktop/grid.h"

class Form {
public:
    virtual ~Form() = default;
    virtual void SetCaption(std::string_view text) = 0;
    virtual void SetText(std::string_view control, std::string_view text) = 0;
    virtual void SetVisible(std::string_view control, bool visible) = 0;
    virtual void SetFocus(std::string_view control) = 0;
    virtual Grid& GridOf(std::string_view control) = 0;
    // Commits what is being typed into a cell of any of its grids. False: it was refused, and told; the cell
    // has the focus.
    virtual bool FinishEdit() = 0;
    // What happens to the cells and their record between the two is undone in one step.
    virtual void BeginStep() = 0;
    virtual void EndStep() = 0;
};

class Forms {
public:
    virtual ~Forms() = default;
    // Makes the form; nothing happens when it is loaded already.
    virtual void Load(std::string_view form) = 0;
    virtual void Unload(std::string_view form) = 0;  // nothing happens when it is not loaded
    [[nodiscard]] virtual bool IsLoaded(std::string_view form) const = 0;
    // These four load the form first when it is not loaded.
    virtual void Show(std::string_view form) = 0;
    virtual void Hide(std::string_view form) = 0;
    virtual void ShowModal(std::string_view form) = 0;  // returns when the form is hidden or unloaded
    virtual Form& Loaded(std::string_view form) = 0;
    // Gives the focus to the main window, so that the menu keys work.
    virtual void FocusMenu() = 0;
    // Gives it to the control that takes the form's keys, the grid in use for example; a form that has none,
    // or is not loaded, leaves it to the main window.
    virtual void FocusForm(std::string_view form) = 0;
};
