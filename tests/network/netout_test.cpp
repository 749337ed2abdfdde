// The reports of both networks, on the screen and in full.
#include "network/netout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "network/NetworkSolver.h"
#include "network/networks.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

namespace {

using Network::Problem;
using testing::ElementsAre;
using Lines = std::vector<std::string>;

class NetworkReport : public testing::Test {
protected:
    const Lines& ShownRoute()
    {
        FindRoute();
        SolutionPage page;
        Network::WriteRoute(page);
        return SolutionLines();
    }

    const Lines& ShownTree()
    {
        FindTree();
        SolutionPage page;
        Network::WriteTree(page);
        return SolutionLines();
    }

    FakeDesktop desktop;
};

Lines LinesOf(void (*report)(ReportChannel&))
{
    TextFileChannel channel;
    report(channel);
    Lines lines;
    std::istringstream text(channel.Text());
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

TEST_F(NetworkReport, TheRouteIsListedFirstLegFirst)
{
    GiveRoute(7, ParkRoads(), 1, 7);
    EXPECT_THAT(ShownRoute(), ElementsAre("            THE SHORTEST ROUTE FROM NODE 1 TO NODE 7",  //
                                          "            ****************************************",  //
                                          "",                                                      //
                                          "            START NODE       END NODE       DISTANCE",  //
                                          "            ----------       --------       --------",  //
                                          "                 1               2               2",    //
                                          "                 2               3               2",    //
                                          "                 3               5               4",    //
                                          "                 5               7               5",    //
                                          "",                                                      //
                                          "                    TOTAL DISTANCE              13"));
}

TEST_F(NetworkReport, ARouteToItsOwnStartHasOneRow)
{
    GiveRoute(2, {{1, 2, 5}}, 2, 2);
    const Lines& lines = ShownRoute();
    EXPECT_THAT(Lines(lines.begin() + 5, lines.end()),
                ElementsAre("                 2               2               0", "",
                            "                    TOTAL DISTANCE               0"));
}

// A line of 20 nodes: the stars follow the digits of both ends.
TEST_F(NetworkReport, TheStarsAreAsLongAsTheHeading)
{
    std::vector<TestArc> arcs;
    arcs.reserve(20);
    for (int n = 1; n < 20; ++n)
        arcs.push_back({n, n + 1, 1});
    for (const auto& [start, end] :
         {std::pair{9, 9}, std::pair{9, 10}, std::pair{10, 9}, std::pair{10, 11}}) {
        GiveRoute(20, arcs, start, end);
        const Lines& lines = ShownRoute();
        EXPECT_EQ(lines[1].find('*'), 12u);
        EXPECT_EQ(lines[1].size(), lines[0].size()) << start << " " << end;
    }
}

TEST_F(NetworkReport, RouteDistancesFollowTheDecimals)
{
    GiveRoute(2, {{1, 2, 2.345}}, 1, 2);
    Problem.DecimalPlaces = 1.0;
    EXPECT_EQ(ShownRoute()[5], "                 1               2             2.3");
    EXPECT_EQ(SolutionLines()[7], "                    TOTAL DISTANCE             2.3");
    Problem.DecimalPlaces = 2.0;
    EXPECT_EQ(ShownRoute()[5], "                 1               2            2.35");
    EXPECT_EQ(SolutionLines()[7], "                    TOTAL DISTANCE            2.35");
}

TEST_F(NetworkReport, TheTreeIsListedInTheOrderOfJoining)
{
    GiveTree(12, {{2, 1, 3},
                  {1, 3, 1},
                  {3, 4, 20},
                  {4, 5, 1},
                  {5, 6, 1},
                  {6, 7, 1},
                  {7, 8, 1},
                  {8, 9, 1},
                  {9, 10, 1},
                  {10, 11, 1},
                  {11, 12, 1.5}});
    const Lines& lines = ShownTree();
    ASSERT_EQ(lines.size(), 18u);
    EXPECT_THAT(Lines(lines.begin(), lines.begin() + 8),
                ElementsAre("                    MINIMAL SPANNING TREE",        //
                            "                    *********************",        //
                            "",                                                 //
                            "              START NODE   END NODE    DISTANCE",  //
                            "              ----------   --------    --------",  //
                            "                   1           3            1",    //
                            "                   1           2            3",    //
                            "                   3           4           20"));
    EXPECT_EQ(lines[16], "");
    EXPECT_EQ(lines[17], "                    TOTAL LENGTH           33");
    Problem.DecimalPlaces = 1.0;
    EXPECT_EQ(ShownTree()[15], "                  11          12          1.5");
    EXPECT_EQ(ShownTree()[17], "                    TOTAL LENGTH         32.5");
    Problem.DecimalPlaces = 2.0;
    EXPECT_EQ(ShownTree()[15], "                  11          12         1.50");
    EXPECT_EQ(ShownTree()[17], "                    TOTAL LENGTH        32.50");
}

TEST_F(NetworkReport, TheFullRouteReportBeginsWithTheArcs)
{
    GiveRoute(12, {{1, 12, 2.5}}, 1, 12);
    Problem.NumNodes = 12;
    Problem.DecimalPlaces = 1.0;
    FindRoute();
    EXPECT_THAT(LinesOf(Network::PrintShortestRoute),
                ElementsAre("     SHORTEST ROUTE",                                 //
                            "     **************",                                 //
                            "                 **** NETWORK DESCRIPTION ****",      //
                            "",                                                    //
                            "                      12 NODES AND 1 ARCS",           //
                            "",                                                    //
                            "            ARC   START NODE   END NODE   DISTANCE",  //
                            "            ---   ----------   --------   --------",  //
                            "             1         1          12         2.5",    //
                            "     WARNING",                                        //
                            "     *******",                                        //
                            "   Please review the description of the network.",    //
                            "   It is not possible to reach all nodes in the network."));
}

TEST_F(NetworkReport, TheFullRouteReportEndsLikeTheScreen)
{
    GiveRoute(2, {{2, 1, 2}}, 1, 2);
    const Lines shown = ShownRoute();
    const Lines full = LinesOf(Network::PrintShortestRoute);
    EXPECT_EQ(Lines(full.begin() + 9, full.end()), shown);
}

TEST_F(NetworkReport, TheFullTreeReportEndsLikeTheScreen)
{
    GiveTree(2, {{2, 1, 2}});
    const Lines shown = ShownTree();
    const Lines full = LinesOf(Network::PrintSpanningTree);
    EXPECT_EQ(full[0], "     MINIMAL SPANNING TREE");
    EXPECT_EQ(full[1], "     *********************");
    EXPECT_EQ(full[4], "                      2 NODES AND 1 ARCS");
    EXPECT_EQ(full[8], "             1         2           1           2");
    EXPECT_EQ(Lines(full.begin() + 9, full.end()), shown);
}

TEST_F(NetworkReport, AMissingTreeIsWarnedOfInFull)
{
    GiveTree(3, {{2, 1, 2.345}});
    Problem.DecimalPlaces = 2.0;
    FindTree();
    const Lines full = LinesOf(Network::PrintSpanningTree);
    EXPECT_EQ(full[8], "             1         2           1        2.35");
    EXPECT_THAT(
        Lines(full.begin() + 9, full.end()),
        ElementsAre("     WARNING", "     *******", "          Please review the description of the network.",
                    "          A spanning tree does not exist for the network description",
                    "          you have provided."));
}

}  // namespace
