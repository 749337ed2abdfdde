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

TEST(Menus, TellOfEveryChange)
{
    MenuTable menus;
    int changes = 0;
    menus.Changed = [&changes] { ++changes; };
    menus.SetEnabled("mnuFileNew", true);
    menus.SetEditItem(3, "three");
    menus.RemoveEditItems();
    EXPECT_EQ(changes, 3);
}
