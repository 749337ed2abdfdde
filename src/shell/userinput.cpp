#include "shell/userinput.h"

#include "basic/number.h"
#include "desktop/desktop.h"
#include "shell/module.h"

namespace {

bool IsDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

std::vector<std::int16_t> AskSizes(const SizeDialog& dialog)
{
    return UserInput::Sizes.Ask("frmUserInput", dialog).value_or(std::vector<std::int16_t>{});
}

int AskListItem(const ListDialog& dialog)
{
    const auto item = UserInput::List.Ask("frmuserlistinput", dialog);
    if (!item) desktop::TheScreen().SetIndicator(CurrentModule().Indicator);
    return item.value_or(0);
}

namespace UserInput {

ModalDialog<SizeDialog, std::vector<std::int16_t>> Sizes;
ModalDialog<ListDialog, int> List;

int TakeSizes(const std::vector<std::string>& texts, const BoxPointer& point)
{
    const std::vector<SizeQuestion>& questions = Sizes.Question().Questions;
    std::vector<std::int16_t> taken;
    for (std::size_t i = 0; i < questions.size(); ++i) {
        const SizeQuestion& question = questions[i];
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
    Sizes.Give(std::move(taken));
    return -1;
}

void CancelSizes()
{
    const Answer answer = MsgBox("Are you sure you wish to cancel the current problem?",
                                 "Cancel Current Problem", Icon::Question, Buttons::YesNo);
    if (answer == Answer::Yes) Sizes.Cancel();
}

bool TakeListItem(int item)
{
    if (item == 0) return Refuse(List.Question().EmptyMessage);
    List.Give(item);
    return true;
}

}  // namespace UserInput
