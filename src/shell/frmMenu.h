// The main window: the menus, the strip with the module's name, and the area in which the other windows
// appear.
#pragma once

#include <QMainWindow>
#include <map>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QMenu;

namespace qt {
class BesideSplitter;
}

class frmMenu : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMenu(QWidget* parent);
    ~frmMenu() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeMenus();
    void ShowMenus();  // brings the actions up to the menu table
    [[nodiscard]] bool HasRoomForTip() const;
    void SolveEnded();  // brings the side pane, or takes it away
    QMenu* MenuFor(const std::string& name, const std::string& parent);
    QAction* ActionFor(const std::string& name, bool separator);

    std::map<std::string, QAction*> actions_;
    std::map<std::string, QMenu*> menus_;
    std::vector<std::string> shownItems_;
    qt::BesideSplitter* beside_ = nullptr;
    QLabel* indicator_ = nullptr;
    QLabel* hint_ = nullptr;  // how to begin, while there is no problem
    QLabel* tip_ = nullptr;   // what the item under the mouse does
};
