#include "shell/report.h"

#include "basic/files.h"
#include "desktop/desktop.h"

namespace {

#ifdef _WIN32
constexpr std::string_view kLineEnd = "\r\n";
#else
constexpr std::string_view kLineEnd = "\n";
#endif

}  // namespace

void PrinterChannel::Write(std::string_view text)
{
    desktop::ThePrinter().Line(text);
}

void PrinterChannel::NewPage()
{
    desktop::ThePrinter().NewPage();
}

void TextFileChannel::Write(std::string_view text)
{
    text_ += text;
    text_ += kLineEnd;
}

void TextFileChannel::Save(const std::string& path) const
{
    ReplaceFile(path, text_);
}
