#include "picture/axis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basic/format.h"

namespace picture {
namespace {

constexpr double kRounding = 1e-9;  // of a step: how far a multiple may lie outside and still belong
constexpr int kMostDecimals = 9;    // further digits are told by an exponent
constexpr double kMostPlain = 1e15;

struct Candidate {
    double Factor;
    int Decimals;  // that the factor itself needs
};
constexpr std::array<Candidate, 4> kFactors{{{1, 0}, {2, 0}, {2.5, 1}, {5, 0}}};

std::int64_t FirstInside(double from, double step)
{
    return static_cast<std::int64_t>(std::ceil(from / step - kRounding));
}

std::int64_t LastInside(double to, double step)
{
    return static_cast<std::int64_t>(std::floor(to / step + kRounding));
}

Ticks WithStep(double from, double to, double step, int decimals)
{
    return {.Step = step,
            .First = FirstInside(from, step),
            .Last = LastInside(to, step),
            .Decimals = std::max(0, decimals)};
}

bool IsWhole(const Candidate& candidate, int exponent)
{
    return exponent - candidate.Decimals >= 0;
}

double Scaled(double factor, int exponent)  // exact for whole steps; no product of rounded tenths
{
    const double power = std::pow(10.0, std::abs(exponent));
    return exponent < 0 ? factor / power : factor * power;
}

Range Widened(double from, double to)
{
    constexpr double kLeast = 1e-9;  // of the values: what is narrower has no digits left for its ticks
    if (to - from > kLeast * std::max(std::abs(from), std::abs(to))) return {from, to};
    const double room = from == 0 ? 1 : std::abs(from) / 2;
    return {from - (from == 0 ? 0 : room), from + room};
}

}  // namespace

double Ticks::At(std::int64_t multiple) const
{
    return static_cast<double>(multiple) * Step;
}

std::string Ticks::Text(std::int64_t multiple) const
{
    const double value = At(multiple);
    if (Decimals > kMostDecimals || std::abs(value) >= kMostPlain) return PlainText(value);
    std::string text =
        Format(value, Decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(Decimals), '0'));
    if (text.starts_with('.')) text.insert(0, "0");
    if (text.starts_with("-.")) text.insert(1, "0");
    return text;
}

Ticks TicksOf(double from, double to, bool counts, int most)
{
    constexpr int kMostExponents = 650;
    const Range range = Widened(from, to);
    const double width = range.To - range.From;
    int exponent = static_cast<int>(std::floor(std::log10(width / std::max(1, most)))) - 1;
    for (int i = 0; i < kMostExponents; ++i, ++exponent)
        for (const Candidate& candidate : kFactors) {
            if (counts && !IsWhole(candidate, exponent)) continue;
            const Ticks ticks = WithStep(range.From, range.To, Scaled(candidate.Factor, exponent),
                                         candidate.Decimals - exponent);
            if (ticks.Count() <= most) return ticks;
        }
    return {};
}

Range RoundedOut(double from, double to, bool counts)
{
    const Range range = Widened(from, to);
    Range rounded = range;
    // A range that grows may need a larger step, and then grows again.
    for (int i = 0; i < 4; ++i) {
        const Ticks ticks = TicksOf(rounded.From, rounded.To, counts);
        rounded = {std::floor(range.From / ticks.Step + kRounding) * ticks.Step,
                   std::ceil(range.To / ticks.Step - kRounding) * ticks.Step};
    }
    return rounded;
}

}  // namespace picture
