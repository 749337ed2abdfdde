#include "tableau/ErrorMsg.h"

ModalDialog<ErrorLines, NoAnswer> ErrorNotice{{.TellsSession = false}};

void ShowErrorLines(const ErrorLines& lines)
{
    ErrorNotice.Ask("frmErrorMsg", lines);
}
