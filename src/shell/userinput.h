// The modal dialogs that ask for the size of a problem or the choice of a model, seen from the logic.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desktop/dialogs.h"
#include "shell/modaldialog.h"

// One question of `frmUserInput`, answered by a whole number.
struct SizeQuestion {
    std::string Question = {};
    int Least = 1;
    int Most = 1;
    std::string RangeMessage = {};
    // For a text with a fraction or that is no number; empty: such a text is out of range.
    std::string WholeMessage = {};
    std::string Note = {};  // a line below the question; may be empty
};

struct SizeDialog {
    std::string Caption = {};
    std::vector<SizeQuestion> Questions = {};  // one or two
};

// Shows `frmUserInput`; the answers are in the order of the questions, empty when the dialog was cancelled
// (DialogCancelled tells as well).
std::vector<std::int16_t> AskSizes(const SizeDialog& dialog);

// A list of `frmuserlistinput`.
struct ListDialog {
    std::string Caption = {};
    std::vector<std::string> Items = {};
    std::string EmptyMessage = {};  // nothing chosen
};

// Shows the list; 1 for the first item, 0 when it was cancelled. The status text is the module's own then.
int AskListItem(const ListDialog& dialog);

// For the two forms.
namespace UserInput {

extern ModalDialog<SizeDialog, std::vector<std::int16_t>> Sizes;
// OK: which answer is refused, after its message (0 or 1); -1: both are given.
int TakeSizes(const std::vector<std::string>& texts, const BoxPointer& point = {});
void CancelSizes();  // asks first

extern ModalDialog<ListDialog, int> List;
bool TakeListItem(int item);  // 0: nothing chosen, which is refused

}  // namespace UserInput
