#include "shell/session.h"

SessionRecord Session;

void LeaveDialog(bool cancelled)
{
    Session.DialogCancelled = cancelled;
}
