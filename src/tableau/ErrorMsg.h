// The notice `frmErrorMsg`: nine lines of text about a value that the system cannot hold.
#pragma once

#include <array>
#include <string>

#include "shell/modaldialog.h"

using ErrorLines = std::array<std::string, 9>;

// Shows the notice; returns when it is closed.
void ShowErrorLines(const ErrorLines& lines);

extern ModalDialog<ErrorLines, NoAnswer> ErrorNotice;
