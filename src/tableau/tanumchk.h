// The common check of a text that should be a number: characters "1234567890,.+-", commas dropped, a sign
// only in first place, one decimal point.
#pragma once

#include <string_view>

// Reads Session.CheckText (and takes its commas out), sets Session.IsNumber and the two flags below.
void CheckNumber();

extern bool HasDecimalPoint;
extern bool IsBlank;

// The check of a text of one's own; leaves it in Session.CheckText. A blank text is no number.
bool IsNumeric(std::string_view text);
