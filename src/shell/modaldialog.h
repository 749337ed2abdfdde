// The one way to ask with a modal form of the program. The logic asks; the form, which comes up meanwhile,
// reads the question and is left with an answer, or cancelled:
//
//     ModalDialog<SizeDialog, std::vector<std::int16_t>> Sizes;
//
//     const auto counts = Sizes.Ask("frmUserInput", {...});  // the logic; nothing: cancelled
//     Sizes.Question()                                       // the form, when it is made or shown
//     Sizes.Give(counts), Sizes.Cancel()                     // its buttons; the form closes
//
// Each kind of question is one such object, which stands where the question is asked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

struct DialogHabits {
    bool StaysLoaded = false;  // the form is hidden only, and comes up again as it was left
    bool TellsSession = true;  // it leaves DialogCancelled behind; notices and the forms of models do not
};

// What does not depend on the question.
class ModalDialogForm {
protected:
    explicit ModalDialogForm(DialogHabits habits) : habits_(habits) {}

    void Show(std::string_view form);  // returns when the form has been left
    void Leave(bool cancelled) const;  // nothing else writes DialogCancelled

private:
    DialogHabits habits_;
    std::string form_;
};

struct NoQuestion {};
struct NoAnswer {};

template <typename Asked, typename Answered>
class ModalDialog : private ModalDialogForm {
public:
    explicit ModalDialog(DialogHabits habits = {}) : ModalDialogForm(habits) {}

    std::optional<Answered> Ask(std::string_view form, Asked question = {})
    {
        question_ = std::move(question);
        answer_.reset();
        Show(form);
        return std::exchange(answer_, std::nullopt);
    }

    [[nodiscard]] const Asked& Question() const { return question_; }

    void Give(Answered answer)
    {
        answer_ = std::move(answer);
        Leave(false);
    }

    void Cancel()
    {
        answer_.reset();
        Leave(true);
    }

private:
    Asked question_ = {};
    std::optional<Answered> answer_;
};
