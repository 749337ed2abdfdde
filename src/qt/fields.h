// The building blocks of a form: text boxes that are checked when the focus leaves them, options, lists,
// buttons. A form states its fields from top to bottom, which is the tab order; the first text is always the
// control's name.
//
// A box is checked once, before anything else happens: when its check answers false (and has told why), the
// focus stays, the text is selected, and the click or key that would have taken the focus away is without
// effect. The Cancel button, the window's close button, a message box on top and another window do not check.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <functional>
#include <string>
#include <string_view>

namespace qt {

// Whether the text is taken.
using TextCheck = std::function<bool(std::string_view text)>;

// Runs the steps; a run-time error is shown by the common error box, and the form stays. For everything that
// hangs on a signal of a control.
void Trap(const std::function<void()>& steps);

// ---- controls, each with a name ----

// A label of its own; text as it stands, broken into lines where it is too long.
QLabel* AddLabel(QLayout* layout, const char* name, std::string_view text);
// The same outside of a layout, on one line.
QLabel* MakeLabel(const char* name, std::string_view text);
// How a label of MakeLabel or AddLabel stands out: a title larger, a note paler than the other texts.
void ShowAsTitle(QLabel* label);
void ShowAsNote(QLabel* label);
// The column of an entry page, with even margins around it.
QVBoxLayout* MakePage(QWidget* form);

// A label and its text box on one row. A label without a name of its own takes that of its box: `lblMean`
// stands beside `txtMean`.
QLineEdit* AddBox(QFormLayout* rows, const char* name, std::string_view label, TextCheck check = {},
                  const char* labelName = "");
// A box outside of a form layout; `description` is read out to those who do not see the screen.
QLineEdit* MakeBox(const char* name, std::string_view description, TextCheck check = {});

QGroupBox* AddFrame(QLayout* layout, const char* name, std::string_view caption);  // with a QVBoxLayout
QRadioButton* AddOption(QLayout* layout, const char* name, std::string_view caption);
QCheckBox* AddCheck(QLayout* layout, const char* name, std::string_view caption);
QComboBox* AddCombo(QFormLayout* rows, const char* name, std::string_view label, const char* labelName = "");
// A text to read, over several lines.
QPlainTextEdit* AddText(QLayout* layout, const char* name, std::string_view description);
QListWidget* AddList(QLayout* layout, const char* name, std::string_view description);

// The row of buttons at the foot of a form. The first button that is added answers Enter.
QHBoxLayout* AddButtonRow(QLayout* layout);
QPushButton* AddButton(QLayout* row, const char* name, std::string_view caption,
                       std::function<void()> clicked = {});
// The button that the window's close button and Escape stand for; it checks no box and takes no focus when it
// is clicked, so that a form that stays goes on where it was.
QPushButton* AddCancelButton(QLayout* row, const char* name, std::string_view caption,
                             std::function<void()> clicked = {});

// Which values a box takes, where its label does not say so: shown to those who point at it.
constexpr const char* kMoreThanZero = "More than 0";
constexpr const char* kZeroOrMore = "0 or more";

// ---- what a form does with them ----

[[nodiscard]] std::string TextOf(const QLineEdit* box);
void SetTextOf(QLineEdit* box, std::string_view text);
// Gives it the focus, its whole text selected.
void SelectBox(QLineEdit* box);
// Whether the check takes what stands in the box; a missing one takes everything. The box has the focus.
bool IsTaken(QLineEdit* box, const TextCheck& check);
// The same for the box of that number, before a message speaks of it.
template <typename Boxes>
auto PointAt(const Boxes& boxes)
{
    return [&boxes](int index) { SelectBox(boxes.at(static_cast<std::size_t>(index))); };
}
// While it lives the box is seen to be the one that a message speaks of. Null: nothing is marked.
class Mark {
public:
    explicit Mark(QWidget* box);
    ~Mark();
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

private:
    void Set(bool marked);

    QPointer<QLineEdit> box_;
};
// Shows or hides a control with its label.
void ShowRow(QWidget* control, bool visible);
void SetRowLabel(QWidget* control, std::string_view text);
// Only characters that `takes` answers true for can be typed; others are dropped silently.
void FilterKeys(QLineEdit* box, std::function<bool(char)> takes);
void OnlyDigits(QLineEdit* box);
// The next key goes to the control, although the main window has the focus.
[[nodiscard]] bool GetsKeys(const QWidget& control);
// A click on it gives the focus to the main window.
void PassClickToMenu(QWidget* widget);

// ---- leaving ----

// Checks `widget` before the focus leaves it; `mayLeave` has told the user when it answers false.
void CheckOnLeaving(QWidget* widget, std::function<bool()> mayLeave);
// The check of what is being typed now, for what leaves it without taking the focus itself.
bool LeavesTyped();
// Clicking this control checks nothing: it is a way out.
void LeavesUnchecked(QWidget* control);

// The properties behind it.
constexpr const char* kLeavesUnchecked = "leavesUnchecked";
constexpr const char* kCancelsForm = "cancelsForm";
constexpr const char* kMarked = "marked";

}  // namespace qt
