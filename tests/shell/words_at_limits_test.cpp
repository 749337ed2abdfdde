// Steps and meaning of the largest problems come at once and stay small. The bound on time is generous, for
// builds that look at every access; tools/bench.sh gives the figures.
#include <gmock/gmock.h>

#include <chrono>

#include "desk.h"
#include "lp/LpSteps.h"
#include "lp/lp_problem.h"
#include "problems.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr double kMostSeconds = 2;
constexpr std::size_t kMostBytes = 5'000'000;

// With what the strings hold outside of themselves.
std::size_t BytesOf(const std::string& text)
{
    const std::size_t inside = std::string().capacity();
    return sizeof(std::string) + (text.capacity() > inside ? text.capacity() + 1 : 0);
}

std::size_t BytesOf(const std::vector<std::string>& lines)
{
    std::size_t bytes =
        sizeof(std::vector<std::string>) + (lines.capacity() - lines.size()) * sizeof(std::string);
    for (const std::string& line : lines)
        bytes += BytesOf(line);
    return bytes;
}

std::size_t BytesOf(const std::vector<picture::Step>& steps)
{
    std::size_t bytes = 0;
    for (const picture::Step& step : steps)
        bytes += BytesOf(step.Heading) + BytesOf(step.Why) + BytesOf(step.Picture) + BytesOf(step.Figures) +
                 BytesOf(step.Arithmetic) + BytesOf(step.Marks);
    return bytes;
}

double SecondsSince(std::chrono::steady_clock::time_point begun)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

class WordsAtLimits : public testing::TestWithParam<bench::ModuleSize> {};

TEST_P(WordsAtLimits, ComeAtOnceAndStaySmall)
{
    bench::Desk desk(GetParam().Module, GetParam().Limit);
    desk.Solve();
    const ModuleRoutines& routines = *CurrentModule().Routines;
    auto begun = std::chrono::steady_clock::now();
    const auto steps = routines.Steps();
    EXPECT_LT(SecondsSince(begun), kMostSeconds);
    EXPECT_FALSE(steps.empty());
    EXPECT_LT(BytesOf(steps), kMostBytes);
    begun = std::chrono::steady_clock::now();
    const auto meaning = routines.Meaning();
    EXPECT_LT(SecondsSince(begun), kMostSeconds);
    EXPECT_FALSE(meaning.empty());
    EXPECT_LE(meaning.size(), 12U);
}

INSTANTIATE_TEST_SUITE_P(Modules, WordsAtLimits, testing::ValuesIn(bench::kLimits));

// Beale's example goes round for ever; 47 more rows make its steps as long as steps get.
TEST(WordsOfACycle, AThousandStepsStaySmall)
{
    FakeDesktop desktop;
    Lp lp{false,
          {.75, -150, .02, -6},
          {{{.25, -60, -.04, 9}, '<', 0}, {{.5, -90, -.02, 3}, '<', 0}, {{0, 0, 1, 0}, '<', 1}}};
    for (int i = 0; i < 47; ++i)
        lp.Rows.push_back({{1, 1, 1, 1}, '<', 1000.0 + i});
    desktop.screen.escapePressed = true;
    Solve(lp);
    desktop.screen.escapePressed = false;
    const auto steps = picture::Kept(LP_Engine::Steps(LP_Engine::Result));
    EXPECT_EQ(steps.size(), 1001U);  // with the line that tells how many are left out
    RecordProperty("bytes", static_cast<int>(BytesOf(steps)));
    EXPECT_LT(BytesOf(steps), kMostBytes);
}

}  // namespace
