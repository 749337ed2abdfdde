#include "play/script.h"

#include <gtest/gtest.h>

#include <sstream>

#include "play/transcript.h"

namespace {

using play::Step;

std::vector<Step> Read(const std::string& text)
{
    std::istringstream in(text);
    play::StepReader reader(in);
    std::vector<Step> steps;
    while (auto step = reader.Next())
        steps.push_back(*step);
    return steps;
}

Step ReadLine(const std::string& line)
{
    const auto steps = Read(line);
    return steps.empty() ? Step{} : steps.front();
}

std::vector<std::string> Words(const std::string& line)
{
    std::vector<std::string> texts;
    for (const play::Word& word : ReadLine(line).Words)
        texts.push_back(word.Text);
    return texts;
}

using Texts = std::vector<std::string>;

TEST(Script, PartsWordsByBlanks)
{
    EXPECT_EQ(Words("cell gridDisplayEdit 1 2 3"), (Texts{"cell", "gridDisplayEdit", "1", "2", "3"}));
    EXPECT_EQ(Words("  click\t cmdOK  "), (Texts{"click", "cmdOK"}));
}

TEST(Script, KeepsBlanksAndDoubledQuotesInsideOfQuotes)
{
    EXPECT_EQ(Words(R"(type txtAnswer(0) " 1 ""2"" ")"), (Texts{"type", "txtAnswer(0)", " 1 \"2\" "}));
    EXPECT_EQ(Words(R"(keys """")"), (Texts{"keys", "\""}));
    EXPECT_EQ(Words(R"(keys "")"), (Texts{"keys", ""}));
}

TEST(Script, TellsAQuotedWordFromACommand)
{
    EXPECT_TRUE(ReadLine("input \"cancel\"").Argument(1).Quoted);
    EXPECT_FALSE(ReadLine("input cancel").Argument(1).Quoted);
}

TEST(Script, DropsCommentsOutsideOfQuotes)
{
    EXPECT_EQ(Words("click cmdOK # press it"), (Texts{"click", "cmdOK"}));
    EXPECT_EQ(Words("click cmdOK# press it"), (Texts{"click", "cmdOK"}));
    EXPECT_EQ(Words("keys \"#1\" # a number"), (Texts{"keys", "#1"}));
    EXPECT_EQ(Words("keys \"1\"# a number"), (Texts{"keys", "1"}));
    EXPECT_TRUE(Read("# nothing\n\n   \n\t# nothing\n").empty());
}

TEST(Script, TakesTheNumberOfAnEntryOfAPickForNoComment)
{
    EXPECT_EQ(Words("pick lstModelSelection #3 # the third"), (Texts{"pick", "lstModelSelection", "#3"}));
    EXPECT_EQ(Words("pick lstModelSelection # the third"), (Texts{"pick", "lstModelSelection"}));
    EXPECT_EQ(Words("click cmdOK #3"), (Texts{"click", "cmdOK"}));
}

TEST(Script, CountsLinesFromOneWithTheEmptyOnes)
{
    const auto steps = Read("# first\n\nchoose 12\r\nshow\n");
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps[0].Line, 3);
    EXPECT_EQ(steps[1].Line, 4);
    EXPECT_EQ(steps[0].Argument(1).Text, "12");
}

TEST(Script, EchoesTheLineWithoutItsComment)
{
    EXPECT_EQ(ReadLine("  type txtAnswer(0)  \"8\"   # eight").Source, "type txtAnswer(0)  \"8\"");
}

TEST(Script, TakesABeginningWithAByteOrderMark)
{
    EXPECT_EQ(Words("\xEF\xBB\xBFshow"), (Texts{"show"}));
}

TEST(Script, FindsFaultWithBadQuotes)
{
    EXPECT_EQ(ReadLine("keys \"abc").Fault, "the closing quote is missing");
    EXPECT_EQ(ReadLine("keys \"abc\"d").Fault, "no blank behind a closing quote");
    EXPECT_EQ(ReadLine("keys a\"bc\"").Fault, "a quote in the middle of a word");
    EXPECT_EQ(ReadLine("keys \"abc\" \"d\"").Fault, "");
}

TEST(KeyStroke, TakesTheNamedKeysAndSingleCharacters)
{
    for (const char* name : {"Enter", "Tab", "Backtab", "Left", "Home", "Delete", "Escape", "F1", "F12", "a",
                             "<", "+", "\xC3\xA9"})
        EXPECT_EQ(play::ReadKeyStroke(name).value().Key, name);
    for (const char* name : {"", "enter", "F13", "ab", "Return"})
        EXPECT_FALSE(play::ReadKeyStroke(name).has_value()) << name;
}

TEST(KeyStroke, TakesTheKeysThatAreHeldDown)
{
    const auto stroke = play::ReadKeyStroke("Ctrl+Shift+F3").value();
    EXPECT_TRUE(stroke.Control);
    EXPECT_TRUE(stroke.Shift);
    EXPECT_FALSE(stroke.Alt);
    EXPECT_EQ(stroke.Key, "F3");
    EXPECT_TRUE(play::ReadKeyStroke("Alt+F").value().Alt);
    EXPECT_EQ(play::ReadKeyStroke("Ctrl++").value().Key, "+");
    EXPECT_FALSE(play::ReadKeyStroke("Ctrl+").has_value());
    EXPECT_FALSE(play::ReadKeyStroke("Meta+a").has_value());
}

TEST(Count, IsAWholeNumberFromZero)
{
    EXPECT_EQ(play::ReadCount("0"), 0);
    EXPECT_EQ(play::ReadCount("12"), 12);
    for (const char* text : {"", "-1", "1.5", "1x", "x", "99999999999"})
        EXPECT_FALSE(play::ReadCount(text).has_value()) << text;
}

TEST(Transcript, WritesTextsOnOneLine)
{
    EXPECT_EQ(play::Quote("plain  text"), "\"plain  text\"");
    EXPECT_EQ(play::Quote("say \"no\""), "\"say \"\"no\"\"\"");
    EXPECT_EQ(play::Quote("two\nlines"), "\"two\\nlines\"");
    EXPECT_EQ(play::Quote(""), "\"\"");
}

TEST(Transcript, EchoesStepsBehindAMark)
{
    std::ostringstream out;
    play::Transcript transcript(out);
    transcript.Echo("choose 12");
    transcript.Line("beep");
    EXPECT_EQ(out.str(), "> choose 12\nbeep\n");
}

}  // namespace
