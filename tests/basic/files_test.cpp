#include "basic/files.h"
#include "support/errors.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#ifdef __linux__
#include <sys/xattr.h>
#endif

#include <array>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

// The superuser may write anywhere, so that for the length of a test he is another user, who owns the folder.
class AnyUser {
public:
    explicit AnyUser(const fs::path& folder)
    {
        if (geteuid() != 0) return;
        for (const auto& entry : fs::directory_iterator(folder))
            EXPECT_EQ(chown(entry.path().c_str(), kNobody, kNobody), 0);
        EXPECT_EQ(chown(folder.c_str(), kNobody, kNobody), 0);
        EXPECT_EQ(seteuid(kNobody), 0);
        switched_ = true;
    }
    AnyUser(const AnyUser&) = delete;
    AnyUser& operator=(const AnyUser&) = delete;
    ~AnyUser() { EXPECT_TRUE(!switched_ || seteuid(0) == 0); }

private:
    static constexpr uid_t kNobody = 65534;
    bool switched_ = false;
};

// Files longer than this many bytes end as on a disk that has no more room.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit small{bytes, limit_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() { EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit_), 0); }

private:
    rlimit limit_{};
};

// A folder of its own for each test.
class Files : public testing::Test {
protected:
    void SetUp() override
    {
        TakeSizeLimitAsError();
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        folder = fs::path(testing::TempDir()) / (std::string("vantrel_records_") + test->name());
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    [[nodiscard]] std::string Path(const std::string& name) const { return (folder / name).string(); }
    void Put(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::binary) << text;
    }
    [[nodiscard]] std::string Contents(const std::string& name) const
    {
        std::ifstream stream(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    [[nodiscard]] long CountFiles() const
    {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    fs::path folder;
};

TEST_F(Files, AreWrittenWholeAndLeaveNothingBeside)
{
    ReplaceFile(Path("a.TRN"), "one\r\n");
    EXPECT_EQ(Contents("a.TRN"), "one\r\n");
    ReplaceFile(Path("a.TRN"), "two");
    EXPECT_EQ(Contents("a.TRN"), "two");
    EXPECT_EQ(CountFiles(), 1);
}

TEST_F(Files, MayHaveAnyName)
{
    for (const char* name : {"no extension", "a.S&S", "\xC3\xA4 \xE2\x82\xAC.INV"}) {
        ReplaceFile(Path(name), name);
        EXPECT_EQ(Contents(name), name);
    }
}

TEST_F(Files, AreReplacedBehindALink)
{
    Put("real.TRN", "old");
    fs::create_symlink(Path("real.TRN"), Path("link.TRN"));
    ReplaceFile(Path("link.TRN"), "new");
    EXPECT_TRUE(fs::is_symlink(Path("link.TRN")));
    EXPECT_EQ(Contents("real.TRN"), "new");
}

TEST_F(Files, CannotBeWrittenIntoAMissingFolder)
{
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("none/a.TRN"), "x"); }), ErrorNumber::PathNotFound);
}

TEST_F(Files, CannotTakeTheNameOfAFolder)
{
    fs::create_directory(Path("a.TRN"));
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("a.TRN"), "x"); }), ErrorNumber::PathFileAccess);
    EXPECT_TRUE(fs::is_directory(Path("a.TRN")));
}

TEST_F(Files, FillADeviceInPlace)
{
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no such device here";
    EXPECT_EQ(ErrorOf([] { ReplaceFile("/dev/full", "x"); }), ErrorNumber::DiskFull);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    ReplaceFile("/dev/null", "x");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(Files, StayAsTheyWereInAFolderWithoutPermission)
{
    Put("a.TRN", "old");
    const AnyUser user(folder);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("a.TRN"), "new"); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("b.TRN"), "new"); }), ErrorNumber::PermissionDenied);
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(Contents("a.TRN"), "old");
    EXPECT_EQ(CountFiles(), 1);
}

TEST_F(Files, ThatAreWriteProtectedStayAsTheyWere)
{
    Put("a.TRN", "old");
    const AnyUser user(folder);
    fs::permissions(Path("a.TRN"), fs::perms::owner_read);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("a.TRN"), "new"); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(Contents("a.TRN"), "old");
}

TEST_F(Files, ThatCanBeWrittenAreLeftAloneByTheQuestion)
{
    Put("a.TRN", "old");
    RequireWritable(Path("a.TRN"));
    RequireWritable(Path("b.TRN"));
    EXPECT_EQ(Contents("a.TRN"), "old");
    EXPECT_EQ(CountFiles(), 1);
}

TEST_F(Files, ThatCannotBeWrittenAreToldBeforehand)
{
    Put("a.TRN", "old");
    fs::create_directory(Path("folder.TRN"));
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("none/a.TRN")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("folder.TRN")); }), ErrorNumber::PathFileAccess);
    const AnyUser user(folder);
    fs::permissions(Path("a.TRN"), fs::perms::owner_read);
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("a.TRN")); }), ErrorNumber::PermissionDenied);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("b.TRN")); }), ErrorNumber::PermissionDenied);
    fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(Files, WithoutPermissionAreNotRead)
{
    Put("a.TRN", "3");
    const AnyUser user(folder);
    fs::permissions(Path("a.TRN"), fs::perms::none);
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("a.TRN")); }), ErrorNumber::PermissionDenied);
}

TEST_F(Files, InAFolderThatMayNotBeSearchedAreNotRead)
{
    Put("a.TRN", "3");
    const AnyUser user(folder);
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("a.TRN")); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("none.TRN")); }), ErrorNumber::PermissionDenied);
    fs::permissions(folder, fs::perms::owner_all);
}

// It can be opened, and nothing lies at the beginning of a process's memory.
TEST_F(Files, ThatFailWhileTheyAreReadAreNoEmptyOnes)
{
    if (!fs::exists("/proc/self/mem")) GTEST_SKIP() << "no such file here";
    EXPECT_EQ(ErrorOf([] { ReadFile("/proc/self/mem"); }), ErrorNumber::PathFileAccess);
}

TEST_F(Files, StayAsTheyWereWhenTheDiskFillsUpHalfWay)
{
    Put("a.TRN", "old");
    const SmallDisk disk(4096);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("a.TRN"), std::string(100000, 'x')); }), ErrorNumber::DiskFull);
    EXPECT_EQ(Contents("a.TRN"), "old");
    EXPECT_EQ(CountFiles(), 1);
    ReplaceFile(Path("a.TRN"), std::string(4096, 'x'));  // it just fits
    EXPECT_EQ(Contents("a.TRN").size(), 4096U);
}

TEST_F(Files, CannotBeWrittenIntoAFolderThatIsGone)
{
    fs::remove_all(folder);
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("a.TRN"), "new"); }), ErrorNumber::PathNotFound);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(Files, AreReadWhole)
{
    Put("a.MRK", std::string("3,\"A\"\r\n\0\xFF", 9));
    EXPECT_EQ(ReadFile(Path("a.MRK")), std::string("3,\"A\"\r\n\0\xFF", 9));
}

TEST_F(Files, ThatAreMissingCannotBeRead)
{
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("none.MRK")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("none/none.MRK")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder.string()); }), ErrorNumber::PathFileAccess);
}

TEST_F(Files, ThatAreFarTooLargeAreNotRead)
{
    constexpr std::uintmax_t kLargest = 8u << 20;
    Put("a.MRK", "1");
    fs::resize_file(Path("a.MRK"), kLargest);
    EXPECT_EQ(ReadFile(Path("a.MRK")).size(), kLargest);
    fs::resize_file(Path("a.MRK"), kLargest + 1);
    EXPECT_EQ(ErrorOf([&] { ReadFile(Path("a.MRK")); }), ErrorNumber::Overflow);
}

// ---- what a replaced file keeps ----

struct stat StatusOf(const std::string& path)
{
    struct stat status {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status;
}

mode_t ModeOf(const std::string& path)
{
    return StatusOf(path).st_mode & 07777;
}

TEST_F(Files, KeepTheirModeWithoutSetUserAndSetGroup)
{
    Put("a.TRN", "old");
    for (const auto& [old, kept] : {std::pair{0600, 0600}, std::pair{0666, 0666}, std::pair{0604, 0604},
                                    std::pair{0755, 0755}, std::pair{06775, 0775}}) {
        ASSERT_EQ(chmod(Path("a.TRN").c_str(), static_cast<mode_t>(old)), 0);
        ReplaceFile(Path("a.TRN"), "new");
        EXPECT_EQ(ModeOf(Path("a.TRN")), static_cast<mode_t>(kept)) << std::oct << old;
    }
}

TEST_F(Files, ThatAreNewHaveTheModeOfTheAccount)
{
    const mode_t before = umask(022);
    ReplaceFile(Path("a.TRN"), "new");
    umask(077);
    ReplaceFile(Path("b.TRN"), "new");
    EXPECT_EQ(umask(before), 077U);  // it is as it was
    EXPECT_EQ(ModeOf(Path("a.TRN")), 0644U);
    EXPECT_EQ(ModeOf(Path("b.TRN")), 0600U);
}

TEST_F(Files, KeepTheirOwnerAndGroupUnderTheSuperuser)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    Put("a.TRN", "old");
    ASSERT_EQ(chown(Path("a.TRN").c_str(), 1234, 2345), 0);
    ASSERT_EQ(chmod(Path("a.TRN").c_str(), 0660), 0);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(StatusOf(Path("a.TRN")).st_uid, 1234U);
    EXPECT_EQ(StatusOf(Path("a.TRN")).st_gid, 2345U);
    EXPECT_EQ(ModeOf(Path("a.TRN")), 0660U);
}

TEST_F(Files, GiveAnotherGroupNoMoreThanEverybodyHas)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    Put("a.TRN", "old");
    const AnyUser user(folder);
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(chown(Path("a.TRN").c_str(), static_cast<uid_t>(-1), 2345), 0);
    ASSERT_EQ(chmod(Path("a.TRN").c_str(), 0664), 0);
    ASSERT_EQ(setegid(65534), 0);
    ASSERT_EQ(seteuid(65534), 0);
    ReplaceFile(Path("a.TRN"), "new");  // by its owner, who is not of its group
    EXPECT_NE(StatusOf(Path("a.TRN")).st_gid, 2345U);
    EXPECT_EQ(ModeOf(Path("a.TRN")), 0644U);
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(setegid(0), 0);
}

#ifdef __linux__
TEST_F(Files, KeepTheirExtendedAttributes)
{
    Put("a.TRN", "old");
    const std::string path = Path("a.TRN");
    if (setxattr(path.c_str(), "user.colour", "blue", 4, 0) != 0)
        GTEST_SKIP() << "this file system has no attributes";
    ASSERT_EQ(setxattr(path.c_str(), "user.empty", "", 0, 0), 0);
    ReplaceFile(path, "new");
    std::array<char, 16> value{};
    EXPECT_EQ(getxattr(path.c_str(), "user.colour", value.data(), value.size()), 4);
    EXPECT_EQ(std::string(value.data()), "blue");
    EXPECT_EQ(getxattr(path.c_str(), "user.empty", value.data(), value.size()), 0);
    EXPECT_EQ(Contents("a.TRN"), "new");
}

// ---- lists of rights beside the mode ----

constexpr unsigned kOwner = 1, kUser = 2, kGroup = 4, kMask = 16, kOther = 32;  // whom a right is given to
constexpr unsigned kWholeDigit = 8;

struct Right {
    unsigned Whom;
    unsigned Bits;  // 4 to read, 2 to write, 1 to execute
    unsigned Id = 0xFFFFFFFF;
};

// As the system stores them: the version 2, then 2, 2 and 4 bytes for each, the low byte first.
std::string ListOf(const std::vector<Right>& rights)
{
    std::string list;
    const auto append = [&list](unsigned number, unsigned bytes) {
        for (unsigned i = 0; i < bytes; ++i)
            list += static_cast<char>(static_cast<unsigned char>(number >> (kWholeDigit * i)));
    };
    append(2, 4);
    for (const Right& right : rights) {
        append(right.Whom, 2);
        append(right.Bits, 2);
        append(right.Id, 4);
    }
    return list;
}

std::string AccessListOf(const std::string& path)
{
    std::string list(200, '\0');
    const ssize_t size = getxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size());
    list.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
    return list;
}

bool GiveList(const std::string& path, const char* kind, const std::string& list)
{
    return setxattr(path.c_str(), kind, list.data(), list.size(), 0) == 0;
}

TEST_F(Files, KeepTheirListOfRights)
{
    Put("a.TRN", "old");
    const std::string list = ListOf({{kOwner, 6}, {kUser, 6, 1234}, {kGroup, 4}, {kMask, 6}, {kOther, 0}});
    if (!GiveList(Path("a.TRN"), "system.posix_acl_access", list)) GTEST_SKIP() << "no such lists here";
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(AccessListOf(Path("a.TRN")), list);
    EXPECT_EQ(ModeOf(Path("a.TRN")), 0660U);
}

TEST_F(Files, GiveAnotherGroupNoMoreThanEverybodyInTheirListEither)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    Put("a.TRN", "old");
    const auto list = [](unsigned group) {
        return ListOf({{kOwner, 6}, {kUser, 6, 1234}, {kGroup, group}, {kMask, 6}, {kOther, 4}});
    };
    const AnyUser user(folder);
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(chown(Path("a.TRN").c_str(), static_cast<uid_t>(-1), 2345), 0);
    const bool given = GiveList(Path("a.TRN"), "system.posix_acl_access", list(6));
    ASSERT_EQ(setegid(65534), 0);
    ASSERT_EQ(seteuid(65534), 0);
    if (given) ReplaceFile(Path("a.TRN"), "new");  // by its owner, who is not of its group
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(setegid(0), 0);
    if (!given) GTEST_SKIP() << "no such lists here";
    EXPECT_NE(StatusOf(Path("a.TRN")).st_gid, 2345U);
    EXPECT_EQ(AccessListOf(Path("a.TRN")), list(4));
}

// What the folder tells for new files goes before the mask of the account.
TEST_F(Files, ThatAreNewHaveTheRightsThatTheirFolderGives)
{
    const std::string shared = ListOf({{kOwner, 7}, {kUser, 7, 1234}, {kGroup, 5}, {kMask, 7}, {kOther, 0}});
    const std::string simple = ListOf({{kOwner, 7}, {kGroup, 7}, {kOther, 4}});
    for (const std::string& list : {shared, simple}) {
        if (!GiveList(folder.string(), "system.posix_acl_default", list))
            GTEST_SKIP() << "no such lists here";
        fs::remove(Path("a.TRN"));
        fs::remove(Path("b.TRN"));
        const int plain = open(Path("a.TRN").c_str(), O_WRONLY | O_CREAT, 0666);
        ASSERT_GE(plain, 0);
        close(plain);
        ReplaceFile(Path("b.TRN"), "new");
        EXPECT_EQ(ModeOf(Path("b.TRN")), ModeOf(Path("a.TRN")));
        EXPECT_EQ(AccessListOf(Path("b.TRN")), AccessListOf(Path("a.TRN")));
    }
    EXPECT_EQ(ModeOf(Path("b.TRN")), 0664U);
}

TEST_F(Files, WithoutAListOfRightsGetNoneFromTheirFolder)
{
    Put("a.TRN", "old");
    ASSERT_EQ(chmod(Path("a.TRN").c_str(), 0640), 0);
    const std::string list = ListOf({{kOwner, 7}, {kUser, 7, 1234}, {kGroup, 5}, {kMask, 7}, {kOther, 5}});
    if (!GiveList(folder.string(), "system.posix_acl_default", list)) GTEST_SKIP() << "no such lists here";
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(AccessListOf(Path("a.TRN")), "");
    EXPECT_EQ(ModeOf(Path("a.TRN")), 0640U);
}
#endif

// ---- links ----

TEST_F(Files, AreMadeBehindALinkToNothing)
{
    fs::create_directory(Path("deep"));
    fs::create_symlink("deep/second", Path("first"));
    fs::create_symlink("../real.TRN", Path("deep/second"));
    RequireWritable(Path("first"));
    EXPECT_FALSE(fs::exists(Path("real.TRN")));
    ReplaceFile(Path("first"), "new");
    EXPECT_EQ(Contents("real.TRN"), "new");
    ReplaceFile(Path("first"), "newer");
    EXPECT_EQ(Contents("real.TRN"), "newer");
    EXPECT_TRUE(fs::is_symlink(Path("first")) && fs::is_symlink(Path("deep/second")));
    EXPECT_EQ(CountFiles(), 3);  // deep, first and real.TRN
}

TEST_F(Files, CannotBeMadeBehindALinkIntoAMissingFolder)
{
    fs::create_symlink("none/real.TRN", Path("link"));
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("link"), "new"); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("link")); }), ErrorNumber::PathNotFound);
    EXPECT_TRUE(fs::is_symlink(Path("link")));
}

TEST_F(Files, CannotBeMadeBehindALoopOfLinks)
{
    fs::create_symlink("second", Path("first"));
    fs::create_symlink("first", Path("second"));
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path("first"), "new"); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { RequireWritable(Path("first")); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(CountFiles(), 2);
}

// The guide tells so: writing into the shared file could leave half of it under both names.
TEST_F(Files, LeaveTheOldTextToASecondName)
{
    Put("a.TRN", "old");
    fs::create_hard_link(Path("a.TRN"), Path("b.TRN"));
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(Contents("a.TRN"), "new");
    EXPECT_EQ(Contents("b.TRN"), "old");
}

// ---- names ----

TEST_F(Files, MayHaveTheLongestNamesOfTheSystem)
{
    for (const std::size_t length : {250U, 254U, 255U}) {
        const std::string name(length, 'n');
        RequireWritable(Path(name));
        ReplaceFile(Path(name), "one");
        ReplaceFile(Path(name), name);
        EXPECT_EQ(Contents(name), name);
    }
    EXPECT_EQ(ErrorOf([&] { ReplaceFile(Path(std::string(256, 'n')), ""); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(CountFiles(), 3);
}

TEST_F(Files, MayHaveNamesThatMeanSomethingElsewhere)
{
    for (const char* name :
         {" ", "...", "-rf", "a\nb", "\"a\" \"b\"", "%s%n", "*", "~", "\\", "\xFF\xFE", ".tmp"}) {
        ReplaceFile(Path(name), "one");
        ReplaceFile(Path(name), name);
        EXPECT_EQ(Contents(name), name);
    }
    EXPECT_EQ(CountFiles(), 11);
}

TEST_F(Files, AreFoundFromTheCurrentFolder)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    ReplaceFile("a.TRN", "new");
    EXPECT_EQ(ReadFile("a.TRN"), "new");
    fs::current_path(before);
    EXPECT_EQ(Contents("a.TRN"), "new");
    EXPECT_EQ(CountFiles(), 1);
}

// ---- temporary files ----

class TemporaryFiles : public Files {
protected:
    // What stands beside a.TRN after a save to it that was killed; it stopped where the disk was full.
    std::string LeaveOne()
    {
        const pid_t child = fork();
        if (child == 0) {
            const SmallDisk disk(4096);
            EXPECT_NE(std::signal(SIGXFSZ, SIG_DFL), SIG_ERR);
            ReplaceFile(Path("a.TRN"), std::string(100000, 'x'));
            _exit(0);
        }
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
        std::string left;
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.path().filename() != "a.TRN") left = entry.path().string();
        return left;
    }
};

TEST_F(TemporaryFiles, AreForTheirOwnerAlone)
{
    Put("a.TRN", "old");
    const std::string left = LeaveOne();
    ASSERT_NE(left, "");
    EXPECT_EQ(ModeOf(left), 0600U);
    EXPECT_EQ(Contents("a.TRN"), "old");
}

TEST_F(TemporaryFiles, ThatAKillHasLeftGoWithTheNextSaveToTheName)
{
    const std::string left = LeaveOne();
    EXPECT_EQ(LeaveOne(), left);
    EXPECT_EQ(CountFiles(), 1);
    ReplaceFile(Path("b.TRN"), "another");
    EXPECT_TRUE(fs::exists(left));
    RequireWritable(Path("a.TRN"));
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(LeaveOne(), left);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(Contents("a.TRN"), "new");
    EXPECT_EQ(CountFiles(), 2);
}

// The superuser may be ended when the new file already has the owner of the old one.
TEST_F(TemporaryFiles, ThatTheSuperuserHasGivenAwayGoToo)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    Put("a.TRN", "old");
    const std::string left = LeaveOne();
    ASSERT_EQ(chown(left.c_str(), 1234, 2345), 0);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(CountFiles(), 1);
}

// In a folder of many users a file of another one is not ours to remove.
TEST_F(TemporaryFiles, OfAnotherUserAreLeftAlone)
{
    if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
    const std::string left = LeaveOne();
    const AnyUser user(folder);
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(chown(left.c_str(), 1234, 2345), 0);
    ASSERT_EQ(chmod(left.c_str(), 0666), 0);
    ASSERT_EQ(seteuid(65534), 0);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_TRUE(fs::exists(left));
    EXPECT_EQ(Contents("a.TRN"), "new");
}

TEST_F(TemporaryFiles, ThatAnotherProgramUsesAreLeftAlone)
{
    const std::string left = LeaveOne();
    const int used = open(left.c_str(), O_RDONLY);
    ASSERT_EQ(flock(used, LOCK_EX), 0);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(Contents("a.TRN"), "new");
    EXPECT_TRUE(fs::exists(left));
    close(used);
    ReplaceFile(Path("a.TRN"), "newer");
    EXPECT_FALSE(fs::exists(left));
}

TEST_F(TemporaryFiles, DoNotTakeThePlaceOfAnythingElse)
{
    const std::string left = LeaveOne();
    Put("mine", "mine");
    const std::vector<std::function<void()>> things = {
        [&] { fs::create_symlink(Path("mine"), left); },
        [&] { fs::create_hard_link(Path("mine"), left); },
        [&] { fs::create_directory(left); },
        [&] { EXPECT_EQ(mkfifo(left.c_str(), 0600), 0); },
    };
    for (const auto& make : things) {
        fs::remove(left);
        make();
        ReplaceFile(Path("a.TRN"), "new");
        EXPECT_TRUE(fs::exists(fs::symlink_status(left)));
        EXPECT_EQ(Contents("mine"), "mine");
        EXPECT_EQ(Contents("a.TRN"), "new");
    }
}

// Two programs that save to one name, over and over: it holds the text of one of them, whole, at every
// moment.
TEST_F(TemporaryFiles, OfTwoProgramsDoNotMix)
{
    constexpr int kRounds = 60;
    const std::array texts = {std::string(20000, 'a'), std::string(30000, 'b')};
    ReplaceFile(Path("a.TRN"), texts[0]);
    std::array<pid_t, 2> children{};
    for (std::size_t i = 0; i < children.size(); ++i) {
        children[i] = fork();
        if (children[i] != 0) continue;
        for (int round = 0; round < kRounds; ++round)
            ReplaceFile(Path("a.TRN"), texts[i]);
        _exit(0);
    }
    int running = 2;
    while (running > 0) {
        const std::string seen = ReadFile(Path("a.TRN"));
        EXPECT_TRUE(seen == texts[0] || seen == texts[1]) << seen.size();
        int status = 0;
        if (waitpid(-1, &status, WNOHANG) <= 0) continue;
        EXPECT_EQ(status, 0);
        --running;
    }
    EXPECT_EQ(CountFiles(), 1);
}

}  // namespace
