#include "tableau/ErrorMsg.h"

#include "desktop/desktop.h"

namespace {

ErrorLines current;

}  // namespace

void ShowErrorLines(const ErrorLines& lines)
{
    current = lines;
    desktop::TheForms().ShowModal("frmErrorMsg");
}

const ErrorLines& CurrentErrorLines()
{
    return current;
}
