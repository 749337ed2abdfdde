// Pointer, status text and painting of the main window.
#pragma once

#include <QObject>

#include "desktop/screen.h"

class QLabel;

namespace qt {

class QtForms;

class QtScreen : public Screen, private QObject {
public:
    explicit QtScreen(const QtForms& forms) : forms_(forms) {}

    void SetPointer(Pointer pointer) override;
    [[nodiscard]] std::string Indicator() const override { return indicator_; }
    void SetIndicator(std::string_view text) override;
    void Refresh() override;
    bool Interrupted() override;

    // While a command lets the window repaint: the program is at work, and no input reaches it.
    [[nodiscard]] bool IsWorking() const { return working_; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    [[nodiscard]] QLabel* Label() const;

    const QtForms& forms_;
    std::string indicator_;
    bool working_ = false;
    bool escapePressed_ = false;
};

}  // namespace qt
