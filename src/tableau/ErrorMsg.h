// The notice `frmErrorMsg`: nine lines of text about a value that the system cannot hold.
#pragma once

#include <array>
#include <string>

using ErrorLines = std::array<std::string, 9>;

// Shows the notice; returns when it is closed.
void ShowErrorLines(const ErrorLines& lines);

// The lines that are shown now.
const ErrorLines& CurrentErrorLines();
