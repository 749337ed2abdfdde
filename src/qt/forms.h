// The screens of the program on Qt: which forms there are, and where each of them stands.
//
// A form is a widget whose constructor does what the form does when it is loaded; each control's objectName
// is its name. All forms are named in one table, RegisterForms (src/forms.cpp).
#pragma once

#include <QDialog>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/forms.h"

namespace qt {

enum class Place {
    Main,     // the main window; it has a QMdiArea, in which the next three stand
    Filling,  // over the whole area, without a frame: the problem forms
    Framed,   // in front of those, with a title bar: the choice of a module, the project's activities
    Report,   // likewise over the whole area, and the user may close it
    Modal,    // a dialog of its own, centred on the main window
};

// What happens to a form from outside. The bases below have it; any other widget may take it on.
class FormEvents {
public:
    virtual ~FormEvents() = default;
    // The form is being unloaded; it is still whole.
    virtual void Unloading() {}
    // The window's close button or Escape. Clicks the form's Cancel button; a form without one is unloaded.
    virtual void ClosedByHand() = 0;
};

// A form inside the main window. Its focus proxy gets the keys that come while only the main window has the
// focus.
class ChildForm : public QWidget, public FormEvents {
    Q_OBJECT

public:
    explicit ChildForm(QWidget* parent);
    void ClosedByHand() override;

protected:
    void closeEvent(QCloseEvent* event) override;
};

// A dialog of the program.
class ModalForm : public QDialog, public FormEvents {
    Q_OBJECT

public:
    explicit ModalForm(QWidget* parent);
    void ClosedByHand() override;
    void reject() override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
};

class QtForms : public ::Forms {
public:
    QtForms();
    ~QtForms() override;
    QtForms(const QtForms&) = delete;
    QtForms& operator=(const QtForms&) = delete;

    using Maker = std::function<QWidget*(QWidget* parent)>;
    void Add(std::string_view name, Place place, Maker make);

    // F is made with F(QWidget* parent).
    template <typename F>
    void Add(std::string_view name, Place place)
    {
        Add(name, place, [](QWidget* parent) -> QWidget* { return new F(parent); });
    }

    void Load(std::string_view form) override;
    void Unload(std::string_view form) override;
    [[nodiscard]] bool IsLoaded(std::string_view form) const override;
    void Show(std::string_view form) override;
    void Hide(std::string_view form) override;
    void ShowModal(std::string_view form) override;
    Form& Loaded(std::string_view form) override;
    void FocusMenu() override;
    void FocusForm(std::string_view form) override;

    // The widget of a form that is loaded, else null.
    [[nodiscard]] QWidget* Find(std::string_view form) const;
    // Of all forms in the table, for a walk that must miss none.
    [[nodiscard]] std::vector<std::string> Names() const;
    // The form of place Main, null before it is loaded.
    [[nodiscard]] QWidget* MainWindow() const;

private:
    struct Entry;
    class Area;

    [[nodiscard]] Entry& EntryOf(std::string_view form) const;
    Entry& LoadedEntry(std::string_view form);
    std::map<std::string, std::unique_ptr<Entry>, std::less<>> entries_;
    std::set<QWidget*> running_;  // the dialogs whose ShowModal has not yet returned
    std::unique_ptr<Area> area_;
};

// The control gets the keys that come to the main window while its form is in front.
void LeadKeysTo(QWidget* control);

}  // namespace qt
