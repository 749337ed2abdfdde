#include "lp/LpCheck.h"

#include <gmock/gmock.h>

#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LinearProgramChecks : public testing::Test {
protected:
    void SetUp() override
    {
        desktop.screen.indicator = "Linear Programming Module";
        Names().Resize(2, 3);
        Names().SetText(0, 1, "X1");
        Names().SetText(0, 2, "X2");
        Constraints().Resize(3, 5);
        for (const int row : {1, 2}) {
            Constraints().SetText(row, 3, "<");
            Constraints().SetText(row, 4, "10");
        }
    }

    FakeGrid& Names() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(0)"); }
    FakeGrid& Constraints() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(1)"); }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(LinearProgramChecks, EmptyCoefficientsPass)
{
    EXPECT_TRUE(VtLP::Check());
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(desktop.screen.indicator, "Linear Programming Module");
}

TEST_F(LinearProgramChecks, NamesComeBeforeRelationsBeforeRightHandSides)
{
    Constraints().SetText(1, 3, "");
    Constraints().SetText(1, 4, "");
    Names().SetText(0, 2, "");
    EXPECT_FALSE(VtLP::Check());
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused("Variable Name Not Entered.")));
    EXPECT_EQ(Names().Column(), 2);
    EXPECT_EQ(Names().focused, 1);

    Names().SetText(0, 2, "Y");
    EXPECT_FALSE(VtLP::Check());
    EXPECT_EQ(desktop.dialogs.Last(), Refused("Relation Not Entered."));
    EXPECT_EQ(Constraints().Column(), 3);
    EXPECT_EQ(Constraints().focused, 1);

    Constraints().SetText(1, 3, "=");
    EXPECT_FALSE(VtLP::Check());
    EXPECT_EQ(desktop.dialogs.Last(), Refused("RHS Value Not Entered."));
    EXPECT_EQ(Constraints().Row(), 1);
    EXPECT_EQ(Constraints().Column(), 4);
    EXPECT_EQ(Constraints().focused, 2);
    EXPECT_EQ(desktop.screen.indicator, "Linear Programming Module");
}

TEST_F(LinearProgramChecks, TheFirstNameIsCheckedLikeTheOthers)
{
    Names().SetText(0, 1, "");
    EXPECT_FALSE(VtLP::Check());
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused("Variable Name Not Entered.")));
    EXPECT_EQ(Names().Column(), 1);
}
