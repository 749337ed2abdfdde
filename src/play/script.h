// Session scripts as text: one step a line, words parted by blanks, `#` begins a comment.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace play {

struct Word {
    std::string Text;
    bool Quoted = false;  // `input "cancel"` types a text, `input cancel` is a command
};

struct Step {
    int Line = 0;             // counts from 1
    std::string Source;       // the line without its comment and the blanks around it
    std::vector<Word> Words;  // the step's name first
    std::string Fault;        // why the line cannot be read; such a step cannot be done

    [[nodiscard]] const std::string& Name() const { return Words.front().Text; }
    // Arguments count from 1.
    [[nodiscard]] const Word& Argument(int number) const { return Words[static_cast<std::size_t>(number)]; }
};

// The step of a line; nothing where the line is empty or a comment.
std::optional<Step> ReadStep(std::string text, int line);

// Reads a script step by step: one that is thousands of steps long takes no memory.
class StepReader {
public:
    explicit StepReader(std::istream& in) : in_(in) {}

    // Empty lines and comments are passed over; nothing at the end.
    std::optional<Step> Next();

private:
    std::istream& in_;
    int line_ = 0;
};

// One key with the keys that are held down.
struct KeyStroke {
    bool Alt = false;
    bool Control = false;
    bool Shift = false;
    std::string Key;  // "Enter", "F1", ... or one character
};

// Nothing when the text names no key.
std::optional<KeyStroke> ReadKeyStroke(std::string_view text);

// A count from 0; nothing for any other text.
std::optional<int> ReadCount(std::string_view text);

// The characters of a UTF-8 text, one by one.
std::vector<std::string> Characters(std::string_view text);

}  // namespace play
