#include "desktop/desktop.h"

#include <chrono>

#include "basic/error.h"

namespace desktop {
namespace {

Parts installed;

}  // namespace

void Install(const Parts& parts)
{
    installed = parts;
}

Dialogs& TheDialogs()
{
    return *installed.dialogs;
}

Screen& TheScreen()
{
    return *installed.screen;
}

Forms& TheForms()
{
    return *installed.forms;
}

Printer& ThePrinter()
{
    return *installed.printer;
}

}  // namespace desktop

Answer MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons)
{
    return desktop::TheDialogs().MsgBox(text, title, icon, buttons);
}

std::string InputBox(std::string_view prompt, std::string_view title)
{
    return desktop::TheDialogs().InputBox(prompt, title);
}

void Beep()
{
    desktop::TheDialogs().Beep();
}

void ShowError(const RuntimeError& error)
{
    MsgBox(error.Text(), "Error # " + std::to_string(static_cast<int>(error.Number())));
}

bool Refuse(std::string_view text)
{
    MsgBox(text, "Data Input Error");
    return false;
}

void PointAtBox(const BoxPointer& point, int box)
{
    if (point) point(box);
}

void LetUserInterrupt()
{
    using Clock = std::chrono::steady_clock;
    constexpr auto kInterval = std::chrono::milliseconds(100);
    static Clock::time_point last;
    const auto now = Clock::now();
    if (now - last < kInterval) return;
    last = now;
    if (desktop::TheScreen().Interrupted()) Raise(ErrorNumber::UserInterrupt);
}
