#include "shell/modaldialog.h"

#include <gtest/gtest.h>

#include "shell/session.h"
#include "support/fake_desktop.h"

namespace {

class ModalDialogs : public testing::Test {
protected:
    ModalDialogs() { Session = {}; }

    FakeDesktop desktop;
    ModalDialog<std::string, int> dialog;
};

TEST_F(ModalDialogs, TheFormReadsTheQuestionAndItsAnswerComesBack)
{
    Session.DialogCancelled = true;
    desktop.forms.onModal["frmIP"] = [this] {
        EXPECT_EQ(dialog.Question(), "how many");
        dialog.Give(7);
        EXPECT_FALSE(desktop.forms.IsLoaded("frmIP"));
    };
    EXPECT_EQ(dialog.Ask("frmIP", "how many"), 7);
    EXPECT_FALSE(Session.DialogCancelled);
}

TEST_F(ModalDialogs, ACancelledOneHasNoAnswer)
{
    desktop.forms.onModal["frmIP"] = [this] { dialog.Cancel(); };
    EXPECT_EQ(dialog.Ask("frmIP"), std::nullopt);
    EXPECT_TRUE(Session.DialogCancelled);
    EXPECT_FALSE(desktop.forms.IsLoaded("frmIP"));
}

TEST_F(ModalDialogs, AnAnswerIsGoneWithTheNextQuestion)
{
    desktop.forms.onModal["frmIP"] = [this] { dialog.Give(7); };
    EXPECT_EQ(dialog.Ask("frmIP"), 7);
    desktop.forms.onModal["frmIP"] = [] {};  // left in no way of its own
    EXPECT_EQ(dialog.Ask("frmIP"), std::nullopt);
}

TEST_F(ModalDialogs, AFormThatStaysLoadedIsHiddenOnly)
{
    ModalDialog<NoQuestion, NoAnswer> staying{{.StaysLoaded = true}};
    desktop.forms.onModal["frmTransObj"] = [this, &staying] {
        EXPECT_TRUE(desktop.forms.Loaded("frmTransObj").shown);
        staying.Give({});
        EXPECT_FALSE(desktop.forms.Loaded("frmTransObj").shown);
    };
    EXPECT_TRUE(staying.Ask("frmTransObj").has_value());
    EXPECT_TRUE(desktop.forms.IsLoaded("frmTransObj"));
    EXPECT_FALSE(desktop.forms.Loaded("frmTransObj").shown);
}

TEST_F(ModalDialogs, ANoticeLeavesTheSessionAlone)
{
    ModalDialog<NoQuestion, NoAnswer> notice{{.TellsSession = false}};
    Session.DialogCancelled = true;
    desktop.forms.onModal["frmErrorMsg"] = [&notice] { notice.Give({}); };
    EXPECT_TRUE(notice.Ask("frmErrorMsg").has_value());
    EXPECT_TRUE(Session.DialogCancelled);
}

}  // namespace
