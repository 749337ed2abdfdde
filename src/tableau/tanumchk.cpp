#include "tableau/tanumchk.h"

#include "shell/session.h"

NumberText CheckNumber(std::string_view text, BehindFailure behind)
{
    NumberText number = ReadNumberText(text);
    Session.CheckText = number.Text;
    Session.IsNumber = number.IsNumber || behind == BehindFailure::Passing ? "YES" : "NO";
    return number;
}

void NoteEmptyText()
{
    Session.CheckText.clear();
}
