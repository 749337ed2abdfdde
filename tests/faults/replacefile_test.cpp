// Every call that replaces a file fails once, ends the program once and waits once for another program: the
// file is the old one or the new one, whole.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "basic/files.h"
#include "faults/faults.h"

namespace {

namespace fs = std::filesystem;

constexpr int kMostCalls = 30;  // far more than a save makes

const std::string& OldText()
{
    static const std::string text(3000, 'o');
    return text;
}

const std::string& NewText()
{
    static const std::string text(5000, 'n');
    return text;
}

const std::string& OtherText()
{
    static const std::string text(4000, 'x');
    return text;
}

class Faults : public testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        root = fs::path(testing::TempDir()) / ("vantrel_faults_" + std::to_string(getpid()));
        fs::remove_all(root);
        fs::create_directories(root);
    }
    void TearDown() override { fs::remove_all(root); }

    // The folder of an experiment, with the old file in it or without; the path of the file.
    [[nodiscard]] std::string Prepare(const std::string& experiment) const
    {
        fs::create_directory(root / experiment);
        std::string path = (root / experiment / "a.TRN").string();
        if (GetParam()) std::ofstream(path, std::ios::binary) << OldText();
        return path;
    }
    [[nodiscard]] std::optional<std::string> Before() const
    {
        return GetParam() ? std::optional(OldText()) : std::nullopt;
    }

    fs::path root;
};

std::optional<std::string> Contents(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    return std::string{std::istreambuf_iterator<char>(stream), {}};
}

long CountFiles(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

bool Saves(const std::string& path, const std::string& text)
{
    try {
        ReplaceFile(path, text);
    } catch (const RuntimeError&) {
        return false;
    }
    return true;
}

bool SavesUnderFaults(const fs::path& root, const std::string& path)
{
    faults::SetUnder(root.string());
    const bool saved = Saves(path, NewText());
    faults::SetUnder("");
    return saved;
}

// A program of its own, which ends with 0 when it has saved.
pid_t SaveApart(const fs::path& root, const std::string& path)
{
    const pid_t child = fork();
    if (child != 0) return child;
    _exit(SavesUnderFaults(root, path) ? 0 : 1);
}

std::string NameOf(int call, const std::string& fault)
{
    return (Faults::GetParam() ? "over-" : "new-") + std::to_string(call) + "-" + fault;
}

TEST_P(Faults, OfEachCallLeaveTheOldFileOrTheNewOneAndAreTold)
{
    for (const char* fault : {"EIO", "ENOSPC", "EACCES", "EDQUOT", "EMFILE", "EROFS"}) {
        int call = 1;
        int told = 0;
        for (; call < kMostCalls; ++call) {
            const std::string experiment = NameOf(call, fault);
            const std::string path = Prepare(experiment);
            const bool saved = SavesUnderFaults(root, path);
            told += saved ? 0 : 1;
            const auto now = Contents(path);
            EXPECT_TRUE(now == NewText() || (!saved && now == Before())) << experiment;
            EXPECT_EQ(CountFiles(root / experiment), now.has_value() ? 1 : 0) << experiment;
            if (!faults::Happened(experiment)) break;
            // Only a folder that may not be read is got around, by synchronising the whole file system.
            EXPECT_TRUE(!saved || std::string(fault) == "EACCES") << experiment;
        }
        EXPECT_LT(call, kMostCalls);
        // Open and close of the old file and of the new one, write, synchronise, rename; the folder's three.
        EXPECT_GE(told, GetParam() ? 9 : 7) << fault;
    }
}

TEST_P(Faults, ThatPassAreOvercome)
{
    for (const char* fault : {"EINTR", "SHORT"})
        for (int call = 1; call < kMostCalls; ++call) {
            const std::string path = Prepare(NameOf(call, fault));
            EXPECT_TRUE(SavesUnderFaults(root, path)) << call << fault;
            EXPECT_EQ(Contents(path), NewText()) << call << fault;
        }
    EXPECT_TRUE(faults::Happened(NameOf(7, "EINTR")));
}

// What cannot be asked for its kind is not taken for a file without a link.
TEST_P(Faults, OfTheQuestionForALinkLeaveTheLink)
{
    int call = 1;
    for (; call < kMostCalls; ++call) {
        const std::string experiment = NameOf(call, "LOST");
        const std::string path = Prepare(experiment);
        const std::string link = (root / experiment / "link.TRN").string();
        fs::create_symlink("a.TRN", link);
        const bool saved = SavesUnderFaults(root, link);
        EXPECT_TRUE(fs::is_symlink(link)) << experiment;
        EXPECT_EQ(Contents(path), saved ? NewText() : Before()) << experiment;
        if (!faults::Happened(experiment)) break;
    }
    EXPECT_GE(call, 3);
    EXPECT_LT(call, kMostCalls);
}

// Some file systems answer so when a file or a folder is to be synchronised: that is no fault.
TEST_P(Faults, OfSynchronisingWhereThereIsNothingToSynchroniseAreNone)
{
    for (const char* fault : {"EINVAL", "ENOTSUP"}) {
        int overcome = 0;
        for (int call = 1; call < kMostCalls; ++call) {
            const std::string experiment = NameOf(call, fault);
            const std::string path = Prepare(experiment);
            if (!SavesUnderFaults(root, path) || !faults::Happened(experiment)) continue;
            EXPECT_EQ(Contents(path), NewText()) << experiment;
            ++overcome;
        }
        EXPECT_EQ(overcome, 2) << fault;  // of the file and of its folder
    }
}

TEST_P(Faults, OfTheProgramAtEachCallLeaveTheOldFileOrTheNewOne)
{
    int call = 1;
    for (; call < kMostCalls; ++call) {
        const std::string experiment = NameOf(call, "KILL");
        const std::string path = Prepare(experiment);
        int status = 0;
        ASSERT_GT(waitpid(SaveApart(root, path), &status, 0), 0);
        const auto now = Contents(path);
        EXPECT_TRUE(now == NewText() || now == Before()) << experiment;
        EXPECT_LE(CountFiles(root / experiment), now.has_value() ? 2 : 1) << experiment;
        EXPECT_TRUE(Saves(path, OtherText()));
        EXPECT_EQ(Contents(path), OtherText());
        EXPECT_EQ(CountFiles(root / experiment), 1) << experiment;
        if (WIFEXITED(status)) break;
    }
    EXPECT_GE(call, 7);
    EXPECT_LT(call, kMostCalls);
}

TEST_P(Faults, OfTheProgramAtAnyMomentLeaveTheOldFileOrTheNewOne)
{
    constexpr int kKills = 200;
    constexpr int kLongestLife = 3000;  // microseconds
    std::mt19937 random(17);
    const std::string path = Prepare("kills");
    for (int i = 0; i < kKills; ++i) {
        const pid_t child = fork();
        if (child == 0)
            for (bool odd = false;; odd = !odd)
                Saves(path, odd ? NewText() : OtherText());
        usleep(static_cast<useconds_t>(random() % kLongestLife));
        kill(child, SIGKILL);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        const auto now = Contents(path);
        EXPECT_TRUE(now == NewText() || now == OtherText() || now == Before());
    }
    EXPECT_TRUE(Saves(path, NewText()));
    EXPECT_EQ(CountFiles(root / "kills"), 1);
}

// One program is halted before a call, the other one saves to the same name meanwhile.
TEST_P(Faults, OfOrderBetweenTwoProgramsLeaveOneOfTheirFiles)
{
    int call = 1;
    for (; call < kMostCalls; ++call) {
        const std::string experiment = NameOf(call, "STOP");
        const std::string path = Prepare(experiment);
        const pid_t child = SaveApart(root, path);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
        const bool stopped = WIFSTOPPED(status);
        EXPECT_TRUE(Saves(path, OtherText())) << experiment;
        EXPECT_EQ(Contents(path), OtherText()) << experiment;
        if (!stopped) break;
        ASSERT_EQ(kill(child, SIGCONT), 0);
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0) << experiment;
        const auto now = Contents(path);
        EXPECT_TRUE(now == NewText() || now == OtherText()) << experiment;
        EXPECT_EQ(CountFiles(root / experiment), 1) << experiment;
    }
    EXPECT_GE(call, 7);
    EXPECT_LT(call, kMostCalls);
}

INSTANTIATE_TEST_SUITE_P(New, Faults, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Existing, Faults, testing::Values(true));

}  // namespace
