// What the user sees of the program at work: the pointer, the status text, the menus that changed.
#pragma once

#include <string>
#include <string_view>

enum class Pointer { Normal, Hourglass };

class Screen {
public:
    virtual ~Screen() = default;
    virtual void SetPointer(Pointer pointer) = 0;
    // The text of `lblmoduleindicator`; "&&" stands for one "&".
    [[nodiscard]] virtual std::string Indicator() const = 0;
    virtual void SetIndicator(std::string_view text) = 0;
    // Paints what is due now, in the middle of a command.
    virtual void Refresh() = 0;
    // Keeps the window painted during a long solve. True once the user has pressed Escape since the command
    // began.
    virtual bool Interrupted() = 0;
};

// For engines that may not end: called now and then (it looks at the clock and asks the screen only a few
// times a second), raises UserInterrupt once the user has pressed Escape.
void LetUserInterrupt();
