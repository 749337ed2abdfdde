// A desktop for tests: it records what the program shows and answers from lists that the test fills.
//
//     FakeDesktop desktop;                      // installs itself
//     desktop.dialogs.answers = {Answer::Yes};  // the default is the first button: OK or Yes
//     ...
//     EXPECT_EQ(desktop.dialogs.Last().Text, "...");
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/error.h"
#include "desktop/desktop.h"

struct ShownMessage {
    std::string Text;
    std::string Title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::OK;

    friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

std::ostream& operator<<(std::ostream& out, const ShownMessage& message);

// A box of a refused entry.
ShownMessage Refused(std::string_view text);

class FakeDialogs : public Dialogs {
public:
    std::vector<ShownMessage> messages;
    std::vector<std::pair<std::string, std::string>> prompts;  // of the input box: text, title
    std::vector<FileQuestion> fileQuestions;
    int beeps = 0;
    std::vector<std::string> guidePages;

    // What the user does, first to last. An empty list answers OK or Yes, and cancels inputs and files.
    std::deque<Answer> answers;
    std::deque<std::string> inputs;
    std::deque<std::optional<std::string>> files;

    // The last message; an empty one when none was shown.
    [[nodiscard]] ShownMessage Last() const { return messages.empty() ? ShownMessage() : messages.back(); }

    Answer MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
    std::string InputBox(std::string_view prompt, std::string_view title) override;
    std::optional<std::string> AskFile(const FileQuestion& question) override;
    void Beep() override { ++beeps; }
    void OpenGuide(std::string_view page) override { guidePages.emplace_back(page); }
};

class FakeScreen : public Screen {
public:
    Pointer pointer = Pointer::Normal;
    std::vector<Pointer> pointers;  // all that were set
    std::string indicator;
    std::vector<std::string> indicators;  // all that were set
    bool escapePressed = false;

    void SetPointer(Pointer shape) override;
    [[nodiscard]] std::string Indicator() const override { return indicator; }
    void SetIndicator(std::string_view text) override;
    void Refresh() override {}
    bool Interrupted() override { return escapePressed; }
};

class FakeGrid : public Grid {
public:
    void Resize(int rows, int columns, int fixedRows = 1, int fixedColumns = 1) override;
    [[nodiscard]] int Rows() const override { return rows_; }
    [[nodiscard]] int Columns() const override { return columns_; }
    [[nodiscard]] std::string Text(int row, int column) const override;
    void SetText(int row, int column, std::string_view text) override;
    [[nodiscard]] int Row() const override { return row_; }
    [[nodiscard]] int Column() const override { return column_; }
    bool FinishEdit() override;
    void Reject(int row, int column) override;
    void Select(int row, int column) override;
    void SetColumnWidth(int column, int characters) override { widths[column] = characters; }
    void SetFocus() override { ++focused; }

    // What the user does: goes to a cell and gives it another text, without leaving it. An empty text is
    // Delete.
    void Type(int row, int column, std::string_view text);
    // Stores such a text, or refuses it; a refused cell is blanked.
    std::function<bool(int row, int column, std::string_view text)> commit;

    // The cells of a row, fixed ones included.
    [[nodiscard]] std::vector<std::string> RowTexts(int row) const;

    std::map<int, int> widths;
    int focused = 0;  // how often it got the focus

private:
    [[nodiscard]] std::size_t Index(int row, int column) const;

    int rows_ = 0;
    int columns_ = 0;
    int row_ = 0;
    int column_ = 0;
    bool edited_ = false;
    std::vector<std::string> cells_;
};

class FakeForm : public Form {
public:
    std::string caption;
    std::map<std::string, std::string> texts;
    std::map<std::string, bool> visible;
    std::string focus;
    std::map<std::string, FakeGrid> grids;
    bool shown = false;
    int steps = 0;  // begun, of its history

    // A control without a text has the empty one.
    [[nodiscard]] std::string Text(const std::string& control) const;

    void SetCaption(std::string_view text) override { caption = text; }
    void SetText(std::string_view control, std::string_view text) override;
    void SetVisible(std::string_view control, bool isVisible) override;
    void SetFocus(std::string_view control) override { focus = control; }
    FakeGrid& GridOf(std::string_view control) override { return grids[std::string(control)]; }
    bool FinishEdit() override;
    void BeginStep() override { ++steps; }
    void EndStep() override {}
};

class FakeForms : public Forms {
public:
    // What the user does on a modal form, by its name; without it the form is left at once.
    std::map<std::string, std::function<void()>> onModal;
    std::vector<std::string> modals;  // shown so far
    int menuFocused = 0;
    std::string focusedForm;  // the last one that got the focus

    void Load(std::string_view form) override { Loaded(form); }
    void Unload(std::string_view form) override { forms_.erase(std::string(form)); }
    [[nodiscard]] bool IsLoaded(std::string_view form) const override;
    void Show(std::string_view form) override { Loaded(form).shown = true; }
    void Hide(std::string_view form) override { Loaded(form).shown = false; }
    void ShowModal(std::string_view form) override;
    FakeForm& Loaded(std::string_view form) override { return forms_[std::string(form)]; }
    void FocusMenu() override { ++menuFocused; }
    void FocusForm(std::string_view form) override { focusedForm = form; }

private:
    std::map<std::string, FakeForm> forms_;
};

class FakePrinter : public Printer {
public:
    bool accepts = true;                          // the printer dialog's OK
    std::optional<ErrorNumber> failure;           // raised by EndDoc
    std::vector<std::vector<std::string>> pages;  // sent so far; pages end where the program asked
    std::string font;
    int pointSize = 0;

    // The lines of all pages.
    [[nodiscard]] std::vector<std::string> Lines() const;

    bool Ask() override { return accepts; }
    void Begin(std::string_view fontName, int size) override;
    void Line(std::string_view text) override { open_.back().emplace_back(text); }
    void NewPage() override { open_.emplace_back(); }
    void EndDoc() override;

private:
    std::vector<std::vector<std::string>> open_;
};

class FakeDesktop {
public:
    FakeDesktop() { desktop::Install({&dialogs, &screen, &forms, &printer}); }
    ~FakeDesktop() { desktop::Install({}); }
    FakeDesktop(const FakeDesktop&) = delete;
    FakeDesktop& operator=(const FakeDesktop&) = delete;

    FakeDialogs dialogs;
    FakeScreen screen;
    FakeForms forms;
    FakePrinter printer;
};
