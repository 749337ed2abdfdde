// Sentences about the two kinds of pictures, for Describe.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "picture/picture.h"

namespace picture::describing {

using Lines = std::vector<std::string>;

// A coordinate: up to four decimals, no zeros behind the last digit.
std::string Figure(double value);

// "best", "limit", "not taken"; empty for a plain item.
std::string_view InWords(Role role);
bool IsChosen(Role role);

// The text and, in brackets, what it is besides.
std::string WithRole(std::string_view text, Role role);

// Each adds what stands behind the main sentence of the picture: how it is built; the chosen items; what is
// unusual. The table of all items comes from the second pair, behind the notes.
void Tell(const Chart& chart, Lines& lines);
void Tell(const Diagram& diagram, Lines& lines);
void TellAll(const Chart& chart, Lines& lines);
void TellAll(const Diagram& diagram, Lines& lines);

std::string_view KindOf(const Chart& chart);
std::string_view KindOf(const Diagram& diagram);

}  // namespace picture::describing
