// Round numbers along an axis.
#pragma once

#include <cstdint>
#include <string>

namespace picture {

// The ticks of an axis are the whole multiples First, ..., Last of Step; all have the same decimals.
struct Ticks {
    double Step = 1;
    std::int64_t First = 0;
    std::int64_t Last = 0;
    int Decimals = 0;

    [[nodiscard]] std::int64_t Count() const { return Last - First + 1; }
    [[nodiscard]] double At(std::int64_t multiple) const;
    [[nodiscard]] std::string Text(std::int64_t multiple) const;
};

// The multiples inside of [from, to] of the smallest step out of 1, 2, 2.5 and 5 times a power of ten that
// gives no more than `most` of them (8 by the rule of the pictures, fewer where their texts would touch). An
// axis that counts has whole steps only.
Ticks TicksOf(double from, double to, bool counts, int most = 8);

// A range about both values, from tick to tick; one of no width gets some.
struct Range {
    double From = 0;
    double To = 1;
};
Range RoundedOut(double from, double to, bool counts);

}  // namespace picture
