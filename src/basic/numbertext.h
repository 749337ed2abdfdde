// The common check of a text that should be a number: characters "1234567890,.+-", a sign only in first
// place, one decimal point. Commas count for nothing.
#pragma once

#include <string>
#include <string_view>

struct NumberText {
    std::string Text = {};  // without its commas; behind the place where it fails it stands as it was
    bool IsNumber = false;  // a blank text is none
    bool HasPoint = false;
    bool IsBlank = false;

    // Of Text; "Overflow" beyond a double's range.
    [[nodiscard]] double Value() const;
    [[nodiscard]] bool IsWholeNumeral() const { return IsNumber && !HasPoint; }
};

NumberText ReadNumberText(std::string_view text);
