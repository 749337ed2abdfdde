// What is made of the guide for a browser: no block is lost, no link leads nowhere, and the index and the
// search know all sections.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/matches.h"

namespace {

namespace fs = std::filesystem;

const fs::path kDocs = fs::path(VANTREL_ROOT) / "docs";
const fs::path kPages = VANTREL_PAGES;

std::string TextOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> FilesBelow(const fs::path& folder, const std::string& extension)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.path().extension() == extension) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::string Unescaped(const std::string& text)
{
    return Replaced(Replaced(Replaced(Replaced(text, "&lt;", "<"), "&gt;", ">"), "&quot;", "\""), "&amp;",
                    "&");
}

std::vector<std::string> Between(const std::string& text, const std::string& begin, const std::string& end)
{
    std::vector<std::string> found;
    for (std::size_t at = 0; (at = text.find(begin, at)) != std::string::npos;) {
        at += begin.size();
        const auto until = text.find(end, at);
        found.push_back(text.substr(at, until - at));
        at = until;
    }
    return found;
}

// Blanks at the end of a line do not count.
std::string WithoutTrailingBlanks(const std::string& text)
{
    return std::regex_replace(text, std::regex(" +\n"), "\n");
}

// The fenced blocks of a page as it is written.
std::vector<std::string> WrittenBlocks(const std::string& page)
{
    std::istringstream lines(page);
    std::vector<std::string> blocks;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            inside = !inside;
            if (inside) blocks.emplace_back();
        } else if (inside) {
            blocks.back() += line + '\n';
        }
    }
    return blocks;
}

std::vector<std::string> MadeBlocks(const std::string& page)
{
    static const std::regex kBegin("<pre><code class=\"[^\"]*\">");
    std::vector<std::string> blocks;
    for (const auto& block :
         Between(std::regex_replace(page, kBegin, "<pre class>"), "<pre class>", "</code>"))
        blocks.push_back(WithoutTrailingBlanks(Unescaped(block)));
    return blocks;
}

// The anchors of each page, by its path.
std::map<fs::path, std::set<std::string>> AnchorsOfAllPages()
{
    std::map<fs::path, std::set<std::string>> anchors;
    for (const auto& page : FilesBelow(kPages, ".html"))
        for (const auto& anchor : Between(TextOf(page), " id=\"", "\""))
            anchors[page].insert(anchor);
    return anchors;
}

TEST(GuidePages, HoldEveryPageThatIsWritten)
{
    std::size_t checked = 0;
    for (const auto& written : FilesBelow(kDocs / "guide", ".md")) {
        ++checked;
        const auto made = kPages / fs::relative(written, kDocs / "guide").replace_extension(".html");
        EXPECT_TRUE(fs::exists(made)) << made;
        EXPECT_THAT(MadeBlocks(TextOf(made)), testing::ElementsAreArray(WrittenBlocks(TextOf(written))))
            << made;
    }
    EXPECT_GT(checked, 20U);
}

TEST(GuidePages, LinkOnlyToWhatIsThere)
{
    const auto anchors = AnchorsOfAllPages();
    std::size_t checked = 0;
    for (const auto& [page, itsAnchors] : anchors) {
        const std::string text = TextOf(page);
        auto links = Between(text, "href=\"", "\"");
        for (const auto& source : Between(text, "src=\"", "\""))
            links.push_back(source);
        for (const auto& link : links) {
            if (link.starts_with("https://")) continue;
            ++checked;
            const auto hash = link.find('#');
            const std::string path = link.substr(0, hash);
            const fs::path file = path.empty() ? page : (page.parent_path() / path).lexically_normal();
            EXPECT_TRUE(fs::exists(file)) << page.filename() << ": " << link;
            if (hash == std::string::npos) continue;
            const auto there = anchors.find(file);
            EXPECT_TRUE(there != anchors.end() && there->second.contains(Unescaped(link.substr(hash + 1))))
                << page.filename() << ": " << link;
        }
    }
    EXPECT_GT(checked, 1000U);
}

TEST(GuidePages, TellWhatIsInEachPicture)
{
    std::size_t checked = 0;
    for (const auto& page : FilesBelow(kPages, ".html"))
        for (const auto& picture : Matches(TextOf(page), "(<img[^>]*>)")) {
            ++checked;
            EXPECT_NE(picture.find("alt=\""), std::string::npos) << page.filename() << ": " << picture;
            EXPECT_EQ(picture.find("alt=\"\""), std::string::npos) << page.filename() << ": " << picture;
        }
    EXPECT_GT(checked, 10U);
}

// The page without its code: from each <code to the </code> behind it.
std::string WithoutCode(std::string page)
{
    for (std::size_t at = 0; (at = page.find("<code", at)) != std::string::npos;)
        page.erase(at, page.find("</code>", at) - at);
    return page;
}

TEST(GuidePages, ShowNoMarkOfTheTextTheyAreMadeFrom)
{
    for (const auto& page : FilesBelow(kPages, ".html")) {
        const std::string text = WithoutCode(TextOf(page));
        for (const auto* mark : {"<!--", "](", "\n## ", "\n| ", "**", "```"})
            EXPECT_EQ(text.find(mark), std::string::npos) << page.filename() << " shows " << mark;
    }
}

TEST(GuidePages, AreFoundByTheirHeadings)
{
    const std::string sections = TextOf(kPages / "sections.js");
    std::size_t checked = 0;
    for (const auto& page : FilesBelow(kPages, ".html")) {
        const auto name = fs::relative(page, kPages).generic_string();
        if (name == "word-index.html") continue;
        for (const auto& anchor : Matches(TextOf(page), R"x(<h[1-3] id="([^"]+)")x")) {
            ++checked;
            std::string entry = "[\"" + name;
            entry.append("#").append(anchor).append("\",");
            EXPECT_NE(sections.find(entry), std::string::npos) << entry;
        }
    }
    EXPECT_GT(checked, 150U);
}

TEST(GuidePages, HaveAnIndexOfWordsAndMessages)
{
    const std::string index = TextOf(kPages / "word-index.html");
    const auto words = Matches(TextOf(kDocs / "guide/glossary.md"), R"(\n\| ([^|]+) \| )");
    EXPECT_GT(words.size(), 40U);
    for (const auto& word : words) {
        if (word == "word" || word == "---") continue;
        EXPECT_NE(index.find("<dt>" + word + "</dt>"), std::string::npos) << word;
    }
    for (const auto* message :
         {"No Feasible Solution", "Problem is Unbounded.", "Disk full", "Right Hand Sides Must be Positive"})
        EXPECT_NE(index.find(std::string("<dt>") + message + "</dt>"), std::string::npos) << message;
}

// F1 opens the page that has the name of the module.
TEST(GuidePages, HaveAPageForEachModule)
{
    const auto modules = Matches(TextOf(fs::path(VANTREL_ROOT) / "src/modules.cpp"), R"x("\d+\. +([^"]+)")x");
    EXPECT_EQ(modules.size(), 12U);
    for (auto name : modules) {
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char character) {
            return character == ' ' || character == '/' ? '-' : static_cast<char>(std::tolower(character));
        });
        EXPECT_TRUE(fs::exists(kPages / (name + ".html"))) << name;
    }
}

}  // namespace
