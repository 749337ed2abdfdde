#include "shell/userinput.h"

#include "basic/number.h"
#include "desktop/desktop.h"
#include "shell/session.h"

namespace {

SizeDialog sizes;
std::vector<std::int16_t> answers;
ListDialog list;
int chosenItem = 0;

bool IsDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::vector<std::int16_t> AskSizes(const SizeDialog& dialog)
{
    sizes = dialog;
    answers.clear();
    desktop::TheForms().ShowModal("frmUserInput");
    return Session.DialogCancelled ? std::vector<std::int16_t>{} : answers;
}

int AskListItem(const ListDialog& dialog)
{
    list = dialog;
    chosenItem = 0;
    desktop::TheForms().ShowModal("frmuserlistinput");
    return Session.DialogCancelled ? 0 : chosenItem;
}

namespace UserInput {

const SizeDialog& CurrentSizes()
{
    return sizes;
}

int TakeSizes(const std::vector<std::string>& texts, const BoxPointer& point)
{
    std::vector<std::int16_t> taken;
    for (std::size_t i = 0; i < sizes.Questions.size(); ++i) {
        const SizeQuestion& question = sizes.Questions[i];
        PointAtBox(point, static_cast<int>(i));
        if (!question.WholeMessage.empty() && !IsDigits(texts[i])) {
            Refuse(question.WholeMessage);
            return static_cast<int>(i);
        }
        const double value = Val(texts[i]);
        if (value < question.Least || value > question.Most) {
            Refuse(question.RangeMessage);
            return static_cast<int>(i);
        }
        taken.push_back(ToInt16(Int(value)));
    }
    answers = taken;
    LeaveDialog(false);
    return -1;
}

bool ConfirmCancel()
{
    const Answer answer = MsgBox("Are you sure you wish to cancel the current problem?",
                                 "Cancel Current Problem", Icon::Question, Buttons::YesNo);
    if (answer == Answer::Yes) LeaveDialog(true);
    return answer == Answer::Yes;
}

const ListDialog& CurrentList()
{
    return list;
}

bool TakeListItem(int item)
{
    if (item == 0) return Refuse(list.EmptyMessage);
    chosenItem = item;
    LeaveDialog(false);
    return true;
}

void CancelList()
{
    LeaveDialog(true);
    desktop::TheScreen().SetIndicator(list.ModuleIndicator);
}

}  // namespace UserInput
