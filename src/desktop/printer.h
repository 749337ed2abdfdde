// The printer: lines of fixed pitch on pages.
#pragma once

#include <string_view>

class Printer {
public:
    virtual ~Printer() = default;
    // The printer dialog; false when it was cancelled.
    virtual bool Ask() = 0;
    virtual void Begin(std::string_view fontName, int pointSize) = 0;
    virtual void Line(std::string_view text) = 0;  // begins a new page by itself when the page is full
    virtual void NewPage() = 0;
    // Sends the pages; run-time errors of the device.
    virtual void EndDoc() = 0;
};
