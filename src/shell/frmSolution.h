// The report on screen: a page of fixed-pitch lines that scrolls. It never keeps the focus: its keys come
// from the main window.
#pragma once

#include "qt/forms.h"

class QKeyEvent;
class QLineEdit;
class QPlainTextEdit;

class frmSolution : public qt::ChildForm {
    Q_OBJECT
public:
    explicit frmSolution(QWidget* parent);
    void ClosedByHand() override;

    // Scrolls, copies, zooms, opens the bar to find in. False: the page has no use for the key.
    bool TakeKey(QKeyEvent& key);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* MakePage();
    QWidget* MakeFindBar();
    void ShowZoom();
    void Zoom(int steps);     // 0: the size that it begins with
    bool ZoomByKey(int key);  // plus, minus and 0; false for others
    bool Scroll(QKeyEvent& key);
    void OpenFindBar();
    void CloseFindBar();
    void FindTyped();
    void Find(bool backward);

    QPlainTextEdit* gridSolution;
    QLineEdit* findText_ = nullptr;  // made with the bar, which comes next
    QWidget* findBar_;
    bool scrolls_ = false;  // a key is being passed to the page
};
