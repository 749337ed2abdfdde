#include "support/fake_desktop.h"

#include <ostream>
#include <utility>

namespace {

// Takes the next step of the user, or the one that stands for an empty list.
template <typename T>
T Next(std::deque<T>& steps, T otherwise)
{
    if (steps.empty()) return otherwise;
    T step = std::move(steps.front());
    steps.pop_front();
    return step;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ShownMessage& message)
{
    return out << '"' << message.Title << "\" \"" << message.Text << "\" icon "
               << static_cast<int>(message.icon) << " buttons " << static_cast<int>(message.buttons);
}

ShownMessage Refused(std::string_view text)
{
    return {std::string(text), "Data Input Error", Icon::Critical, Buttons::OK};
}

Answer FakeDialogs::MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons)
{
    messages.push_back({std::string(text), std::string(title), icon, buttons});
    return Next(answers, buttons == Buttons::YesNo ? Answer::Yes : Answer::OK);
}

std::string FakeDialogs::InputBox(std::string_view prompt, std::string_view title)
{
    prompts.emplace_back(prompt, title);
    return Next(inputs, std::string());
}

std::optional<std::string> FakeDialogs::AskFile(const FileQuestion& question)
{
    fileQuestions.push_back(question);
    return Next(files, std::optional<std::string>());
}

void FakeScreen::SetPointer(Pointer shape)
{
    pointer = shape;
    pointers.push_back(shape);
}

void FakeScreen::SetIndicator(std::string_view text)
{
    indicator = text;
    indicators.emplace_back(text);
}

void FakeGrid::Resize(int rows, int columns, int fixedRows, int fixedColumns)
{
    if (rows < 0 || columns < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    rows_ = rows;
    columns_ = columns;
    cells_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), {});
    const bool hasFirstCell = rows > fixedRows && columns > fixedColumns && rows > 1 && columns > 1;
    row_ = column_ = hasFirstCell ? 1 : 0;
}

std::size_t FakeGrid::Index(int row, int column) const
{
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_) Raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
           static_cast<std::size_t>(column);
}

std::string FakeGrid::Text(int row, int column) const
{
    return cells_[Index(row, column)];
}

void FakeGrid::SetText(int row, int column, std::string_view text)
{
    cells_[Index(row, column)] = text;
}

void FakeGrid::Select(int row, int column)
{
    static_cast<void>(Index(row, column));
    row_ = row;
    column_ = column;
}

void FakeGrid::Reject(int row, int column)
{
    Select(row, column);
    SetText(row, column, "");
    edited_ = true;
}

void FakeGrid::Type(int row, int column, std::string_view text)
{
    Select(row, column);
    SetText(row, column, text);
    edited_ = true;
}

bool FakeGrid::FinishEdit()
{
    if (!std::exchange(edited_, false) || commit(row_, column_, Text(row_, column_))) return true;
    SetText(row_, column_, "");
    return false;
}

std::vector<std::string> FakeGrid::RowTexts(int row) const
{
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(columns_));
    for (int column = 0; column < columns_; ++column)
        texts.push_back(Text(row, column));
    return texts;
}

std::string FakeForm::Text(const std::string& control) const
{
    const auto found = texts.find(control);
    return found == texts.end() ? std::string() : found->second;
}

bool FakeForm::FinishEdit()
{
    for (auto& [name, grid] : grids)
        if (!grid.FinishEdit()) {
            grid.SetFocus();
            return false;
        }
    return true;
}

void FakeForm::SetText(std::string_view control, std::string_view text)
{
    texts[std::string(control)] = text;
}

void FakeForm::SetVisible(std::string_view control, bool isVisible)
{
    visible[std::string(control)] = isVisible;
}

bool FakeForms::IsLoaded(std::string_view form) const
{
    return forms_.contains(std::string(form));
}

void FakeForms::ShowModal(std::string_view form)
{
    modals.emplace_back(form);
    Loaded(form).shown = true;
    if (const auto user = onModal.find(std::string(form)); user != onModal.end()) user->second();
    if (IsLoaded(form)) Loaded(form).shown = false;
}

std::vector<std::string> FakePrinter::Lines() const
{
    std::vector<std::string> lines;
    for (const auto& page : pages)
        lines.insert(lines.end(), page.begin(), page.end());
    return lines;
}

void FakePrinter::Begin(std::string_view fontName, int size)
{
    font = fontName;
    pointSize = size;
    open_.assign(1, {});
}

void FakePrinter::EndDoc()
{
    if (failure) Raise(*failure);
    pages.insert(pages.end(), open_.begin(), open_.end());
    open_.clear();
}
