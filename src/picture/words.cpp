#include "picture/words.h"

#include <algorithm>
#include <cmath>

#include "basic/format.h"

namespace picture {
namespace {

constexpr std::size_t kChancePlaces = 2;  // from a share to percent

std::string Pattern(int decimals)
{
    return decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

}  // namespace

void SortByKind(std::vector<Sentence>& sentences)
{
    std::stable_sort(sentences.begin(), sentences.end(),
                     [](const Sentence& a, const Sentence& b) { return a.Kind < b.Kind; });
}

std::string Capital(std::string text)
{
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string Filled(std::string text, const std::vector<Filling>& fillings)
{
    for (const auto& [name, value] : fillings) {
        const std::string hole = "{" + name + "}";
        const std::size_t at = text.find(hole);
        if (at != std::string::npos) text.replace(at, hole.size(), value);
    }
    return text;
}

std::string_view OneOrMany(int count, std::string_view one, std::string_view many)
{
    return count == 1 ? one : many;
}

std::string Counted(int count, std::string_view singular, std::string_view plural)
{
    const std::string many = plural.empty() ? std::string(singular) + "s" : std::string(plural);
    return std::to_string(count) + " " + std::string(OneOrMany(count, singular, many));
}

std::string Listed(const std::vector<std::string>& names, std::size_t most)
{
    if (names.empty()) return "none";
    const bool cut = names.size() > most;
    std::vector<std::string> told(names.begin(),
                                  cut ? names.begin() + static_cast<std::ptrdiff_t>(most) : names.end());
    if (cut) told.push_back(std::to_string(names.size() - most) + " more");
    std::string list = told.front();
    for (std::size_t i = 1; i < told.size(); ++i)
        list += (i + 1 == told.size() ? " and " : ", ") + told[i];
    return list;
}

std::vector<std::string> Aligned(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    std::vector<std::string> lines;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string blanks(widths[i] - row[i].size(), ' ');
            line += i == 0 ? row[i] + (row.size() > 1 ? blanks : "") : "  " + blanks + row[i];
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::string Percent(std::string_view chance)
{
    const std::size_t point = chance.find('.');
    std::string whole(chance.substr(0, point));
    std::string places(point == std::string_view::npos ? std::string_view{} : chance.substr(point + 1));
    if (places.size() < kChancePlaces) places.append(kChancePlaces - places.size(), '0');
    whole += places.substr(0, kChancePlaces);
    places.erase(0, kChancePlaces);
    const std::size_t first = whole.find_first_not_of('0');
    whole = first == std::string::npos ? "0" : whole.substr(first);
    return whole + (places.empty() ? "" : "." + places) + " %";
}

std::string Chance(double value, int decimals)
{
    std::string printed = Format(value, Pattern(decimals));
    const double least = std::pow(10.0, -decimals);
    if (value > 0 && printed == Format(0.0, Pattern(decimals)))
        return "below " + Format(least, Pattern(decimals));
    if (value < 1 && printed == Format(1.0, Pattern(decimals)))
        return "more than " + Format(1 - least, Pattern(decimals));
    return printed;
}

std::string PercentOf(double value, int decimals)
{
    std::string chance = Chance(value, decimals);
    const std::size_t digits = chance.find_first_of("0123456789");
    std::string front = chance.substr(0, digits);
    if (front == "below ") front = "less than ";
    return front + Percent(chance.substr(digits));
}

}  // namespace picture
