#include "play/writesteps.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

#include "play/controls.h"
#include "play/screentext.h"

namespace play {
namespace {

void WriteLines(Transcript& out, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        out.Line(line);
}

QWidget* FindShown(const char* name)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        for (QWidget* found : window->findChildren<QWidget*>(name))
            if (found->isVisible()) return found;
    return nullptr;
}

// The main window first, then what is in front of it.
QWidgetList ShownWindows()
{
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible()) windows.append(window);
    std::stable_sort(windows.begin(), windows.end(), [](const QWidget* a, const QWidget* b) {
        const auto depth = [](const QWidget* w) {
            return w == QApplication::activeModalWidget() ? 2 : w->objectName() == "frmMenu" ? 0 : 1;
        };
        return depth(a) < depth(b);
    });
    return windows;
}

QPixmap PictureOf(const QWidgetList& windows)
{
    QRect frame;
    for (const QWidget* window : windows)
        frame |= window->geometry();
    QPixmap picture(frame.size());
    picture.fill(QApplication::palette().color(QPalette::Dark));
    QPainter painter(&picture);
    for (QWidget* window : windows)
        painter.drawPixmap(window->geometry().topLeft() - frame.topLeft(), window->grab());
    return picture;
}

}  // namespace

Outcome WriteScreen(const Step&, Stage& stage)
{
    const QWidget* screen = ScreenInFront();
    if (screen == nullptr) return "no screen is shown";
    WriteLines(stage.Out, DescribeScreen(screen));
    return kDone;
}

Outcome WriteReport(const Step&, Stage& stage)
{
    const QWidget* page = FindShown("gridSolution");
    if (page == nullptr) return "no report is on the screen";
    const std::vector<std::string> lines = LinesOf(page);
    stage.Out.Line("report " + std::to_string(lines.size()));
    for (const std::string& line : lines)
        stage.Out.Line("|" + line);
    return kDone;
}

Outcome WriteSession(const Step&, Stage& stage)
{
    WriteLines(stage.Out, DescribeSession());
    return kDone;
}

Outcome SavePicture(const Step& step, Stage& stage)
{
    const QWidgetList windows = ShownWindows();
    if (windows.isEmpty()) return "no screen is shown";
    const QString path = QDir(stage.Folder).absoluteFilePath(QString::fromStdString(step.Argument(1).Text));
    if (!PictureOf(windows).save(path, "PNG")) return path.toStdString() + " cannot be written";
    return kDone;
}

}  // namespace play
