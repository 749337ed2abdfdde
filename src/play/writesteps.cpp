#include "play/writesteps.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <algorithm>

#include "play/controls.h"
#include "play/screentext.h"
#include "qt/sidepane.h"

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

// The side pane that has something to show, folded away or not.
qt::SidePane* FindPane()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* pane = window->findChild<qt::SidePane*>(); pane != nullptr && pane->HasSources())
            return pane;
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

// Off-screen nobody frames the windows: those in front of the main one get the frame of an inner window here.
int TitleBarHeight(const QWidget& window)
{
    return window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
}

QRect FrameOf(const QWidget& window)
{
    constexpr int kBorder = 1;
    return window.geometry().adjusted(-kBorder, -TitleBarHeight(window), kBorder, kBorder);
}

void DrawFrame(QPainter& painter, const QWidget& window, const QRect& frame)
{
    painter.fillRect(frame, window.palette().color(QPalette::Shadow));
    QStyleOptionTitleBar bar;
    bar.initFrom(&window);
    bar.rect = {frame.topLeft(), QSize(frame.width(), TitleBarHeight(window))};
    bar.text = window.windowTitle();
    bar.state |= QStyle::State_Active;
    bar.titleBarState = QStyle::State_Active;
    bar.titleBarFlags = Qt::Window | Qt::WindowTitleHint;
    bar.subControls = QStyle::SC_TitleBarLabel;
    window.style()->drawComplexControl(QStyle::CC_TitleBar, &bar, &painter, &window);
}

QPixmap PictureOf(const QWidgetList& windows)
{
    const QWidget* main = windows.first();
    QRect whole = main->geometry();
    for (const QWidget* window : windows)
        if (window != main) whole |= FrameOf(*window);
    const qreal ratio = main->devicePixelRatioF();
    QPixmap picture(whole.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(QApplication::palette().color(QPalette::Dark));
    QPainter painter(&picture);
    for (QWidget* window : windows) {
        if (window != main) DrawFrame(painter, *window, FrameOf(*window).translated(-whole.topLeft()));
        painter.drawPixmap(window->geometry().topLeft() - whole.topLeft(), window->grab());
    }
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

// All pictures of the pane, or one of them.
Outcome WritePictures(const Step& step, Stage& stage)
{
    qt::SidePane* pane = FindPane();
    if (pane == nullptr || pane->Pictures().empty()) {
        stage.Out.Line("nothing");
        return kDone;
    }
    const auto count = static_cast<int>(pane->Pictures().size());
    std::optional<int> only;
    if (step.Words.size() > 1) {
        only = ReadCount(step.Argument(1).Text);
        if (!only || *only < 1 || *only > count) return "there is no picture " + step.Argument(1).Text;
    }
    int number = 0;
    for (const picture::Picture& picture : pane->Pictures())
        if (++number; !only || *only == number)
            WriteLines(stage.Out, picture::Listing(picture, number, count));
    return kDone;
}

Outcome WriteSteps(const Step&, Stage& stage)
{
    qt::SidePane* pane = FindPane();
    if (pane == nullptr)
        stage.Out.Line("nothing");
    else
        WriteLines(stage.Out, picture::Listing(pane->Steps()));
    return kDone;
}

Outcome WriteMeaning(const Step&, Stage& stage)
{
    qt::SidePane* pane = FindPane();
    if (pane == nullptr) {
        stage.Out.Line("nothing");
        return kDone;
    }
    const std::vector<picture::Sentence>& meaning = pane->WholeMeaning();
    stage.Out.Line("meaning " + std::to_string(meaning.size()));
    for (const picture::Sentence& sentence : meaning)
        stage.Out.Line("|" + sentence.Text);
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
