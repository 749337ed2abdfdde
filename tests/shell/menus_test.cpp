#include "shell/menus.h"

#include <gmock/gmock.h>

#include "basic/error.h"

using testing::ElementsAre;

namespace {

std::vector<std::string> Names(const MenuTable& menus)
{
    std::vector<std::string> names;
    for (const MenuItem& item : menus.Items())
        names.push_back(item.Name);
    return names;
}

}  // namespace

TEST(Menus, StandAsTheWindowFirstAppears)
{
    const MenuTable menus;
    struct Row {
        const char* name;
        const char* caption;
        bool enabled;
    };
    for (const Row& row :
         {Row{"mnuFile", "&File", true}, Row{"mnuFileNew", "&New...", false},
          Row{"mnuFileOpen", "&Open...", false}, Row{"mnuFileSave", "&Save Problem...", false},
          Row{"mnuFileChangeModules", "Change &Modules", false}, Row{"mnuFileExit", "E&xit", true},
          Row{"mnudispedit", "&Edit", false}, Row{"mnudispeditsubs(0)", "", true},
          Row{"mnudispeditsubs(2)", "", true}, Row{"mnuSolution", "&Solution", false},
          Row{"mnuSolutionSolve", "&Solve", true}, Row{"mnuSolutionPrinttoPrinter", "&Print", false},
          Row{"mnuSolutionPrinttoText", "Save &As Text File", false}}) {
        EXPECT_EQ(menus.Item(row.name).Caption, row.caption);
        EXPECT_EQ(menus.Item(row.name).Enabled, row.enabled) << row.name;
        EXPECT_FALSE(menus.Item(row.name).Separator);
    }
    EXPECT_TRUE(menus.Item("mnudispeditsubs(1)").Separator);
    EXPECT_THROW((void)menus.Item("mnudispeditsubs(3)"), RuntimeError);
}

TEST(Menus, CreatedItemsStandInOrder)
{
    MenuTable menus;
    menus.SetEditItem(3, "three");
    menus.SetEditItem(4, "four");
    menus.SetLowerItem(0, "first");
    menus.SetLowerItem(1, "second");
    const auto names = Names(menus);
    EXPECT_THAT(std::vector<std::string>(names.begin() + 10, names.begin() + 18),
                ElementsAre("mnudispeditsubs(0)", "mnudispeditsubs(1)", "mnudispeditsubs(2)",
                            "mnudispeditsubslower(0)", "mnudispeditsubslower(1)", "mnudispeditsubs(3)",
                            "mnudispeditsubs(4)", "mnuSolution"));
    EXPECT_EQ(menus.Item("mnudispeditsubslower(1)").Parent, "mnudispeditsubs(2)");
}

TEST(Menus, TheEndOfAProblemFormTakesTheCreatedItemsAwayAndHidesTheOthers)
{
    MenuTable menus;
    menus.SetLowerItem(0, "lower");
    const auto before = Names(menus);
    for (int index = 3; index <= 7; ++index)
        menus.SetEditItem(index, "item");
    menus.RemoveEditItems();
    EXPECT_EQ(Names(menus), before);
    EXPECT_FALSE(menus.Item("mnudispeditsubslower(0)").Visible);
    EXPECT_FALSE(menus.Item("mnudispeditsubs(1)").Visible);
    EXPECT_FALSE(menus.Item("mnudispeditsubs(2)").Visible);
    EXPECT_TRUE(menus.Item("mnudispeditsubs(0)").Visible);
}

TEST(Menus, ItemsThatDoNotExistArePassedOver)
{
    MenuTable menus;
    menus.SetEditItem(3, "three");
    menus.EnableEditItems(3, 7, false);
    EXPECT_FALSE(menus.Item("mnudispeditsubs(3)").Enabled);
}

TEST(Menus, OfEditItemsAreSwitchedFromTheFirstToTheLast)
{
    MenuTable menus;
    for (int index = 3; index <= 7; ++index)
        menus.SetEditItem(index, "item");
    menus.EnableEditItems(4, 6, false);
    EXPECT_TRUE(menus.Item("mnudispeditsubs(3)").Enabled);
    EXPECT_FALSE(menus.Item("mnudispeditsubs(4)").Enabled);
    EXPECT_FALSE(menus.Item("mnudispeditsubs(6)").Enabled);
    EXPECT_TRUE(menus.Item("mnudispeditsubs(7)").Enabled);
}

TEST(Menus, AnItemThatIsGivenAgainComesBackWithItsNewCaption)
{
    MenuTable menus;
    menus.SetLowerItem(0, "old");
    const auto before = Names(menus);
    menus.RemoveEditItems();
    menus.SetEnabled("mnudispeditsubslower(0)", false);
    menus.SetLowerItem(0, "new");
    EXPECT_EQ(Names(menus), before);
    const MenuItem& item = menus.Item("mnudispeditsubslower(0)");
    EXPECT_EQ(item.Caption, "new");
    EXPECT_TRUE(item.Enabled);
    EXPECT_TRUE(item.Visible);
}

TEST(Menus, OnlyItemsThreeToSevenGoWithTheProblemForm)
{
    MenuTable menus;
    menus.SetEditItem(7, "seven");
    menus.SetEditItem(8, "eight");
    menus.RemoveEditItems();
    EXPECT_THROW((void)menus.Item("mnudispeditsubs(7)"), RuntimeError);
    EXPECT_EQ(menus.Item("mnudispeditsubs(8)").Caption, "eight");
}

TEST(Menus, TellOfEveryChange)
{
    MenuTable menus;
    int changes = 0;
    int expected = 0;
    menus.Changed = [&changes] { ++changes; };
    const auto expectOneMore = [&] { EXPECT_EQ(changes, ++expected); };
    menus.SetEnabled("mnuFileNew", true);
    expectOneMore();
    menus.SetCaption("mnuFileNew", "N");
    expectOneMore();
    menus.SetVisible("mnuFileNew", false);
    expectOneMore();
    menus.SetEditItem(3, "three");
    expectOneMore();
    menus.SetLowerItem(0, "lower");
    expectOneMore();
    menus.EnableEditItems(3, 3, false);
    expectOneMore();
    menus.EnablePrinting(true);
    expectOneMore();
    menus.RemoveEditItems();
    expectOneMore();
    menus.Reset();
    expectOneMore();
}
