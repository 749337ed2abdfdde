// A number that may be missing: what a field holds that the user may have left empty.
#pragma once

#include <optional>
#include <string>

class Variant {
public:
    Variant() = default;
    Variant(double value)
        : value_(value) {}  // NOLINT(google-explicit-constructor): numbers go in as they are

    [[nodiscard]] bool IsEmpty() const { return !value_.has_value(); }
    // An empty one counts as 0.
    [[nodiscard]] double Value() const { return value_.value_or(0.0); }
    // Plain number text; an empty one has none.
    [[nodiscard]] std::string Text() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::optional<double> value_;
};
