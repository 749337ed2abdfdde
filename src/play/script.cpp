#include "play/script.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace play {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c)
{
    return kBlanks.find(c) != std::string_view::npos;
}

// Takes a line apart.
class LineReader {
public:
    explicit LineReader(std::string_view line) : line_(line) {}

    Step Read()
    {
        while (!AtEnd()) {
            if (IsBlank(line_[at_]))
                ++at_;
            else if (line_[at_] == '"')
                ReadQuoted();
            else
                ReadPlain();
        }
        step_.Source = Source();
        return std::move(step_);
    }

private:
    // Past the last word, or in front of the comment.
    [[nodiscard]] bool AtEnd() const
    {
        return at_ == line_.size() || !step_.Fault.empty() || (line_[at_] == '#' && !IsEntryNumber());
    }

    // `pick NAME #3`: the third entry, not a comment.
    [[nodiscard]] bool IsEntryNumber() const
    {
        const bool digitFollows = at_ + 1 < line_.size() && line_[at_ + 1] >= '0' && line_[at_ + 1] <= '9';
        return digitFollows && step_.Words.size() == 2 && step_.Name() == "pick" && IsBlank(line_[at_ - 1]);
    }

    void ReadPlain()
    {
        const std::size_t begin = at_;
        while (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '"' &&
               (line_[at_] != '#' || at_ == begin))
            ++at_;
        step_.Words.push_back({std::string(line_.substr(begin, at_ - begin)), false});
        if (at_ < line_.size() && line_[at_] == '"') step_.Fault = "a quote in the middle of a word";
    }

    void ReadQuoted()
    {
        std::string text;
        for (++at_; at_ < line_.size(); ++at_) {
            if (line_[at_] != '"') {
                text += line_[at_];
            } else if (at_ + 1 < line_.size() && line_[at_ + 1] == '"') {
                text += line_[++at_];
            } else {
                CloseQuoted(std::move(text));
                return;
            }
        }
        step_.Fault = "the closing quote is missing";
    }

    void CloseQuoted(std::string text)
    {
        ++at_;
        step_.Words.push_back({std::move(text), true});
        if (at_ < line_.size() && !IsBlank(line_[at_]) && line_[at_] != '#')
            step_.Fault = "no blank behind a closing quote";
    }

    [[nodiscard]] std::string Source() const
    {
        std::string_view source = step_.Fault.empty() ? line_.substr(0, at_) : line_;
        const std::size_t first = source.find_first_not_of(kBlanks);
        if (first == std::string_view::npos) return {};
        return std::string(source.substr(first, source.find_last_not_of(kBlanks) - first + 1));
    }

    std::string_view line_;
    std::size_t at_ = 0;
    Step step_;
};

bool TakePrefix(std::string_view& text, std::string_view prefix)
{
    if (!text.starts_with(prefix) || text.size() == prefix.size()) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool IsKeyName(std::string_view name)
{
    constexpr std::array kNames = {"Enter", "Tab",    "Backtab",   "Left",   "Right", "Up",  "Down", "Home",
                                   "End",   "Delete", "Backspace", "Escape", "F1",    "F2",  "F3",   "F4",
                                   "F5",    "F6",     "F7",        "F8",     "F9",    "F10", "F11",  "F12"};
    return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

}  // namespace

std::optional<Step> ReadStep(std::string text, int line)
{
    if (line == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
    if (text.ends_with('\r')) text.pop_back();
    Step step = LineReader(text).Read();
    if (step.Words.empty() && step.Fault.empty()) return std::nullopt;
    step.Line = line;
    return step;
}

std::optional<Step> StepReader::Next()
{
    std::string text;
    while (std::getline(in_, text)) {
        ++line_;
        if (auto step = ReadStep(std::move(text), line_)) return step;
    }
    return std::nullopt;
}

std::optional<KeyStroke> ReadKeyStroke(std::string_view text)
{
    KeyStroke stroke;
    for (bool more = true; more;) {
        more = false;
        if (TakePrefix(text, "Alt+")) stroke.Alt = more = true;
        if (TakePrefix(text, "Ctrl+")) stroke.Control = more = true;
        if (TakePrefix(text, "Shift+")) stroke.Shift = more = true;
    }
    if (!IsKeyName(text) && Characters(text).size() != 1) return std::nullopt;
    stroke.Key = text;
    return stroke;
}

std::optional<int> ReadCount(std::string_view text)
{
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc{} || end != text.data() + text.size() || count < 0) return std::nullopt;
    return count;
}

std::vector<std::string> Characters(std::string_view text)
{
    constexpr auto kContinues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    std::vector<std::string> characters;
    for (const char c : text) {
        if (characters.empty() || !kContinues(c)) characters.emplace_back();
        characters.back() += c;
    }
    return characters;
}

}  // namespace play
