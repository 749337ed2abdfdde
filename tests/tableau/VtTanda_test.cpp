// What the cells of the tableau take, and what they refuse.
#include "tableau/VtTanda.h"

#include <gtest/gtest.h>

#include "shell/module.h"
#include "support/fake_desktop.h"
#include "tableau/ErrorMsg.h"
#include "tableau/tables.h"

namespace {

using Tableau::Problem;

class Cells : public testing::Test {
protected:
    Cells() { GiveTransportation({{0, 0}, {0, 0}}, {0, 0}, {0, 0}); }

    // The nine lines of the notice about a value that is too large; none when it was not shown.
    [[nodiscard]] std::vector<std::string> Notice() const
    {
        if (desktop.forms.modals != std::vector<std::string>{"frmErrorMsg"}) return {};
        return {ErrorNotice.Question().begin(), ErrorNotice.Question().end()};
    }

    FakeDesktop desktop;
};

double CostAfter(const std::string& text)
{
    EXPECT_EQ(Tableau::EnterCost(1, 2, text), kCellStored) << text;
    return Problem.ArcCost(2).Value();
}

TEST_F(Cells, CostsAreStoredAsTyped)
{
    EXPECT_EQ(CostAfter("12"), 12);
    EXPECT_EQ(CostAfter("-5"), -5);
    EXPECT_EQ(CostAfter("+5"), 5);
    EXPECT_EQ(CostAfter("1,000"), 1000);
    EXPECT_EQ(CostAfter(".5"), 0.5);
    EXPECT_EQ(CostAfter("-"), 0);
    EXPECT_EQ(CostAfter("999999.5"), 999999.5);
    EXPECT_EQ(CostAfter("999999.9999"), 999.99);  // needs a second decimal
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Cells, ACostCreatesTheEndsOfItsArc)
{
    Problem.TailNode.Fill(0);
    Problem.HeadNode.Fill(0);
    EXPECT_EQ(Tableau::EnterCost(2, 1, "3"), kCellStored);
    EXPECT_EQ(Problem.TailNode(3), 2);
    EXPECT_EQ(Problem.HeadNode(3), 3);
    EXPECT_EQ(Tableau::EnterCost(2, 2, ""), kCellStored);
    EXPECT_EQ(Problem.TailNode(4), 2);
    EXPECT_EQ(Problem.HeadNode(4), 4);
}

TEST_F(Cells, ABlankCostIsAskedAboutOnceAndStoredAsZero)
{
    Problem.ArcCost(2) = 7.0;
    Session.AskIncomplete = true;
    EXPECT_EQ(Tableau::EnterCost(1, 2, ""), kCellEmpty);
    EXPECT_EQ(Problem.ArcCost(2).Value(), 0);
    Session.AskIncomplete = false;
    EXPECT_EQ(Tableau::EnterCost(1, 2, ""), kCellStored);
}

TEST_F(Cells, TextsThatAreNoNumberAreRefusedAsCosts)
{
    for (const char* text : {"1.2.3", "+-1", "1-", "abc", "1E5", " 1"}) {
        Problem.ArcCost(2) = 7.0;
        EXPECT_EQ(Tableau::EnterCost(1, 2, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused("The Cost/Revenue Must Be A Number.")) << text;
        EXPECT_EQ(Problem.ArcCost(2).Value(), 7) << text;
    }
}

TEST_F(Cells, AMillionIsTooLargeForACost)
{
    Problem.ArcCost(2) = 7.0;
    EXPECT_EQ(Tableau::EnterCost(1, 2, "1000000"), kCellRefused);
    EXPECT_EQ(Problem.ArcCost(2).Value(), 7);
    EXPECT_EQ(Notice(),
              (std::vector<std::string>{
                  "WARNING:  YOUR COST/REVENUE VALUE IS TOO LARGE!!!",
                  "This module is designed to handle transportation cost/revenue values ",
                  "up to one million (1000000).", "Your cost/revenue value of 1000000 is too large.",
                  "Rescale the data so that", "     1.  all data are less than 1000000 and",
                  "     2.  the rescaled data do not require more than two decimal places.",
                  "For example, a cost of 2520000 could be rescaled to 2.52",
                  "Please rescale your cost/revenue data and reenter the problem."}));
    EXPECT_EQ(CostAfter("999999"), 999999);
}

TEST_F(Cells, TheNoticeNamesTheAssignment)
{
    GiveAssignment({{0, 0}, {0, 0}});
    EXPECT_EQ(Tableau::EnterCost(1, 1, "2520000"), kCellRefused);
    ASSERT_EQ(Notice().size(), 9u);
    EXPECT_EQ(Notice()[1], "This module is designed to handle assignment cost/revenue values ");
    EXPECT_EQ(Notice()[3], "Your cost/revenue value of 2520000 is too large.");
}

TEST_F(Cells, LargeNegativeCostsAreCutWithoutAWord)
{
    EXPECT_EQ(CostAfter("-1000000"), -999999);
    EXPECT_EQ(CostAfter("-5000000"), -999999);
    EXPECT_EQ(CostAfter("-999999.5"), -999999.5);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_TRUE(desktop.forms.modals.empty());
}

TEST_F(Cells, DecimalPlacesFollowTheCosts)
{
    struct Row {
        const char* text;
        double places;
        double stored;
    };
    for (const Row& row :
         {Row{"3", 0, 3}, Row{"0.0094", 0, 0.0094}, Row{"0.0095", 2, 0.0095}, Row{"3.009", 0, 3.009},
          Row{"3.0096", 2, 3.0096}, Row{"2.5094", 1, 2.5094}, Row{"2.096", 2, 2.096}, Row{"2.5", 1, 2.5},
          Row{"2.55", 2, 2.55}, Row{"2.01", 2, 2.01}, Row{"2.59", 2, 2.59}, Row{"2.509", 1, 2.509},
          Row{"1234.5", 1, 1234.5}, Row{"1234.56", 2, 999.99}, Row{"-1234.56", 2, -999.99},
          Row{"999.99", 2, 999.99}, Row{"-2.5", 1, -2.5}, Row{"999999.5", 1, 999999.5}}) {
        Problem.DecimalPlaces = 0.0;
        EXPECT_EQ(CostAfter(row.text), row.stored) << row.text;
        EXPECT_EQ(Problem.DecimalPlaces.Value(), row.places) << row.text;
    }
}

TEST_F(Cells, DecimalPlacesOnlyGrow)
{
    CostAfter("2.55");
    CostAfter("2.5");
    CostAfter("2");
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 2);
}

TEST_F(Cells, SuppliesAndDemandsAreWholeUnits)
{
    EXPECT_EQ(Tableau::EnterSupply(1, "10"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(1), 10);
    EXPECT_EQ(Tableau::EnterSupply(1, "999999"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(1), 999999);
    EXPECT_EQ(Tableau::EnterDemand(3, "10"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(3), -10);
    EXPECT_EQ(Tableau::EnterSupply(1, "0"), kCellStored);
    EXPECT_EQ(Tableau::EnterDemand(3, "0"), kCellStored);
    EXPECT_EQ(Tableau::EnterSupply(1, "1,000"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(1), 1000);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Cells, BlankQuantitiesAreAskedAboutAndStoredAsZero)
{
    Problem.NodeSupply(1) = 5;
    Problem.NodeSupply(3) = -5;
    Session.AskIncomplete = true;
    EXPECT_EQ(Tableau::EnterSupply(1, ""), kCellEmpty);
    EXPECT_EQ(Tableau::EnterDemand(3, ""), kCellEmpty);
    EXPECT_EQ(Problem.NodeSupply(1), 0);
    EXPECT_EQ(Problem.NodeSupply(3), 0);
    Session.AskIncomplete = false;
    EXPECT_EQ(Tableau::EnterSupply(1, ""), kCellStored);
    EXPECT_EQ(Tableau::EnterDemand(3, ""), kCellStored);
}

TEST_F(Cells, QuantitiesThatAreNotWholeAreRefused)
{
    Problem.NodeSupply(1) = 5;
    Problem.NodeSupply(3) = -5;
    for (const char* text : {"10.5", "10.", "abc", "1-"}) {
        EXPECT_EQ(Tableau::EnterSupply(1, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused("Supply Must Have A Numeric Value.")) << text;
        EXPECT_EQ(Tableau::EnterDemand(3, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused("DEMAND Must Have A Numeric Value.")) << text;
    }
    EXPECT_EQ(Problem.NodeSupply(1), 5);
    EXPECT_EQ(Problem.NodeSupply(3), -5);
}

TEST_F(Cells, AMillionIsTooLargeForAQuantity)
{
    EXPECT_EQ(Tableau::EnterDemand(3, "1000000"), kCellRefused);
    ASSERT_EQ(Notice().size(), 9u);
    EXPECT_EQ(Notice()[0], "WARNING:  YOUR SUPPLY/DEMAND VALUE IS TOO LARGE!!!");
    EXPECT_EQ(Notice()[1], "This module is designed to handle transportation cost/revenue values ");
    EXPECT_EQ(Notice()[3], "Your supply/demand value of 1000000 is too large.");
    EXPECT_EQ(Notice()[7], "For example, a supply of 2520000 could be rescaled to 2.52");
    EXPECT_EQ(Notice()[8], "Please rescale your cost/revenue data and reenter the problem.");
}

TEST_F(Cells, NegativeQuantitiesAreToldAndStayStored)
{
    EXPECT_EQ(Tableau::EnterSupply(1, "-5"), kCellRefused);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("SUPPLY CANNOT BE NEGATIVE."));
    EXPECT_EQ(Problem.NodeSupply(1), -5);
    EXPECT_EQ(Tableau::EnterDemand(3, "-5"), kCellRefused);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  DEMAND CANNOT BE NEGATIVE."));
    EXPECT_EQ(Problem.NodeSupply(3), 5);
}

TEST_F(Cells, QuantitiesBeyond32BitsOverflow)
{
    try {
        Tableau::EnterSupply(1, "-99999999999");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
}

TEST_F(Cells, TheGridGoesToCostsSuppliesAndDemands)
{
    EXPECT_EQ(Tableau::EnterCell(2, 2, "4"), kCellStored);
    EXPECT_EQ(Problem.ArcCost(4).Value(), 4);
    EXPECT_EQ(Tableau::EnterCell(2, 3, "8"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(2), 8);
    EXPECT_EQ(Tableau::EnterCell(3, 2, "9"), kCellStored);
    EXPECT_EQ(Problem.NodeSupply(4), -9);
}

TEST_F(Cells, TheCornerTakesNothing)
{
    EXPECT_EQ(Tableau::EnterCell(3, 3, "***********"), kCellStored);
    EXPECT_EQ(Tableau::EnterCell(0, 1, "abc"), kCellStored);
    EXPECT_EQ(Tableau::EnterCell(1, 0, "abc"), kCellStored);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(Cells, AnAssignmentHasCostsOnly)
{
    GiveAssignment({{0, 0}, {0, 0}});
    EXPECT_EQ(Tableau::EnterCell(2, 2, "4"), kCellStored);
    EXPECT_EQ(Tableau::EnterCell(1, 3, "x"), kCellStored);
    EXPECT_EQ(Problem.ArcCost(4).Value(), 4);
    EXPECT_EQ(Problem.NodeSupply(1), 1);
    EXPECT_EQ(Problem.NodeSupply(4), -1);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

ErrorNumber ErrorOfAllocating(int origins, int destinations)
{
    try {
        Tableau::Allocate(origins, destinations);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber::UserInterrupt;
}

TEST_F(Cells, SizesThatCannotBeAreErrors)
{
    EXPECT_EQ(ErrorOfAllocating(-1, 3), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOfAllocating(3, -1), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOfAllocating(182, 181), ErrorNumber::Overflow);
}

TEST_F(Cells, SizesBelowZeroLeaveTheTableauAsItWas)
{
    const int origins = Problem.NumOrigins;
    const int destinations = Problem.NumDestinations;
    ErrorOfAllocating(-1, 7);
    ErrorOfAllocating(7, -1);
    EXPECT_EQ(Problem.NumOrigins, origins);
    EXPECT_EQ(Problem.NumDestinations, destinations);
}

// As undo does: the numbers of a larger tableau come back with their arcs joined.
TEST_F(Cells, NumbersOfAnotherSizeComeBackWithTheirArcs)
{
    GiveTransportation({{1, 2, 3}, {4, 5, 6}}, {10, 20}, {7, 8, 9});
    const std::vector<double> numbers = Tableau::Numbers();
    GiveTransportation({{1}}, {1}, {1});
    Tableau::TakeNumbers(numbers);
    EXPECT_EQ(Problem.NumOrigins, 2);
    EXPECT_EQ(Problem.NumDestinations, 3);
    EXPECT_EQ(Problem.ArcCost(6).Value(), 6);
    EXPECT_EQ(Problem.NodeSupply(5), -9);
    EXPECT_EQ(Problem.TailNode(6), 2);
    EXPECT_EQ(Problem.HeadNode(6), 5);
}

TEST_F(Cells, SizesBeyondTheLimitsOfTheDialogAreTaken)
{
    Tableau::Allocate(181, 181);
    EXPECT_EQ(Problem.NumArcs, 32761);
    Tableau::Allocate(0, 3);
    EXPECT_EQ(Problem.NumArcs, 0);
    EXPECT_EQ(Problem.NumNodes, 3);
}

}  // namespace
