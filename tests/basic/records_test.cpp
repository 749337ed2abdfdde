#include "basic/records.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "basic/error.h"
#include "support/errors.h"

namespace {

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
          std::string("."), std::string("1.2.3"), std::string("1E"), std::string("inf"), std::string("nan"),
          std::string("0x10"), nul, "1" + nul}) {
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

TEST(RecordReader, TakesNothingBeforeALineFeedAloneAsAnEmptyField)
{
    RecordReader reader("1,\n\n2");
    EXPECT_EQ(reader.ReadInt16(), 1);
    EXPECT_TRUE(reader.ReadVariant().IsEmpty());  // behind the comma
    EXPECT_TRUE(reader.ReadVariant().IsEmpty());  // the line without anything
    EXPECT_EQ(reader.ReadInt16(), 2);
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

TEST(Records, GiveATextWithQuotesBack)
{
    for (const char* text : {"\"", "\"\"", "a\"b", "\"a\"", "a\"\"b", "\",\"", "a\"", "\"\r\n\""}) {
        RecordReader reader(Written({std::string(text), 7.0, std::string()}));
        EXPECT_EQ(reader.ReadString(), text);
        EXPECT_EQ(reader.ReadDouble(), 7) << text;
        EXPECT_EQ(reader.ReadString(), "");
    }
    EXPECT_EQ(Written({std::string("5\" pipe")}), "\"5\"\" pipe\"\r\n");
}

TEST(RecordReader, PassesAByteOrderMarkOver)
{
    const std::string mark = "\xEF\xBB\xBF";
    EXPECT_EQ(RecordReader(mark + "3\r\n").ReadInt16(), 3);
    EXPECT_EQ(RecordReader(mark + "\"A\"").ReadString(), "A");
    EXPECT_EQ(ErrorOf([&] { RecordReader(mark).ReadString(); }), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOf([&] { RecordReader("1" + mark).ReadDouble(); }), ErrorNumber::TypeMismatch);
}

// "3,"A<e acute><euro><clef>"" in UTF-16: U+00E9, U+20AC, U+1D11E as the pair D834 DD1E.
TEST(RecordReader, ReadsUtf16OfBothOrdersByItsMark)
{
    using namespace std::string_literals;
    const std::string low = "\xFF\xFE"s + "3\0,\0\"\0A\0\xE9\0\xAC\x20\x34\xD8\x1E\xDD\"\0"s;
    std::string high;
    for (std::size_t i = 0; i < low.size(); i += 2)
        high += {low[i + 1], low[i]};
    for (const std::string& text : {low, high}) {
        RecordReader reader(text);
        EXPECT_EQ(reader.ReadInt16(), 3);
        EXPECT_EQ(reader.ReadString(), "A\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E");
    }
    // Half a pair at the end, and half a unit, do no harm.
    EXPECT_EQ(RecordReader("\xFF\xFE\x34\xD8"s).ReadString(), "\xED\xA0\xB4");
    EXPECT_EQ(RecordReader("\xFF\xFE\x34\xD8\x41\x00\x42"s).ReadString(),
              "\xED\xA0\xB4"
              "A");
    // D834 DC, higher byte first: the byte at the end makes no second half with what lies behind the text.
    EXPECT_EQ(RecordReader("\xFE\xFF\xD8\x34\xDC"s).ReadString(), "\xED\xA0\xB4");
}

// The UTF-16 units of `characters`, lower bytes first, read as a text.
std::string ReadUtf16(const std::vector<std::uint16_t>& units)
{
    std::string text = "\xFF\xFE";
    for (const std::uint16_t unit : units) {
        text += static_cast<char>(unit & 0xFF);
        text += static_cast<char>(unit >> 8);
    }
    return RecordReader(text).ReadString();
}

// Each is the first or the last of its number of bytes, or stands beside the halves of pairs, D800 to DFFF.
TEST(RecordReader, WritesUtf16CharactersWithTheirNumberOfBytes)
{
    EXPECT_EQ(ReadUtf16({0x7F}), "\x7F");
    EXPECT_EQ(ReadUtf16({0x80}), "\xC2\x80");
    EXPECT_EQ(ReadUtf16({0x7FF}), "\xDF\xBF");
    EXPECT_EQ(ReadUtf16({0x800}), "\xE0\xA0\x80");
    EXPECT_EQ(ReadUtf16({0xD7FF, 0x41}),
              "\xED\x9F\xBF"
              "A");
    EXPECT_EQ(ReadUtf16({0xD7FF, 0xDC00}), "\xED\x9F\xBF\xED\xB0\x80");
    EXPECT_EQ(ReadUtf16({0xE000, 0x41}),
              "\xEE\x80\x80"
              "A");
    EXPECT_EQ(ReadUtf16({0xFFFF}), "\xEF\xBF\xBF");
}

// D800 to DBFF come first, DC00 to DFFF second; every other order stands as it is.
TEST(RecordReader, JoinsTheHalvesOfAPair)
{
    EXPECT_EQ(ReadUtf16({0xD800, 0xDC00}), "\xF0\x90\x80\x80");  // U+10000
    EXPECT_EQ(ReadUtf16({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF");  // U+10FFFF
    EXPECT_EQ(ReadUtf16({0xD801, 0xDC01}), "\xF0\x90\x90\x81");  // U+10401
    EXPECT_EQ(ReadUtf16({0xD800, 0xDBFF}), "\xED\xA0\x80\xED\xAF\xBF");
    EXPECT_EQ(ReadUtf16({0xD800, 0xE000}), "\xED\xA0\x80\xEE\x80\x80");
    EXPECT_EQ(ReadUtf16({0xDC00, 0xDC00}), "\xED\xB0\x80\xED\xB0\x80");
    EXPECT_EQ(ReadUtf16({0xD800}), "\xED\xA0\x80");
}

TEST(RecordReader, ACountIsNotNegative)
{
    EXPECT_EQ(RecordReader("0").ReadCount(), 0);
    EXPECT_EQ(RecordReader("1").ReadCount(), 1);
    EXPECT_EQ(ErrorOf([] { RecordReader("-1").ReadCount(); }), ErrorNumber::SubscriptOutOfRange);
}

TEST(RecordReader, AQuoteThatIsNeverClosedTakesTheRestOfTheFile)
{
    RecordReader reader("\"A,1\r\n2");
    EXPECT_EQ(ErrorOf([&] { reader.ReadString(); }), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOf([&] { reader.ReadDouble(); }), ErrorNumber::InputPastEnd);
}

TEST(Records, AreReadBackFromTheirFile)
{
    const std::string path = testing::TempDir() + "vantrel_records.MRK";
    RecordWriter writer;
    writer.Write({2.5, std::string("A")});
    writer.Save(path);
    RecordReader reader = RecordReader::FromFile(path);
    EXPECT_EQ(reader.ReadDouble(), 2.5);
    EXPECT_EQ(reader.ReadString(), "A");
    std::filesystem::remove(path);
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

}  // namespace
