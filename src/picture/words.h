// Good English from figures: plurals, lists, chances.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "picture/picture.h"

namespace picture {

// Results first, then limits, changes and cautions; those of a kind as they were said.
void SortByKind(std::vector<Sentence>& sentences);

// "limits 1 and 2" as the beginning of a sentence.
std::string Capital(std::string text);

// A text whose holes ("{units}") are filled, each once.
using Filling = std::pair<std::string, std::string>;
std::string Filled(std::string text, const std::vector<Filling>& fillings);

// "1 unit", "0 units", "no unit", "2.5 units": 1 is singular, 0 and decimals are plural. The plural is the
// singular with an "s" unless it is given.
std::string Counted(int count, std::string_view singular, std::string_view plural = {});
std::string_view OneOrMany(int count, std::string_view one, std::string_view many);

// "A", "A and B", "A, B and C"; "none" for none. Above `most` names the rest is counted: "A, B and 5 more".
std::string Listed(const std::vector<std::string>& names, std::size_t most = 12);

// Figures in columns for fixed pitch: the first column flush left, the others flush right, two blanks between
// them. A row may have fewer cells than others.
std::vector<std::string> Aligned(const std::vector<std::vector<std::string>>& rows);

// "0.5155" as "51.55 %": the point is moved by two, no digit more and none less.
std::string Percent(std::string_view chance);

// The same of a value, "less than 0.01 %" and "more than 99.99 %" where its printed text would say 0 or 100
// and the value is neither.
std::string PercentOf(double value, int decimals);

// A chance as it may be told: "below 0.0001" and "more than 0.9999" where the printed text says 0 or 1 and
// the value does not.
std::string Chance(double value, int decimals);

}  // namespace picture
