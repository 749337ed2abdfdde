// The inside of the main window with the side pane beside it: when the pane comes and goes, how wide it is,
// the button and the keys that fold it away and reach it.
#pragma once

#include <QSplitter>

#include "qt/sidepane.h"

class QMainWindow;
class QToolButton;

namespace qt {

class BesideSplitter : public QSplitter {
    Q_OBJECT

public:
    // Makes its button in the window's status strip.
    BesideSplitter(QWidget* inside, QMainWindow* window);

    // Beside a report that needs so many pixels for its widest line.
    void ShowBesideReport(PaneSources sources, int reportWidth);
    // Beside a problem. It may be changed at once, so that all tabs are computed before; where all are empty
    // the pane does not come.
    void ShowBesideProblem(PaneSources sources);
    void Remove();

    [[nodiscard]] SidePane& Pane() { return *pane_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Choice { AsFits, Folded, Open };

    void MakeButton();
    void MakeKeys();
    void Arrange();
    void Toggle();
    void MoveFocus();
    [[nodiscard]] bool HasFocusInPane() const;
    [[nodiscard]] bool FitsBoth() const;

    QMainWindow* window_;
    SidePane* pane_;
    QToolButton* button_;
    Choice choice_ = Choice::AsFits;
    int chosenWidth_ = 0;  // of the pane, once the user has moved its edge
    int insideWidth_ = 0;  // that what stands beside the pane keeps
    int mostWidth_ = 0;    // that the pane takes by itself
};

}  // namespace qt
