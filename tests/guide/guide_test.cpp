// The guide against the sources and the files of this repository: what it quotes is there, and what a screen
// shows is explained.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/matches.h"

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = VANTREL_ROOT;
const fs::path kGuide = kRoot / "docs/guide";

std::string TextOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesBelow(const fs::path& folder, const std::set<std::string>& extensions)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (extensions.contains(entry.path().extension().string())) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<fs::path> Pages()
{
    auto pages = FilesBelow(kGuide, {".md"});
    pages.push_back(kRoot / "README.md");
    return pages;
}

std::string TextOfAll(const std::vector<fs::path>& files)
{
    std::string text;
    for (const auto& file : files)
        text += TextOf(file);
    return text;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

// The guide as running text: where a line ends plays no part.
std::string RunningText()
{
    return std::regex_replace(TextOfAll(FilesBelow(kGuide, {".md"})), std::regex("\n *"), " ");
}

std::string WithoutBlocks(const std::string& page)
{
    std::istringstream lines(page);
    std::string text;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```"))
            inside = !inside;
        else if (!inside)
            text += line + '\n';
    }
    return text;
}

std::string Trimmed(const std::string& text)
{
    const auto first = text.find_first_not_of(" \n");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \n") - first + 1);
}

// A text of a screen as a reader sees it: no mark of an access key.
std::string AsShown(const std::string& text)
{
    const std::string kept = Replaced(text, "&&", "\x01");
    return Trimmed(Replaced(Replaced(kept, "& ", "\x01 "), "&", ""));
}

// Reads the string literals of a source file; literals that only blanks part are one text.
class LiteralReader {
public:
    explicit LiteralReader(const std::string& source) : source_(source) {}

    std::vector<std::string> Read()
    {
        while (at_ < source_.size())
            Step();
        return texts_;
    }

private:
    void Step()
    {
        if (source_.compare(at_, 2, "//") == 0 || source_[at_] == '#')
            at_ = std::min(source_.find('\n', at_), source_.size());
        else if (source_[at_] == '"')
            Literal();
        else
            Other(source_[at_]);
    }

    void Other(char c)
    {
        if (c == '\'') at_ += source_[at_ + 1] == '\\' ? 3 : 2;
        if (c != ' ' && c != '\n') joins_ = false;
        ++at_;
    }

    void Literal()
    {
        std::string text;
        for (++at_; source_[at_] != '"'; ++at_) {
            if (source_[at_] == '\\' && source_[++at_] == 'n')
                text += '\n';
            else
                text += source_[at_];
        }
        ++at_;
        if (joins_)
            texts_.back() += text;
        else
            texts_.push_back(text);
        joins_ = true;
    }

    const std::string& source_;
    std::size_t at_ = 0;
    bool joins_ = false;
    std::vector<std::string> texts_;
};

// Names and descriptions of the modules: the module selection shows them, there is nothing to explain.
std::set<std::string> TextsOfTheModuleTable()
{
    const std::string table = TextOf(kRoot / "src/modules.cpp");
    const auto texts = LiteralReader(table).Read();
    return {texts.begin(), texts.end()};
}

bool IsReport(const fs::path& file)
{
    static const std::set<std::string> kReports = {"transout.cpp", "AssnOut.cpp", "netout.cpp"};
    const std::string name = file.filename().string();
    return kReports.contains(name) || name.ends_with("Report.cpp");
}

// What stands beside a report is sentences that explain themselves: pictures, steps and their meaning.
bool StandsBesideTheReport(const fs::path& file)
{
    const std::string name = file.stem().string();
    return file.parent_path().filename() == "picture" || name.ends_with("Picture") ||
           name.ends_with("Plane") || name.ends_with("Steps") || name.ends_with("Meaning");
}

// What the screens of the program show: captions, questions, messages. The lines of reports stand apart.
std::vector<std::string> TextsOfScreens(bool reports)
{
    std::vector<std::string> texts;
    for (const auto& file : FilesBelow(kRoot / "src", {".h", ".cpp"})) {
        const std::string folder = file.parent_path().filename().string();
        if (folder == "play" || folder == "qt" || IsReport(file) != reports || StandsBesideTheReport(file))
            continue;
        const std::string source = TextOf(file);
        for (const auto& text : LiteralReader(source).Read())
            texts.push_back(AsShown(text));
    }
    return texts;
}

bool IsSentence(const std::string& text)
{
    return text.find(' ') != std::string::npos && text.find('|') == std::string::npos;
}

TEST(Guide, ExplainsEveryTextOfTheScreens)
{
    const std::string guide = RunningText();
    const auto names = TextsOfTheModuleTable();
    std::size_t checked = 0;
    for (const auto& text : TextsOfScreens(false)) {
        if (!IsSentence(text) || names.contains(Replaced(text, "\x01", "&"))) continue;
        ++checked;
        EXPECT_NE(guide.find(Replaced(Replaced(text, "\x01", "&"), "\n", " ")), std::string::npos)
            << "not in the guide: " << text;
    }
    EXPECT_GT(checked, 300U);
}

TEST(Guide, ExplainsTheMessagesThatReportsShow)
{
    const std::string guide = RunningText();
    std::size_t checked = 0;
    for (const auto& file : FilesBelow(kRoot / "src", {".cpp"})) {
        if (!IsReport(file)) continue;
        const std::string source = TextOf(file);
        static const std::regex kMessage(R"(MsgBox\(|\{\.Text =)");
        for (std::sregex_iterator match(source.begin(), source.end(), kMessage), end; match != end; ++match) {
            const auto at = static_cast<std::size_t>(match->position());
            const std::string call = source.substr(at, source.find(';', at) - at);
            for (const auto& text : LiteralReader(call).Read()) {
                if (!IsSentence(text)) continue;
                ++checked;
                EXPECT_NE(guide.find(Trimmed(text)), std::string::npos) << "not in the guide: " << text;
            }
        }
    }
    EXPECT_GE(checked, 3U);
}

TEST(Guide, WritesInBoldOnlyWhatAScreenShows)
{
    std::set<std::string> shown;
    for (const auto& text : TextsOfScreens(false))
        shown.insert(Replaced(text, "\x01", "&"));
    const std::string pane = TextOf(kRoot / "src/qt/sidepane.cpp");
    for (const auto& text : LiteralReader(pane).Read())
        shown.insert(Replaced(AsShown(text), "\x01", "&"));
    std::size_t checked = 0;
    for (const auto& page : FilesBelow(kGuide, {".md"}))
        for (const auto& caption : Matches(WithoutBlocks(TextOf(page)), R"(\*\*([^*]+)\*\*)")) {
            ++checked;
            EXPECT_TRUE(shown.contains(Replaced(caption, "\n", " ")))
                << page.filename() << ": no screen shows " << caption;
        }
    EXPECT_GT(checked, 100U);
}

TEST(Guide, LinksOnlyToWhatIsThere)
{
    std::size_t checked = 0;
    for (const auto& page : Pages())
        for (const auto& link : Matches(WithoutBlocks(TextOf(page)), R"(\]\(([^)#]+)\))")) {
            ++checked;
            EXPECT_TRUE(fs::exists(page.parent_path() / link)) << page.filename() << ": " << link;
        }
    EXPECT_GT(checked, 80U);
}

TEST(Guide, ShowsEveryPictureThatIsKept)
{
    const std::string guide = TextOfAll(Pages());
    const auto pictures = FilesBelow(kGuide / "pictures", {".png"});
    EXPECT_FALSE(pictures.empty());
    for (const auto& picture : pictures)
        EXPECT_NE(guide.find("pictures/" + picture.filename().string()), std::string::npos) << picture;
}

TEST(Guide, NamesOnlyFilesThatExist)
{
    const std::string pattern =
        R"(`((?:src|tests|docs|tools|bench|fuzz|Problems|packaging|\.ci|cmake)/[^`*<>]*)`)";
    std::size_t checked = 0;
    for (const auto& page : Pages())
        for (const auto& path : Matches(WithoutBlocks(TextOf(page)), pattern)) {
            ++checked;
            EXPECT_TRUE(fs::exists(kRoot / path.substr(0, path.find(' '))))
                << page.filename() << ": " << path;
        }
    EXPECT_GT(checked, 10U);
}

// `Name` and `name()` on the page for contributors, and what it shows of code.
TEST(Guide, NamesOnlyFunctionsAndTypesOfTheSources)
{
    std::string sources = TextOfAll(FilesBelow(kRoot / "src", {".h", ".cpp", ".txt"}));
    for (const auto* folder : {"tests", "bench", "fuzz", "tools"})
        sources += TextOfAll(FilesBelow(kRoot / folder, {".h", ".cpp", ".txt", ".sh"}));
    sources += TextOf(kRoot / "CMakeLists.txt") + TextOf(kRoot / "CMakePresets.json");
    std::size_t checked = 0;
    for (const auto& name :
         Matches(TextOf(kGuide / "developers/contributing.md"), R"(`([A-Za-z_][A-Za-z_:0-9]*)(?:\(\))?`)")) {
        ++checked;
        EXPECT_NE(sources.find(name), std::string::npos) << name;
    }
    EXPECT_GT(checked, 15U);
}

TEST(Guide, ShowsAnExampleOfEveryStepOfSessionScripts)
{
    const std::string table = TextOf(kRoot / "src/play/steps.cpp");
    const auto steps = Matches(table, R"x(\{"([a-z]+)", \{\d)x");
    const std::string page = TextOf(kGuide / "developers/session-scripts.md");
    std::set<std::string> used;
    for (const auto& block : Matches(page, "```play [a-z-]+\n([^`]+)```"))
        for (const auto& word : Matches("\n" + block, "\n([a-z]+)"))
            used.insert(word);
    EXPECT_THAT(steps, testing::UnorderedElementsAreArray(used));
    for (const auto& step : steps)
        EXPECT_NE(page.find("| `" + step), std::string::npos) << "not in the table: " << step;
}

// Comments in the text mark the figures that figures.py compares.
TEST(Guide, MarksOnlyFiguresOfTheTour)
{
    static const std::regex kMarker(R"( ([a-z-]+)( printed| picture| steps| meaning| problem)?: \S.* )");
    std::size_t checked = 0;
    for (const auto& page : FilesBelow(kGuide, {".md"}))
        for (const auto& comment : Matches(WithoutBlocks(TextOf(page)), "<!--([^]*?)-->")) {
            ++checked;
            std::smatch parts;
            const std::string marker = Replaced(comment, "\n", " ");
            ASSERT_TRUE(std::regex_match(marker, parts, kMarker)) << page.filename() << ": " << marker;
            EXPECT_TRUE(fs::exists(kRoot / "docs/tour" / (parts[1].str() + ".play"))) << marker;
        }
    EXPECT_GT(checked, 200U);
}

// The running text behind each block of a report, as far as the next block or heading, without what it
// quotes: {block, text}.
std::vector<std::pair<std::string, std::string>> TextsBehindReports(const std::string& page)
{
    std::vector<std::pair<std::string, std::string>> texts;
    std::istringstream lines(page);
    bool inside = false;
    bool behind = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            inside = !inside;
            if (inside) behind = line.starts_with("```report ");
            if (inside && behind) texts.emplace_back();
        } else if (inside && behind) {
            texts.back().first += line + '\n';
        } else if (line.starts_with("#")) {
            behind = false;
        } else if (!inside && behind) {
            texts.back().second += std::regex_replace(line, std::regex("\"[^\"]*\""), "") + '\n';
        }
    }
    return texts;
}

TEST(Guide, MarksEveryFigureThatStandsInTheReportBefore)
{
    std::size_t checked = 0;
    for (const auto& page : FilesBelow(kGuide, {".md"}))
        for (const auto& [report, text] : TextsBehindReports(TextOf(page))) {
            const auto shown = Matches(report, R"(((?:\d[\d,]*)?\.\d+))");
            for (const auto& figure : Matches(text, R"(((?:\d[\d,]*)?\.\d+(?![\d%])(?! ?<!--| ?%)))")) {
                ++checked;
                EXPECT_THAT(shown, testing::Not(testing::Contains(figure)))
                    << page.filename() << ": " << figure;
            }
        }
    EXPECT_GT(checked, 20U);
}

TEST(Guide, ListsEverySampleProblem)
{
    const auto listed = Matches(TextOf(kGuide / "samples.md"), R"(\| `([^`]+)` \|)");
    std::vector<std::string> samples;
    for (const auto& entry : fs::directory_iterator(kRoot / "Problems"))
        samples.push_back(entry.path().filename().string());
    EXPECT_THAT(listed, testing::UnorderedElementsAreArray(samples));
}

// The shortcuts of the menus, and every key that a screen asks for.
TEST(Guide, ListsEveryKey)
{
    const std::string page = TextOf(kGuide / "keys.md");
    for (const auto& shortcut :
         Matches(TextOf(kRoot / "src/shell/frmMenu.cpp"), R"x(\{"mnu\w+", "([^"]+)"\})x"))
        EXPECT_NE(page.find("| " + shortcut + " |"), std::string::npos) << shortcut;
    static const std::map<std::string, std::string> kWords = {
        {"Return", "Enter"},  {"Backtab", "Shift+Tab"}, {"PageUp", "Page Up"},    {"PageDown", "Page Down"},
        {"Up", "the arrows"}, {"Down", "the arrows"},   {"Left", "the arrows"},   {"Right", "the arrows"},
        {"Plus", "Ctrl++"},   {"Equal", "Ctrl++"},      {"Minus", "Ctrl+-"},      {"0", "Ctrl+0"},
        {"C", "Ctrl+C"},      {"V", "Ctrl+V"},          {"X", "Ctrl+X"},          {"Y", "Ctrl+Y"},
        {"Z", "Ctrl+Z"},      {"Find", "Ctrl+F"},       {"SelectAll", "Ctrl+A"},  {"Copy", "Ctrl+C"},
        {"Cut", "Ctrl+X"},    {"Paste", "Ctrl+V"},      {"Menu", "the menu key"}, {"Space", "the space bar"}};
    static const std::set<std::string> kNoneOfTheirOwn = {"Shift", "Control",  "Meta",   "AltGr",
                                                          "Alt",   "CapsLock", "NumLock"};
    std::size_t checked = 0;
    for (const auto& file : FilesBelow(kRoot / "src", {".cpp"})) {
        if (file.parent_path().filename() == "play") continue;
        for (const auto& key : Matches(TextOf(file), R"((?:Qt::Key_|QKeySequence::)(\w+))")) {
            if (kNoneOfTheirOwn.contains(key)) continue;
            ++checked;
            const auto word = kWords.find(key);
            EXPECT_NE(page.find(word == kWords.end() ? key : word->second), std::string::npos)
                << file.filename() << " asks for " << key;
        }
    }
    EXPECT_GT(checked, 50U);
}

}  // namespace
