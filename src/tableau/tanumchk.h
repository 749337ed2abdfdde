// The check of a typed number, with its trace in the session record.
#pragma once

#include <string_view>

#include "basic/numbertext.h"

// What the session's IsNumber says behind a text that is no number: linear programs and Markov processes
// leave it passing.
enum class BehindFailure { No, Passing };

// Leaves the text without its commas in Session.CheckText and the verdict in Session.IsNumber.
NumberText CheckNumber(std::string_view text, BehindFailure behind = BehindFailure::No);

// An empty cell that is accepted without a check: the text is noted, the last verdict stays.
void NoteEmptyText();
