#include "basic/records.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "basic/error.h"

namespace {

namespace fs = std::filesystem;

ErrorNumber ErrorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{};
}

std::string Written(std::initializer_list<RecordWriter::Field> fields)
{
    RecordWriter writer;
    writer.Write(fields);
    return writer.Text();
}

TEST(RecordWriter, PutsCommasBetweenFieldsAndALineEndBehindThem)
{
    EXPECT_EQ(Written({1.0, 2.0, 3.0}), "1,2,3\r\n");
    EXPECT_EQ(Written({1.0}), "1\r\n");
    RecordWriter writer;
    writer.Write({1.0, std::string("A")});
    writer.Write({2.0});
    EXPECT_EQ(writer.Text(), "1,\"A\"\r\n2\r\n");
}

TEST(RecordWriter, PutsQuotesAroundTextsOnly)
{
    EXPECT_EQ(Written({std::string("YES"), std::string(), std::string("A, B")}), "\"YES\",\"\",\"A, B\"\r\n");
}

TEST(RecordWriter, PutsNothingForAnEmptyVariant)
{
    EXPECT_EQ(Written({Variant(), Variant(3), Variant()}), ",3,\r\n");
    EXPECT_EQ(Written({Variant(0)}), "0\r\n");
    EXPECT_EQ(Written({Variant()}), "\r\n");
}

TEST(RecordWriter, WritesTheShortestDecimalWithoutAnExponent)
{
    const std::vector<std::pair<double, std::string>> rows = {{0.1, "0.1"},
                                                              {-0.1, "-0.1"},
                                                              {12.6, "12.6"},
                                                              {-0.0, "0"},
                                                              {1e-7, "0.0000001"},
                                                              {1e22, "10000000000000000000000"},
                                                              {1e23, "100000000000000000000000"},
                                                              {1.0 / 36, "0.027777777777777776"},
                                                              {0.1 + 0.2, "0.30000000000000004"},
                                                              {123456.789, "123456.789"},
                                                              {-1500, "-1500"},
                                                              {9007199254740993.0, "9007199254740992"}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(Written({value}), text + "\r\n");
}

TEST(RecordWriter, RefusesWhatIsNoFiniteNumber)
{
    RecordWriter writer;
    EXPECT_EQ(ErrorOf([&] { writer.Write({std::numeric_limits<double>::infinity()}); }),
              ErrorNumber::Overflow);
}

TEST(RecordReader, ReadsFieldAfterFieldOverRecordEnds)
{
    RecordReader reader("1,-2.5\r\n\"A\",32767\r\n70000");
    EXPECT_EQ(reader.ReadDouble(), 1);
    EXPECT_EQ(reader.ReadDouble(), -2.5);
    EXPECT_EQ(reader.ReadString(), "A");
    EXPECT_EQ(reader.ReadInt16(), 32767);
    EXPECT_EQ(reader.ReadInt32(), 70000);
}

TEST(RecordReader, TakesEveryKindOfLineEnd)
{
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        RecordReader reader("1" + std::string(lineEnd) + "\"B\"" + lineEnd + "3");
        EXPECT_EQ(reader.ReadInt16(), 1);
        EXPECT_EQ(reader.ReadString(), "B");
        EXPECT_EQ(reader.ReadInt16(), 3);
        EXPECT_EQ(ErrorOf([&] { reader.ReadInt16(); }), ErrorNumber::InputPastEnd);
    }
}

TEST(RecordReader, FailsBehindTheLastField)
{
    for (const char* text : {"", "5\r\n", "5\n", "5"}) {
        RecordReader reader(text);
        if (*text != '\0') reader.ReadInt16();
        EXPECT_EQ(ErrorOf([&] { reader.ReadDouble(); }), ErrorNumber::InputPastEnd) << text;
        EXPECT_EQ(ErrorOf([&] { reader.ReadInt16(); }), ErrorNumber::InputPastEnd) << text;
        EXPECT_EQ(ErrorOf([&] { reader.ReadInt32(); }), ErrorNumber::InputPastEnd) << text;
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(reader.ReadVariant()); }), ErrorNumber::InputPastEnd)
            << text;
        EXPECT_EQ(ErrorOf([&] { reader.ReadString(); }), ErrorNumber::InputPastEnd) << text;
    }
}

TEST(RecordReader, PassesBlanksAroundNumbersOver)
{
    RecordReader reader("  7 ,\t8\t\r\n 9");
    EXPECT_EQ(reader.ReadInt16(), 7);
    EXPECT_EQ(reader.ReadInt16(), 8);
    EXPECT_EQ(reader.ReadInt16(), 9);
}

TEST(RecordReader, TakesNumbersInAllTheirForms)
{
    RecordReader reader(".5,-.5,+3,5.,1E3,2.5e-1");
    for (const double value : {0.5, -0.5, 3.0, 5.0, 1000.0, 0.25})
        EXPECT_EQ(reader.ReadDouble(), value);
}

TEST(RecordReader, FailsOnATextWhereANumberIsDue)
{
    const std::string nul(1, '\0');
    for (const std::string& text :
         {std::string("abc"), std::string("\"12\""), std::string("12x"), std::string("1 2"), std::string("-"),
          std::string("."), std::string("1.2.3"), std::string("inf"), std::string("nan"), std::string("0x10"),
          nul, "1" + nul}) {
        EXPECT_EQ(ErrorOf([&] { RecordReader(text).ReadDouble(); }), ErrorNumber::TypeMismatch) << text;
        EXPECT_EQ(ErrorOf([&] { RecordReader(text).ReadInt16(); }), ErrorNumber::TypeMismatch) << text;
        EXPECT_EQ(ErrorOf([&] { RecordReader(text).ReadInt32(); }), ErrorNumber::TypeMismatch) << text;
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(RecordReader(text).ReadVariant()); }),
                  ErrorNumber::TypeMismatch)
            << text;
    }
}

TEST(RecordReader, FailsOnANumberThatIsTooWide)
{
    EXPECT_EQ(RecordReader("-32768").ReadInt16(), -32768);
    EXPECT_EQ(ErrorOf([] { RecordReader("32768").ReadInt16(); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { RecordReader("1E5").ReadInt16(); }), ErrorNumber::Overflow);
    EXPECT_EQ(RecordReader("2147483647").ReadInt32(), 2147483647);
    EXPECT_EQ(ErrorOf([] { RecordReader("2147483648").ReadInt32(); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { RecordReader("1E999").ReadDouble(); }), ErrorNumber::Overflow);
}

TEST(RecordReader, RoundsAFractionForAWholeField)
{
    RecordReader reader("2.5,3.5,-1.4");
    EXPECT_EQ(reader.ReadInt16(), 2);
    EXPECT_EQ(reader.ReadInt32(), 4);
    EXPECT_EQ(reader.ReadInt16(), -1);
}

TEST(RecordReader, TakesNothingBetweenCommasAsAnEmptyFieldOrZero)
{
    RecordReader reader(",4,\r\n,,\r\n\r\n7");
    EXPECT_TRUE(reader.ReadVariant().IsEmpty());
    EXPECT_EQ(reader.ReadVariant(), Variant(4));
    EXPECT_TRUE(reader.ReadVariant().IsEmpty());
    EXPECT_EQ(reader.ReadInt16(), 0);
    EXPECT_EQ(reader.ReadDouble(), 0);
    EXPECT_EQ(reader.ReadString(), "");
    EXPECT_TRUE(reader.ReadVariant().IsEmpty());  // the line without anything
    EXPECT_EQ(reader.ReadInt32(), 7);
}

TEST(RecordReader, TakesTextsWithAndWithoutQuotes)
{
    RecordReader reader("  \"A, B\" , plain text ,\"\"\r\n\"two\r\nlines\",end");
    EXPECT_EQ(reader.ReadString(), "A, B");
    EXPECT_EQ(reader.ReadString(), "plain text ");
    EXPECT_EQ(reader.ReadString(), "");
    EXPECT_EQ(reader.ReadString(), "two\r\nlines");
    EXPECT_EQ(reader.ReadString(), "end");
}

TEST(RecordReader, FailsOnAQuoteThatIsNeverClosed)
{
    RecordReader reader("\"never closed\r\n1");
    EXPECT_EQ(ErrorOf([&] { reader.ReadString(); }), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOf([&] { reader.ReadString(); }), ErrorNumber::InputPastEnd);
}

TEST(Records, GiveEveryDoubleBack)
{
    std::mt19937_64 random(7);
    RecordWriter writer;
    std::vector<double> values;
    while (values.size() < 5000) {
        const std::uint64_t bits = random();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) continue;
        values.push_back(value);
        writer.Write({value});
    }
    EXPECT_EQ(writer.Text().find_first_of("eE"), std::string::npos);
    RecordReader reader(writer.Text());
    for (const double value : values)
        EXPECT_EQ(reader.ReadDouble(), value);
}

TEST(Records, GiveShortDecimalsBackAsTheyWereTyped)
{
    std::mt19937 random(11);
    for (int round = 0; round < 2000; ++round) {
        const int whole = static_cast<int>(random() % 100000);
        const std::string text = std::to_string(whole) + "." + std::to_string(1 + random() % 9);
        EXPECT_EQ(Written({RecordReader(text).ReadDouble()}), text + "\r\n");
    }
}

TEST(RecordReader, TakesAnyBytesWithoutHarm)
{
    std::mt19937 random(13);
    const std::string bytes = std::string("0123456789.,-+eE\"\r\n \tA") + '\0' + '\xFF';
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto length = random() % 40; length > 0; --length)
            text += bytes[random() % bytes.size()];
        RecordReader reader(text);
        int fields = 0;
        const std::function<void()> readAll = [&] {
            for (;; ++fields) {
                if (random() % 2 == 0)
                    reader.ReadString();
                else
                    reader.ReadDouble();
            }
        };
        EXPECT_NE(ErrorOf(readAll), ErrorNumber{});
        EXPECT_LE(fields, static_cast<int>(text.size()));
    }
}

// A folder of its own for each test.
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
    explicit SmallDisk(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit small{bytes, limit_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk()
    {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit_), 0);
        EXPECT_NE(std::signal(SIGXFSZ, handler_), SIG_ERR);
    }

private:
    rlimit limit_{};
    void (*handler_)(int);
};

class Files : public testing::Test {
protected:
    void SetUp() override
    {
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

TEST_F(Files, LeaveAStrangersTemporaryFileAlone)
{
    Put("a.TRN.1.tmp", "mine");
    ReplaceFile(Path("a.TRN"), "one");
    EXPECT_EQ(Contents("a.TRN.1.tmp"), "mine");
    EXPECT_EQ(Contents("a.TRN"), "one");
}

TEST_F(Files, KeepTheirPermissions)
{
    Put("a.TRN", "old");
    fs::permissions(Path("a.TRN"), fs::perms::owner_read | fs::perms::owner_write);
    ReplaceFile(Path("a.TRN"), "new");
    EXPECT_EQ(fs::status(Path("a.TRN")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
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
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(Path("a.TRN")); }), ErrorNumber::PermissionDenied);
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

TEST_F(Files, AreSavedAndReadAsRecords)
{
    RecordWriter writer;
    writer.Write({3.0, std::string("A")});
    writer.Save(Path("a.MRK"));
    EXPECT_EQ(Contents("a.MRK"), "3,\"A\"\r\n");
    RecordReader reader = RecordReader::FromFile(Path("a.MRK"));
    EXPECT_EQ(reader.ReadInt16(), 3);
    EXPECT_EQ(reader.ReadString(), "A");
}

TEST_F(Files, ThatAreMissingCannotBeRead)
{
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(Path("none.MRK")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(Path("none/none.MRK")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(folder.string()); }), ErrorNumber::PathFileAccess);
}

TEST_F(Files, ThatAreFarTooLargeAreNotRead)
{
    Put("a.MRK", "1");
    fs::resize_file(Path("a.MRK"), 8u << 20);
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(Path("a.MRK")).ReadDouble(); }),
              ErrorNumber::TypeMismatch);
    fs::resize_file(Path("a.MRK"), (8u << 20) + 1);
    EXPECT_EQ(ErrorOf([&] { RecordReader::FromFile(Path("a.MRK")); }), ErrorNumber::Overflow);
}

}  // namespace
