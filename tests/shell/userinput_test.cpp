#include "shell/userinput.h"

#include <gmock/gmock.h>

#include "shell/session.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const SizeDialog kOneToTen{
    .Caption = " Size",
    .Questions = {{.Question = "How many?", .Least = 1, .Most = 10, .RangeMessage = "1 to 10"}}};

const SizeDialog kTwo{.Caption = " Sizes",
                      .Questions = {{.Question = "Rows?",
                                     .Least = 2,
                                     .Most = 20,
                                     .RangeMessage = "2 to 20",
                                     .WholeMessage = "whole rows"},
                                    {.Question = "Columns?",
                                     .Least = 1,
                                     .Most = 40,
                                     .RangeMessage = "1 to 40",
                                     .WholeMessage = "whole columns"}}};

class UserInputs : public testing::Test {
protected:
    std::vector<std::int16_t> Ask(const SizeDialog& dialog, const std::vector<std::string>& texts)
    {
        desktop.forms.onModal["frmUserInput"] = [this, texts] {
            int pointed = -1;
            refused = UserInput::TakeSizes(texts, [&pointed](int box) { pointed = box; });
            EXPECT_EQ(pointed, refused < 0 ? static_cast<int>(texts.size()) - 1 : refused);
        };
        return AskSizes(dialog);
    }

    int refused = -1;
    FakeDesktop desktop;
};

}  // namespace

TEST_F(UserInputs, BothEndsOfTheRangeAreTaken)
{
    EXPECT_THAT(Ask(kOneToTen, {"1"}), ElementsAre(1));
    EXPECT_THAT(Ask(kOneToTen, {"10"}), ElementsAre(10));
    EXPECT_THAT(Ask(kTwo, {"20", "40"}), ElementsAre(20, 40));
    EXPECT_EQ(refused, -1);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(UserInputs, BeyondTheRangeTheMessageOfTheQuestionComes)
{
    for (const char* text : {"0", "11", "99999999999999999999"}) {
        EXPECT_THAT(Ask(kOneToTen, {text}), IsEmpty());
        EXPECT_EQ(desktop.dialogs.Last(), Refused("1 to 10"));
        EXPECT_EQ(refused, 0);
    }
    Ask(kTwo, {"20", "41"});
    EXPECT_EQ(desktop.dialogs.Last(), Refused("1 to 40"));
    EXPECT_EQ(refused, 1);
}

TEST_F(UserInputs, AnEmptyFieldFailsLikeZero)
{
    Ask(kOneToTen, {""});
    EXPECT_EQ(desktop.dialogs.Last(), Refused("1 to 10"));
}

TEST_F(UserInputs, WhatIsNotWholeHasAMessageOfItsOwn)
{
    Ask(kTwo, {"2.5", "3"});
    EXPECT_EQ(desktop.dialogs.Last(), Refused("whole rows"));
    Ask(kTwo, {"2", "x"});
    EXPECT_EQ(desktop.dialogs.Last(), Refused("whole columns"));
    Ask(kTwo, {"", "3"});
    EXPECT_EQ(desktop.dialogs.Last(), Refused("whole rows"));
}

TEST_F(UserInputs, CancelAsksFirst)
{
    desktop.dialogs.answers = {Answer::No, Answer::Yes};
    Session.DialogCancelled = false;
    UserInput::CancelSizes();
    EXPECT_FALSE(Session.DialogCancelled);
    UserInput::CancelSizes();
    EXPECT_TRUE(Session.DialogCancelled);
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"Are you sure you wish to cancel the current problem?", "Cancel Current Problem",
                            Icon::Question, Buttons::YesNo}));
}

TEST_F(UserInputs, AListNeedsAChoice)
{
    const ListDialog dialog{
        .Caption = " Models", .Items = {"A", "B"}, .EmptyMessage = "You Must Select an Inventory Model"};
    desktop.forms.onModal["frmuserlistinput"] = [] {
        EXPECT_FALSE(UserInput::TakeListItem(0));
        EXPECT_TRUE(UserInput::TakeListItem(2));
    };
    EXPECT_EQ(AskListItem(dialog), 2);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("You Must Select an Inventory Model"));
}

TEST_F(UserInputs, ACancelledListPutsTheIndicatorBack)
{
    Session.CurrentModule = 9;
    desktop.screen.indicator = "something else";
    desktop.forms.onModal["frmuserlistinput"] = [] { UserInput::List.Cancel(); };
    EXPECT_EQ(AskListItem({.Items = {"A"}}), 0);
    EXPECT_EQ(desktop.screen.indicator, "Waiting Lines Module");
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}
