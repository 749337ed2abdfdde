// The dialog that asks for a printer, or for a PDF file in its place.
#pragma once

class QPrinter;

namespace qt {

// False when it is cancelled.
bool AskPrinter(QPrinter& printer);

}  // namespace qt
