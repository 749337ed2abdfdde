#include <gmock/gmock.h>

#include <algorithm>

#include "basic/error.h"
#include "lp/VtLP.h"
#include "support/fake_desktop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VtLP::Problem;

class LpParser : public testing::Test {
protected:
    // Objective line and constraints.
    static void Parse(const std::vector<std::string>& lines)
    {
        VtLP::AllocateLpModel();
        int i = VtLP::kObjectiveLine;
        for (const std::string& line : lines)
            Problem.LpLines(i++) = line;
        Problem.NumConstraints = static_cast<std::int16_t>(lines.size() - 1);
        VtLP::ParseLpLines();
    }

    // Once more, over the model of the last reading.
    static void ParseAgain(const std::vector<std::string>& lines)
    {
        std::copy(lines.begin(), lines.end(), &Problem.LpLines(VtLP::kObjectiveLine));
        VtLP::ParseLpLines();
    }

    static std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        names.reserve(static_cast<std::size_t>(Problem.NumVariables));
        for (int j = 1; j <= Problem.NumVariables; ++j)
            names.push_back(Problem.LpVariableNames(j));
        return names;
    }

    static std::vector<double> Row(int row)
    {
        std::vector<double> values;
        values.reserve(static_cast<std::size_t>(Problem.NumVariables) + 1);
        for (int j = 0; j <= Problem.NumVariables; ++j)
            values.push_back(Problem.LpCoefficients(row, j));
        return values;
    }

    FakeDesktop desktop;
};

TEST_F(LpParser, ReadsAProblem)
{
    Parse({"MAX 3X1+2X2", "1X1+1X2<10", "2X1-1.5X2>4", "1X2=3.25"});
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
    EXPECT_THAT(Names(), ElementsAre("X1", "X2"));
    EXPECT_THAT(Row(0), ElementsAre(0, 3, 2));
    EXPECT_THAT(Row(1), ElementsAre(10, 1, 1));
    EXPECT_THAT(Row(2), ElementsAre(4, 2, -1.5));
    EXPECT_THAT(Row(3), ElementsAre(3.25, 0, 1));
    EXPECT_EQ(Problem.LpRelations(1), VtLP::kLess);
    EXPECT_EQ(Problem.LpRelations(2), VtLP::kGreater);
    EXPECT_EQ(Problem.LpRelations(3), VtLP::kEqual);
    EXPECT_EQ(Problem.ConstraintCursor, 3);
}

TEST_F(LpParser, ABareNameCountsOneAndABareMinusMinusOne)
{
    Parse({"MIN X+Y", "2X1+X2>=8", "-X1+X2-3X<=0"});
    EXPECT_EQ(VtLP::MinimizeFlag, 1);
    EXPECT_THAT(Names(), ElementsAre("X", "Y", "X1", "X2"));
    EXPECT_THAT(Row(1), ElementsAre(8, 0, 0, 2, 1));
    EXPECT_EQ(Problem.LpRelations(1), VtLP::kGreater);
    EXPECT_THAT(Row(2), ElementsAre(0, -3, 0, -1, 1));
    EXPECT_EQ(Problem.LpRelations(2), VtLP::kLess);
}

TEST_F(LpParser, BlanksCountNowhere)
{
    Parse({"M A X 1 2 A B + 3 C", "A B + C < = 1 0"});
    EXPECT_THAT(Names(), ElementsAre("AB", "C"));
    EXPECT_THAT(Row(0), ElementsAre(0, 12, 3));
    EXPECT_THAT(Row(1), ElementsAre(10, 1, 1));
}

TEST_F(LpParser, DigitsBehindALetterBelongToTheName)
{
    Parse({"MAX 3X1Y2", "4X1Y2<5"});
    EXPECT_THAT(Names(), ElementsAre("X1Y2"));
    EXPECT_THAT(Row(1), ElementsAre(5, 4));
}

TEST_F(LpParser, ColumnsFollowTheFirstAppearanceOfTheirNames)
{
    Parse({"MAX 1B", "1B+1A<1", "1B<2", "1C+1A<3"});
    EXPECT_THAT(Names(), ElementsAre("B", "A", "C"));
    EXPECT_THAT(Row(3), ElementsAre(3, 0, 1, 1));
}

TEST_F(LpParser, NamesDifferByTheirCase)
{
    Parse({"MAX 1a+2A", "1a<1"});
    EXPECT_THAT(Names(), ElementsAre("a", "A"));
}

TEST_F(LpParser, TheLastCoefficientOfANameOnALineStands)
{
    Parse({"MAX 1A", "1A+2B+3A<1"});
    EXPECT_THAT(Row(1), ElementsAre(1, 3, 2));
}

TEST_F(LpParser, BlankLinesTakeNoRow)
{
    Parse({"MAX 1A", "   ", "1A<7", ""});
    EXPECT_EQ(Problem.ConstraintCursor, 1);
    EXPECT_THAT(Row(1), ElementsAre(7, 1));
}

TEST_F(LpParser, ALineOfARelationAndARightHandSideIsAnEmptyRow)
{
    Parse({"MAX 1A", "<10", "1A<3"});
    EXPECT_THAT(Row(1), ElementsAre(10, 0));
    EXPECT_EQ(Problem.LpRelations(1), VtLP::kLess);
    EXPECT_EQ(Problem.NumVariables, 1);
}

TEST_F(LpParser, ANegativeRightHandSidePassesUnchecked)
{
    Parse({"MAX 1A", "1A<-10"});
    EXPECT_THAT(Row(1), ElementsAre(-10, 1));
}

TEST_F(LpParser, DecimalsOfCoefficientsCount)
{
    Parse({"MAX 1.5A", "1A<3"});
    EXPECT_EQ(Problem.LpDecimalPlaces, 3);
    Parse({"MAX 1.5A", "1.00001A<3"});
    EXPECT_EQ(Problem.LpDecimalPlaces, 5);
}

TEST_F(LpParser, ANumberMayBeginWithItsPoint)
{
    Parse({"MAX .5A-.25B", "1A<3"});
    EXPECT_THAT(Row(0), ElementsAre(0, .5, -.25));
}

TEST_F(LpParser, TheWordsOfTheTypeAreTakenOutOfAnyName)
{
    Parse({"MAX 3MAXI", "1MINT<3"});
    EXPECT_THAT(Names(), ElementsAre("I", "T"));
    EXPECT_EQ(VtLP::MinimizeFlag, 1);
    EXPECT_THAT(Row(0), ElementsAre(0, 1, 0));  // the 3 went with the word
}

TEST_F(LpParser, SmallLettersAreNoTypeWord)
{
    Parse({"min1A", "A<3"});
    EXPECT_THAT(Names(), ElementsAre("min1A", "A"));
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
}

TEST_F(LpParser, APriorProblemLeavesNothing)
{
    Parse({"MIN 1A+2B+3C", "1A+1B<3"});
    Parse({"MAX 1A", "1A<3"});
    EXPECT_EQ(Problem.NumVariables, 1);
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
    EXPECT_EQ(Problem.LpCoefficients(0, 2), 0);
}

TEST_F(LpParser, ReadingAgainCountsVariablesAndRowsFromTheBeginning)
{
    Parse({"MAX 1A+2B", "1A<3"});
    ParseAgain({"MAX 4C", "5C<6"});
    EXPECT_THAT(Names(), ElementsAre("C"));
    EXPECT_THAT(Row(0), ElementsAre(0, 4));
    EXPECT_THAT(Row(1), ElementsAre(6, 5));
    EXPECT_EQ(Problem.ConstraintCursor, 1);
}

std::string Objective(int variables)
{
    std::string line = "MAX ";
    for (int j = 1; j <= variables; ++j)
        line += "+1X" + std::to_string(j);
    return line;
}

TEST_F(LpParser, AHundredVariablesAreRead)
{
    Parse({Objective(100), "1X100<3"});
    EXPECT_EQ(Problem.NumVariables, 100);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(LpParser, TheHundredAndFirstVariableEndsTheReading)
{
    Parse({Objective(99), "1A<3", "1B<4", "1X1<5"});
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(ShownMessage{"YOUR PROBLEM HAS EXCEEDED THE DIMENSIONS OF THIS PROGRAM.  THE "
                                         "NUMBER OF DECISION VARIABLES EXCEEDS 100.",
                                         "Problem Error", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(Problem.NumVariables, 100);
    EXPECT_EQ(Problem.LpCoefficients(1, 0), 3);
    EXPECT_EQ(Problem.LpCoefficients(3, 0), 0);
}

TEST_F(LpParser, ANumberBeyondADoubleIsToldAndEndsTheReading)
{
    Parse({"MAX 1A", std::string(400, '9') + "A<3", "1A<5"});
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(ShownMessage{"Overflow", "Error # 6", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(Problem.LpCoefficients(2, 0), 0);
}

TEST_F(LpParser, ACoefficientWithoutANameIsARunTimeError)
{
    EXPECT_THROW(Parse({"MAX 1A", "1A+5<3"}), RuntimeError);
    EXPECT_THROW(Parse({"MAX 1A", "5<3"}), RuntimeError);
    EXPECT_THROW(Parse({"MAX 1A+5", "1A<3"}), RuntimeError);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(LpParser, ALineBeyondThePositionsOfSixteenBitsIsARunTimeError)
{
    EXPECT_NO_THROW(Parse({"MAX 1A", "1A<" + std::string(32764, '0')}));
    EXPECT_THROW(Parse({"MAX 1A", "1A<" + std::string(32765, '0')}), RuntimeError);
}

}  // namespace
