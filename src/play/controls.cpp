#include "play/controls.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

namespace play {
namespace {

bool IsForm(const QWidget* widget)
{
    return widget->objectName().startsWith("frm");
}

// The forms that stand inside a window, the one in front first.
void AddInnerForms(const QWidget* window, std::vector<QWidget*>& screens)
{
    const auto* area = window->findChild<QMdiArea*>();
    if (area == nullptr) return;
    const QList<QMdiSubWindow*> inside = area->subWindowList(QMdiArea::StackingOrder);
    std::for_each(inside.rbegin(), inside.rend(), [&screens](QMdiSubWindow* sub) {
        if (sub->isVisible() && sub->widget() != nullptr && IsForm(sub->widget()))
            screens.push_back(sub->widget());
    });
}

std::vector<QWidget*> ShownWindows()
{
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && IsForm(window)) windows.push_back(window);
    std::stable_partition(windows.begin(), windows.end(),
                          [](const QWidget* w) { return w->isActiveWindow(); });
    return windows;
}

// Shown controls win over hidden ones of the same name.
QWidget* Pick(const QList<QWidget*>& controls)
{
    const auto shown =
        std::find_if(controls.begin(), controls.end(), [](QWidget* w) { return w->isVisible(); });
    if (shown != controls.end()) return *shown;
    return controls.isEmpty() ? nullptr : controls.front();
}

QWidget* FindIn(const std::vector<QWidget*>& screens, const QString& name)
{
    QWidget* hidden = nullptr;
    for (QWidget* screen : screens) {
        QWidget* control = screen->objectName() == name ? screen : Pick(screen->findChildren<QWidget*>(name));
        if (control != nullptr && control->isVisible()) return control;
        if (hidden == nullptr) hidden = control;
    }
    return hidden;
}

QWidget* FindNamed(const QString& name)
{
    const qsizetype point = name.indexOf('.');
    if (point < 0) return FindIn(ScreensInFront(), name);
    QWidget* screen = FindScreen(name.left(point));
    return screen == nullptr ? nullptr : FindIn({screen}, name.mid(point + 1));
}

}  // namespace

QWidget* ModalInFront()
{
    return QApplication::activeModalWidget();
}

std::vector<QWidget*> ScreensInFront()
{
    if (QWidget* modal = ModalInFront()) return {modal};
    std::vector<QWidget*> screens;
    for (QWidget* window : ShownWindows()) {
        AddInnerForms(window, screens);
        screens.push_back(window);
    }
    return screens;
}

QWidget* ScreenInFront()
{
    const std::vector<QWidget*> screens = ScreensInFront();
    return screens.empty() ? nullptr : screens.front();
}

QWidget* FindScreen(const QString& name)
{
    const std::vector<QWidget*> screens = ScreensInFront();
    const auto found =
        std::find_if(screens.begin(), screens.end(), [&](QWidget* w) { return w->objectName() == name; });
    return found == screens.end() ? nullptr : *found;
}

QMenuBar* FindMenuBar()
{
    for (QWidget* screen : ScreensInFront())
        if (auto* window = qobject_cast<QMainWindow*>(screen)) return window->menuBar();
    return nullptr;
}

Found<QWidget> FindControl(const std::string& name)
{
    QWidget* control = FindNamed(QString::fromStdString(name));
    if (control == nullptr) return {nullptr, "there is no " + name + " on the screen in front"};
    if (!control->isVisible()) return {nullptr, name + " is hidden"};
    if (!control->isEnabled()) return {nullptr, name + " is disabled"};
    return {control, {}};
}

}  // namespace play
