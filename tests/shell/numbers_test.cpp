#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "basic/records.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

namespace {

constexpr int kDecision = 10;

class NumbersOfModules : public testing::Test {
protected:
    static std::vector<std::string> SamplesOf(const Module& module)
    {
        std::vector<std::string> samples;
        for (const auto& entry : std::filesystem::directory_iterator(PROBLEMS))
            if (entry.path().extension() == "." + module.Extension) samples.push_back(entry.path().string());
        std::sort(samples.begin(), samples.end());
        return samples;
    }

    void Open(const std::string& path)
    {
        desktop.dialogs.files = {path};
        Commands::Open();
    }

    static std::string Written()
    {
        RecordWriter file;
        CurrentModule().Routines->Write(file);
        return file.Text();
    }

    FakeDesktop desktop;
};

// What undoing an entry gives back is the whole problem, whatever stood there meanwhile. Linear programs have
// their numbers in the grids; the sizes of a decision problem do not change.
TEST_F(NumbersOfModules, GiveTheProblemBack)
{
    int compared = 0;
    for (int number = 1; number <= kModuleCount; ++number) {
        const Module& module = ModuleOf(number);
        if (!module.Routines->Numbers || module.ProblemForm == "frmLPproblem") continue;
        const std::vector<std::string> samples = SamplesOf(module);
        ASSERT_GE(samples.size(), 2U) << module.Option;
        for (const std::string& sample : samples) {
            SCOPED_TRACE(module.Option + " " + sample);
            Commands::Start();
            Commands::SelectModule(number);
            Commands::ChooseModule();
            Open(sample);
            const std::string text = Written();
            const std::vector<double> numbers = module.Routines->Numbers();
            if (number == kDecision)
                module.Routines->TakeNumbers(std::vector<double>(numbers.size()));
            else
                Open(sample == samples.front() ? samples.back() : samples.front());
            EXPECT_NE(Written(), text);
            module.Routines->TakeNumbers(numbers);
            EXPECT_EQ(Written(), text);
            EXPECT_EQ(module.Routines->Numbers(), numbers);
            ++compared;
        }
    }
    EXPECT_GE(compared, 2 * 8);
}

}  // namespace
