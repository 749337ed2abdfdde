// A report as a list of lines.
#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "shell/report.h"

// The lines of a text file report.
inline std::vector<std::string> FileLines(const std::function<void(ReportChannel&)>& report)
{
    TextFileChannel channel;
    report(channel);
    std::vector<std::string> lines;
    std::istringstream text(channel.Text());
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

// The lines of a page on screen.
inline std::vector<std::string> ScreenLines(const std::function<void(ReportChannel&)>& page)
{
    class Page : public ReportChannel {
    public:
        std::vector<std::string> Lines;
        void NewPage() override {}
        [[nodiscard]] bool OnScreen() const override { return true; }
        [[nodiscard]] bool OnPaper() const override { return false; }

    private:
        void Write(std::string_view text) override { Lines.emplace_back(text); }
    } lines;
    page(lines);
    return lines.Lines;
}

// The first line with these words; "(no line)" without one.
inline std::string LineWith(const std::vector<std::string>& lines, std::string_view words)
{
    for (const std::string& line : lines)
        if (line.find(words) != std::string::npos) return line;
    return "(no line)";
}

// The lines from the first one with these words on.
inline std::vector<std::string> LinesFrom(const std::vector<std::string>& lines, std::string_view words)
{
    for (auto line = lines.begin(); line != lines.end(); ++line)
        if (line->find(words) != std::string::npos) return {line, lines.end()};
    return {};
}
