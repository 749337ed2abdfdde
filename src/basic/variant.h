// A number that may be missing: what a field holds that the user may have left empty.
#pragma once

#include <cstdint>
#include <string>

class Variant {
public:
    Variant() = default;
    Variant(double value)
        : value_(value), filled_(1) {}  // NOLINT(google-explicit-constructor): numbers go in as they are

    [[nodiscard]] bool IsEmpty() const { return filled_ == 0; }
    // An empty one counts as 0.
    [[nodiscard]] double Value() const { return value_; }
    // Plain number text; an empty one has none.
    [[nodiscard]] std::string Text() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    double value_ = 0;
    std::int64_t filled_ = 0;  // as wide as the value: a flag of one byte makes each copy wait for its store
};
