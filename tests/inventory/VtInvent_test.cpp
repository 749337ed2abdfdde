// From the list of models to the form and back, and the problem file.
#include "inventory/VtInvent.h"

#include <gmock/gmock.h>

#include <utility>

#include "basic/records.h"
#include "inventory/module.h"
#include "inventory/problems.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/modelform.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using VtInvent::Problem;

constexpr int kModule = 8;

class InventoryModule : public testing::Test {
protected:
    InventoryModule()
    {
        Commands::Start();
        Commands::SelectModule(kModule);
        Commands::ChooseModule();
        VtInvent::MakeArrays();
    }

    // The user takes this line of the list, or cancels it (0).
    void ListAnswers(int item)
    {
        desktop.forms.onModal["frmuserlistinput"] = [item] {
            if (item == 0)
                UserInput::List.Cancel();
            else
                UserInput::TakeListItem(item);
        };
    }

    // What the user does on the form, once; a second showing is left alone.
    void OnForm(const std::string& form, const std::function<void()>& doing)
    {
        desktop.forms.onModal[form] = [doing, done = false]() mutable {
            if (std::exchange(done, true)) return;
            doing();
        };
    }

    static void FillOrderQuantity()
    {
        Problem.AnnualDemand = 400;
        Problem.OrderCost = 25;
        VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
        VtInvent::TakeHoldingAmount("8");
        VtInvent::KeepHoldingCost("8", "");
        VtInvent::KeepWorkingDays("250");
    }

    static std::string Written()
    {
        RecordWriter file;
        Inventory().Write(file);
        return file.Text();
    }

    static void ReadBack(const std::string& text)
    {
        RecordReader reader(text);
        Inventory().Read(reader);
    }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(InventoryModule, ListsItsSixModels)
{
    ListAnswers(0);
    BeginProblem();
    EXPECT_EQ(UserInput::List.Question().Caption, " Inventory Models Available");
    EXPECT_THAT(UserInput::List.Question().Items,
                ElementsAre("Economic Order Quantity", "Economic Production Lot Size",
                            "Economic Order Quantity with Planned Shortages",
                            "Economic Order Quantity with Quantity Discounts",
                            "Order Quantity-Reorder Point with Probabilistic Demand",
                            "Single-Period Inventory with Probabilistic Demand"));
    EXPECT_EQ(UserInput::List.Question().EmptyMessage, "You Must Select an Inventory Model");
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmuserlistinput"));
}

TEST_F(InventoryModule, ACancelledListChangesNothing)
{
    Problem.AnnualDemand = 5;
    ListAnswers(0);
    Commands::New();
    EXPECT_EQ(Problem.AnnualDemand.Value(), 5.0);
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_TRUE(Session.NewProblem);
    EXPECT_TRUE(Session.DialogCancelled);
}

TEST_F(InventoryModule, EachModelHasItsForm)
{
    const std::vector<std::string> forms{"frmEOQ",          "frmProductionLotSize", "frmPlannedShortages",
                                         "frmQtyDiscounts", "frmQR_Prob",           "frmOnePeriodProb"};
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::TakeSizes({"3"}); };
    for (int kind = 1; kind <= VtInvent::kModelCount; ++kind) {
        ListAnswers(kind);
        BeginProblem();
        EXPECT_EQ(desktop.forms.modals.back(), forms[static_cast<std::size_t>(kind) - 1]);
        EXPECT_EQ(Problem.ModelKind, kind);
        EXPECT_FALSE(Problem.Saved);
        EXPECT_EQ(Problem.ComputeReorderPoint, 0.0);
    }
}

TEST_F(InventoryModule, DiscountsAskForTheNumberOfCategories)
{
    ListAnswers(VtInvent::kDiscounts);
    desktop.forms.onModal["frmUserInput"] = [this] {
        EXPECT_EQ(UserInput::Sizes.Question().Caption, " Discount Categories");
        ASSERT_EQ(UserInput::Sizes.Question().Questions.size(), 1U);
        const SizeQuestion& question = UserInput::Sizes.Question().Questions.front();
        EXPECT_EQ(question.Question, "Enter Number of Categories (MAX=5):");
        EXPECT_EQ(question.Note, "(Include the No Discount Category)");
        for (const char* text : {"0", "6", ""}) {
            EXPECT_EQ(UserInput::TakeSizes({text}), 0);
            EXPECT_EQ(desktop.dialogs.Last(),
                      Refused("You may only select a number between 1 and 5.  Please Try Again."));
        }
        EXPECT_EQ(UserInput::TakeSizes({"5"}), -1);
    };
    BeginProblem();
    EXPECT_EQ(Problem.CategoryCount.Value(), 5.0);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmuserlistinput", "frmUserInput", "frmQtyDiscounts"));
}

TEST_F(InventoryModule, ACancelledCategoryQuestionChangesNothing)
{
    GivenModel(VtInvent::kLotSize);
    ListAnswers(VtInvent::kDiscounts);
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::CancelSizes(); };
    BeginProblem();
    EXPECT_EQ(Problem.ModelKind, VtInvent::kLotSize);
    EXPECT_EQ(desktop.forms.modals.back(), "frmUserInput");
}

TEST_F(InventoryModule, OneCategoryIsANumberOfCategories)
{
    ListAnswers(VtInvent::kDiscounts);
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::TakeSizes({"1"}); };
    BeginProblem();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(Problem.ModelKind, VtInvent::kDiscounts);
    EXPECT_EQ(Problem.CategoryCount.Value(), 1);
}

// Production as quick as demand has no quantity.
TEST_F(InventoryModule, AFailedSolveLeavesNoResult)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = 2000;
    VtInvent::SolveProblem();
    EXPECT_TRUE(VtInvent::Result.Solved);
    Problem.ProductionRate = 1000;
    EXPECT_THROW(VtInvent::SolveProblem(), RuntimeError);
    EXPECT_FALSE(VtInvent::Result.Solved);
}

TEST_F(InventoryModule, ANewProblemHoldsNothingOfTheLast)
{
    GivenModel(VtInvent::kShortages);
    Problem.BackorderCost = 3;
    Problem.Saved = true;
    VtInvent::SolveProblem();
    ASSERT_TRUE(VtInvent::Result.Solved);
    ListAnswers(VtInvent::kOrderQuantity);
    BeginProblem();
    EXPECT_FALSE(VtInvent::Result.Solved);
    EXPECT_TRUE(Problem.BackorderCost.IsEmpty());
    EXPECT_FALSE(Problem.Saved);
    EXPECT_EQ(Problem.ReorderPoint, 0.0);
}

TEST_F(InventoryModule, AnOpenFormDisablesTheMenus)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [] {
        for (const char* menu : {"mnuFile", "mnudispedit", "mnuSolution"})
            EXPECT_FALSE(Menus.Item(menu).Enabled) << menu;
        LeaveModelForm(FormExit::Closed);
    });
    Commands::New();
    for (const char* menu : {"mnuFile", "mnudispedit", "mnuSolution"})
        EXPECT_TRUE(Menus.Item(menu).Enabled) << menu;
    EXPECT_FALSE(desktop.forms.IsLoaded("frmEOQ"));
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    EXPECT_FALSE(Session.NewProblem);
}

TEST_F(InventoryModule, SolveClosesTheFormAndShowsTheReport)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [] {
        FillOrderQuantity();
        LeaveModelForm(FormExit::Solve);
    });
    Commands::New();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmEOQ"));
    EXPECT_TRUE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_EQ(SolutionLines()[3], "    OPTIMAL ORDER QUANTITY                        50.00");
    for (const char* item : {"mnuSolutionPrinttoPrinter", "mnuSolutionPrinttoText", "mnudispeditsubs(0)"})
        EXPECT_TRUE(Menus.Item(item).Enabled) << item;
    EXPECT_EQ(desktop.screen.indicator, "Inventory Module");
}

TEST_F(InventoryModule, ASolveThatFailsLeavesTheWayBackToTheForm)
{
    ListAnswers(VtInvent::kLotSize);
    OnForm("frmProductionLotSize", [] {
        FillOrderQuantity();
        Problem.ProductionRate = 400;
        LeaveModelForm(FormExit::Solve);
    });
    Commands::New();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoText").Enabled);
    EXPECT_EQ(desktop.screen.indicator, "Inventory Module");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(InventoryModule, SaveClosesTheFormAndAsksForTheFile)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [] {
        FillOrderQuantity();
        Problem.Saved = true;
        LeaveModelForm(FormExit::Save);
    });
    Commands::New();
    ASSERT_EQ(desktop.dialogs.fileQuestions.size(), 1U);
    EXPECT_TRUE(desktop.dialogs.fileQuestions[0].Saving);
    EXPECT_EQ(desktop.dialogs.fileQuestions[0].Title, "Save the Current Problem");
    EXPECT_EQ(desktop.dialogs.fileQuestions[0].Filter, "INV File|*.INV|All Files (*.*)|*.*");
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_FALSE(desktop.forms.IsLoaded("frmEOQ"));
}

TEST_F(InventoryModule, CancelAsksAndThenListsTheModelsAgain)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [this] {
        desktop.screen.indicator = "Inventory Model:  Economic Order Quantity";
        CancelModelForm();
        desktop.forms.onModal["frmuserlistinput"] = [this] {
            EXPECT_EQ(desktop.screen.indicator, "Inventory Module");
            UserInput::List.Cancel();
        };
    });
    BeginProblem();
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{.Text = "Are you sure you wish to cancel the current problem?",
                            .Title = "Cancel Current Problem",
                            .icon = Icon::Question,
                            .buttons = Buttons::YesNo}));
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmuserlistinput", "frmEOQ", "frmuserlistinput"));
    EXPECT_EQ(Problem.ModelKind, 0);
    EXPECT_EQ(desktop.screen.indicator, "Inventory Module");
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    for (const char* item : {"mnuFileSave", "mnudispedit", "mnuSolution"})
        EXPECT_FALSE(Menus.Item(item).Enabled) << item;
}

TEST_F(InventoryModule, CancelCanLeadToAnotherModel)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [this] {
        CancelModelForm();
        ListAnswers(VtInvent::kSinglePeriod);
    });
    BeginProblem();
    EXPECT_EQ(desktop.forms.modals.back(), "frmOnePeriodProb");
    EXPECT_EQ(Problem.ModelKind, VtInvent::kSinglePeriod);
}

TEST_F(InventoryModule, CancelIsTakenBackWithNo)
{
    GivenModel(VtInvent::kOrderQuantity);
    desktop.dialogs.answers = {Answer::No};
    OnForm("frmEOQ", [this] {
        CancelModelForm();
        EXPECT_TRUE(desktop.forms.IsLoaded("frmEOQ"));
    });
    DisplayProblem();
    EXPECT_EQ(Problem.ModelKind, VtInvent::kOrderQuantity);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmEOQ"));
}

TEST_F(InventoryModule, CancelKeepsAProblemThatIsInAFile)
{
    GivenModel(VtInvent::kOrderQuantity);
    Problem.Saved = true;
    OnForm("frmEOQ", [] { CancelModelForm(); });
    DisplayProblem();
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(Problem.ModelKind, VtInvent::kOrderQuantity);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmEOQ"));
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
}

TEST_F(InventoryModule, WithoutAProblemSolveAndEditDoNothing)
{
    ListAnswers(VtInvent::kOrderQuantity);
    OnForm("frmEOQ", [this] {
        CancelModelForm();
        ListAnswers(0);
    });
    Commands::New();
    desktop.forms.modals.clear();
    Commands::Solve();
    Commands::EditItem(0);
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    EXPECT_TRUE(desktop.forms.modals.empty());
}

TEST_F(InventoryModule, DisplayEditShowsTheFormOfTheModelAgain)
{
    GivenModel(VtInvent::kShortages);
    Problem.BackorderCost = 4;
    DisplayProblem();
    Commands::Solve();
    ASSERT_TRUE(desktop.forms.IsLoaded("frmSolution"));
    desktop.forms.modals.clear();
    OnForm("frmPlannedShortages", [this] {
        EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
        EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    });
    Commands::EditItem(0);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmPlannedShortages"));
}

TEST_F(InventoryModule, RequiredBoxesHoldSomething)
{
    EXPECT_TRUE(RequireValue("0"));
    EXPECT_FALSE(RequireValue(""));
    EXPECT_EQ(desktop.dialogs.Last(), Refused("A Value Must be Entered"));
}

// ---- files ----

TEST_F(InventoryModule, WritesAnAmountWithItsText)
{
    VtInvent::MakeArrays();
    Problem.ModelKind = VtInvent::kOrderQuantity;
    FillOrderQuantity();
    EXPECT_EQ(Written(),
              "1,400,\"400\",25,\"25\",8,\"8\",0,\"\",0,\"\",0,\"\",250,\"250\",0,\"\",0,\"\"\r\n"
              "0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"0\",0,0,0,0,\"\",0,\"\",0,\"\",0,\"\",0,\"\"\r\n");
}

TEST_F(InventoryModule, WritesAPercentageWithoutAHoldingText)
{
    VtInvent::MakeArrays();
    Problem.ModelKind = VtInvent::kReorderPoint;
    Problem.AnnualDemand = 12000.5;
    VtInvent::ChooseHoldingMethod(VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("20", "6");
    Problem.MeanDemand = 154;
    Problem.DemandStdDev = 0.25;
    GivenStockoutProbability(0.05);
    Problem.AllowedStockouts = 1.25;
    Problem.ReorderPoint = 154.5;
    EXPECT_EQ(
        Written(),
        "5,12000.5,\"12000.5\",0,\"\",1.2,\"\",20,\"20\",6,\"6\",0,\"\",0,\"\",0,\"\",154,\"154\"\r\n"
        "0.25,\"0.25\",2,\"2\",0.05,\"0.05\",1.25,\"1.25\",0,\"\",1,\"1\",0,154.5,0,0,\"\",0,\"\",0,\"\",0,"
        "\"\",0,\"\"\r\n");
}

TEST_F(InventoryModule, WritesItsCategories)
{
    GivenDiscounts({400, 25, 0, 250}, 20, {});
    Problem.HoldingCost = {};
    Problem.CategoryCount = 2;
    for (int k = 1; k <= 2; ++k) {
        VtInvent::TakeCategoryUnitCost(k, k == 1 ? "5" : "4.85");
        VtInvent::TakeCategoryMinimum(k, k == 1 ? "0" : "1000");
    }
    GivenLeadTime(3);
    const std::string text = Written();
    EXPECT_EQ(text,
              "4,400,\"400\",25,\"25\",0,\"\",20,\"20\",0,\"\",0,\"\",250,\"250\",3,\"3\",0,\"\"\r\n"
              "0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,0,-1,2,\"2\",0,\"\",0,\"\",0,\"\",0,\"\"\r\n"
              "5,\"5\",0,\"0\"\r\n4.85,\"4.85\",1000,\"1000\"\r\n");
}

TEST_F(InventoryModule, WritesADistributionWithoutAText)
{
    GivenSinglePeriod(1.5, 3);
    GivenUniform(10, 100);
    EXPECT_EQ(
        Written(),
        "6,0,\"\",1.5,\"1.5\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\"\r\n"
        "0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,\"\",0,0,0,0,\"\",3,\"3\",1,\"\",10,\"10\",100,\"100\"\r\n");
}

TEST_F(InventoryModule, WritesTheTextsOfSmallValuesWithoutAnExponent)
{
    GivenDiscounts({400, 25, 0, 250}, 20, {});
    VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
    VtInvent::TakeHoldingAmount("0.000025");
    VtInvent::KeepHoldingCost("0.000025", "");
    Problem.AllowedStockouts = 0.0000335;
    Problem.CategoryCount = 1;
    VtInvent::TakeCategoryUnitCost(1, "0.00005");
    VtInvent::TakeCategoryMinimum(1, "0.00001");
    const std::string text = Written();
    EXPECT_THAT(text, HasSubstr("0.000025,\"0.000025\""));
    EXPECT_THAT(text, HasSubstr("0.0000335,\"0.0000335\""));
    EXPECT_THAT(text, HasSubstr("\r\n0.00005,\"0.00005\",0.00001,\"0.00001\"\r\n"));
    ReadBack(text);
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kAmountMethod);
}

TEST_F(InventoryModule, ReadsWhatItWrote)
{
    GivenDiscounts({400, 25, 0, 250}, 20, {{5, 0}, {4.85, 1000}});
    GivenLeadTime(3);
    Problem.ServiceMethod = 1;
    Problem.AllowedStockouts = 2;
    Problem.ProductionRate = 800;
    Problem.LowestDemand = 3;
    Problem.HighestDemand = 9;
    Problem.DistributionKind = 2;
    Problem.UnderCost = 4;
    Problem.ReorderPoint = -3.17;
    const std::string text = Written();
    VtInvent::MakeArrays();
    ReadBack(text);
    EXPECT_EQ(Problem.ModelKind, VtInvent::kDiscounts);
    EXPECT_EQ(Problem.AnnualDemand.Value(), 400.0);
    EXPECT_EQ(Problem.CarryingPercent.Value(), 20.0);
    EXPECT_EQ(Problem.LeadTimeDays.Value(), 3.0);
    EXPECT_EQ(Problem.ServiceMethod.Value(), 1.0);
    EXPECT_EQ(Problem.AllowedStockouts.Value(), 2.0);
    EXPECT_EQ(Problem.ProductionRate.Value(), 800.0);
    EXPECT_EQ(Problem.ComputeReorderPoint, -1.0);
    EXPECT_EQ(Problem.CategoryUnitCost(2).Value(), 4.85);
    EXPECT_EQ(Problem.CategoryMinimum(2).Value(), 1000.0);
    EXPECT_EQ(Problem.UnderCost.Value(), 4.0);
    EXPECT_EQ(Problem.DistributionKind.Value(), 2.0);
    EXPECT_EQ(Problem.HighestDemand.Value(), 9.0);
    EXPECT_EQ(Problem.ReorderPoint, -3.17);
    EXPECT_TRUE(Problem.Saved);
    EXPECT_EQ(desktop.screen.indicator, "Inventory Model:  Quantity Discounts");
}

TEST_F(InventoryModule, FieldsThatWereLeftEmptyComeBackAsZero)
{
    Problem.ModelKind = VtInvent::kOrderQuantity;
    FillOrderQuantity();
    const std::string text = Written();
    ReadBack(text);
    EXPECT_FALSE(Problem.BackorderCost.IsEmpty());
    EXPECT_EQ(Problem.BackorderCost.Value(), 0.0);
}

TEST_F(InventoryModule, KeepsTheHoldingTextAndTheCategoryTextsOfAFile)
{
    ReadBack(
        "4,1,\"x\",1,\"x\",6,\"six\",1,\"x\",1,\"x\",1,\"x\",250,\"x\",0,\"x\",0,\"x\"\r\n"
        "0,\"x\",0,\"x\",0,\"x\",0,\"x\",0,\"x\",1,\"x\",0,0,0,1,\"x\",0,\"x\",0,\"x\",0,\"x\",0,\"x\"\r\n"
        "5,\"five\",0,\"none\"\r\n");
    const std::string text = Written();
    EXPECT_THAT(text, testing::HasSubstr(",6,\"six\","));
    EXPECT_THAT(text, testing::EndsWith("\r\n5,\"five\",0,\"none\"\r\n"));
    EXPECT_THAT(text, testing::StartsWith("4,1,\"1\",1,\"1\","));
}

TEST_F(InventoryModule, AFileOfAPercentageOpensWithPercent)
{
    Problem.ModelKind = VtInvent::kOrderQuantity;
    VtInvent::ChooseHoldingMethod(VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("20", "40");
    ReadBack(Written());
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kPercentMethod);
    EXPECT_EQ(Problem.CarryingPercent.Text(), "20");
    EXPECT_EQ(Problem.UnitCost.Text(), "40");
}

TEST_F(InventoryModule, AFileOfAnAmountOpensWithAmount)
{
    Problem.ModelKind = VtInvent::kOrderQuantity;
    FillOrderQuantity();
    ReadBack(Written());
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kAmountMethod);
}

TEST_F(InventoryModule, EachModelNamesItselfWhenItIsOpened)
{
    const std::vector<std::string> indicators{"Economic Order Quantity",
                                              "Production Lot Size",
                                              "Planned Shortages",
                                              "Quantity Discounts",
                                              "Q/R with Probabilistic Demand",
                                              "Single Period with Probabilistic Demand"};
    for (int kind = 1; kind <= VtInvent::kModelCount; ++kind) {
        GivenModel(kind);
        ReadBack(Written());
        EXPECT_EQ(desktop.screen.indicator,
                  "Inventory Model:  " + indicators[static_cast<std::size_t>(kind) - 1]);
    }
}

TEST_F(InventoryModule, SixCategoriesOfAFileFitAndSevenDoNot)
{
    GivenDiscounts({}, 20, {{5, 0}, {5, 0}, {5, 0}, {5, 0}, {5, 0}, {5, 0}});
    const std::string six = Written();
    ReadBack(six);
    EXPECT_EQ(Problem.CategoryCount.Value(), 6.0);
    std::string seven = six + "5,\"5\",0,\"0\"\r\n";
    seven.replace(seven.find("6,\"6\""), 5, "7,\"7\"");
    EXPECT_THROW(ReadBack(seven), RuntimeError);
}

TEST_F(InventoryModule, AShortFileFails)
{
    GivenModel(VtInvent::kOrderQuantity);
    const std::string text = Written();
    EXPECT_THROW(ReadBack(text.substr(0, text.size() / 2)), RuntimeError);
    EXPECT_THROW(ReadBack(""), RuntimeError);
    EXPECT_THROW(ReadBack("one" + text), RuntimeError);
}

TEST_F(InventoryModule, AModelThatDoesNotExistOpensNoForm)
{
    for (const int kind : {0, 7, -1, 32000}) {
        GivenModel(kind);
        EXPECT_THROW(ReadBack(Written()), RuntimeError);
        DisplayProblem();
        Commands::Solve();
    }
    EXPECT_TRUE(desktop.forms.modals.empty());
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
}
