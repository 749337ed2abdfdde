// The text in which a stored number stands in an entry field or a cell.
#pragma once

#include <string>

#include "basic/variant.h"

// The digits of the plain number text, never with an exponent: the check of a field takes no "E", and what a
// field shows must pass when it is checked again. An empty one has no text.
std::string EntryText(const Variant& value);
