#include "qt/desktopcolors.h"

#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QTimerEvent>
#include <array>
#include <utility>

#include "qt/colors.h"
#include "qt/portalsettings.h"

namespace qt {
namespace {

constexpr int kWritten = 100;  // milliseconds
constexpr int kShown = 30;     // milliseconds: the first window has been painted by then

bool IsDark(const QPalette& colors)
{
    return colors.color(QPalette::Window).lightness() < colors.color(QPalette::WindowText).lightness();
}

void SetDisabled(QPalette& colors)
{
    constexpr float kShare = 0.5F;
    for (const auto& [text, ground] :
         {std::pair{QPalette::WindowText, QPalette::Window}, std::pair{QPalette::Text, QPalette::Base},
          std::pair{QPalette::ButtonText, QPalette::Button}})
        colors.setColor(QPalette::Disabled, text, Mixed(colors.color(text), colors.color(ground), kShare));
}

// "49,54,59", as a list of texts.
QColor ColorOf(const QVariant& entry)
{
    const QStringList parts = entry.toStringList();
    if (parts.size() < 3) return {};
    return {parts[0].toInt(), parts[1].toInt(), parts[2].toInt()};
}

struct FileColor {
    QPalette::ColorRole Role;
    const char* Key;
};

constexpr std::array kFileColors = {
    FileColor{QPalette::WindowText, "Colors:Window/ForegroundNormal"},
    FileColor{QPalette::Base, "Colors:View/BackgroundNormal"},
    FileColor{QPalette::AlternateBase, "Colors:View/BackgroundAlternate"},
    FileColor{QPalette::Text, "Colors:View/ForegroundNormal"},
    FileColor{QPalette::PlaceholderText, "Colors:View/ForegroundInactive"},
    FileColor{QPalette::Link, "Colors:View/ForegroundLink"},
    FileColor{QPalette::LinkVisited, "Colors:View/ForegroundVisited"},
    FileColor{QPalette::ButtonText, "Colors:Button/ForegroundNormal"},
    FileColor{QPalette::Highlight, "Colors:Selection/BackgroundNormal"},
    FileColor{QPalette::HighlightedText, "Colors:Selection/ForegroundNormal"},
    FileColor{QPalette::ToolTipBase, "Colors:Tooltip/BackgroundNormal"},
    FileColor{QPalette::ToolTipText, "Colors:Tooltip/ForegroundNormal"},
};

}  // namespace

QPalette DarkColors()
{
    const QColor text(0xfc, 0xfc, 0xfc);
    QPalette colors(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    colors.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    colors.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        colors.setColor(role, text);
    colors.setColor(QPalette::ToolTipBase, QColor(0x31, 0x36, 0x3b));
    colors.setColor(QPalette::PlaceholderText, QColor(0xa1, 0xa9, 0xb1));
    colors.setColor(QPalette::Link, QColor(0x7c, 0xc7, 0xf2));
    colors.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    colors.setColor(QPalette::HighlightedText, QColor(0x1b, 0x1e, 0x20));
    SetDisabled(colors);
    return colors;
}

QPalette HighContrastColors(bool dark)
{
    const QColor ground = dark ? Qt::black : Qt::white;
    const QColor text = dark ? Qt::white : Qt::black;
    QPalette colors(ground, ground);
    for (const auto role :
         {QPalette::Base, QPalette::AlternateBase, QPalette::ToolTipBase, QPalette::HighlightedText})
        colors.setColor(role, ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::PlaceholderText, QPalette::Mid, QPalette::Dark})
        colors.setColor(role, text);
    colors.setColor(QPalette::Highlight, dark ? QColor(0xff, 0xe0, 0x00) : QColor(0x00, 0x30, 0x90));
    colors.setColor(QPalette::Link, dark ? QColor(0x80, 0xd0, 0xff) : QColor(0x00, 0x00, 0xa0));
    SetDisabled(colors);
    return colors;
}

std::optional<QPalette> ReadColors(const QString& file)
{
    const QSettings told(file, QSettings::IniFormat);
    const QColor window = ColorOf(told.value("Colors:Window/BackgroundNormal"));
    if (!window.isValid()) return std::nullopt;
    const QColor button = ColorOf(told.value("Colors:Button/BackgroundNormal"));
    QPalette colors(button.isValid() ? button : window, window);
    for (const FileColor& entry : kFileColors)
        if (const QColor color = ColorOf(told.value(entry.Key)); color.isValid())
            colors.setColor(entry.Role, color);
    SetDisabled(colors);
    return colors;
}

WishedColors::WishedColors(DesktopSettings& settings, QObject* parent) : QObject(parent)
{
    settings.Follow(
        [this](const QString& group, const QString& key, const QVariant& value) { Take(group, key, value); });
}

void WishedColors::Take(const QString& group, const QString& key, const QVariant& value)
{
    constexpr unsigned kPrefersDark = 1;
    constexpr unsigned kMoreContrast = 1;
    if (group == QLatin1String("org.freedesktop.appearance") && key == QLatin1String("color-scheme"))
        dark_ = value.toUInt() == kPrefersDark;
    else if (group == QLatin1String("org.freedesktop.appearance") && key == QLatin1String("contrast"))
        highContrast_ = value.toUInt() == kMoreContrast;
    else if (group == QLatin1String("org.gnome.desktop.a11y.interface") &&
             key == QLatin1String("high-contrast"))
        highContrast_ = value.toBool();
    else
        return;
    Apply();
}

void WishedColors::Apply()
{
    const bool ownDark = !applied_ && IsDark(QApplication::palette());
    if (highContrast_) {
        QApplication::setPalette(HighContrastColors(dark_ || ownDark));
        applied_ = true;
    } else if (dark_) {
        if (!ownDark) QApplication::setPalette(DarkColors());
        applied_ = applied_ || !ownDark;
    } else if (applied_) {
        QApplication::setPalette(QPalette());
        applied_ = false;
    }
}

ColorsOfFile::ColorsOfFile(QString file, QObject* parent) : QObject(parent), file_(std::move(file))
{
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, [this] { wait_.start(kWritten, this); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { wait_.start(kWritten, this); });
    Watch();
    wait_.start(0, this);
}

// A file that is replaced is no longer watched, and one that is not there yet is seen by its folder.
void ColorsOfFile::Watch()
{
    for (const QString& path : {file_, QFileInfo(file_).absolutePath()})
        if (QFileInfo::exists(path) && !watcher_.files().contains(path) &&
            !watcher_.directories().contains(path))
            watcher_.addPath(path);
}

void ColorsOfFile::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != wait_.timerId()) return;
    wait_.stop();
    Watch();
    const auto told = ReadColors(file_);
    if (told && told->color(QPalette::Window) != QApplication::palette().color(QPalette::Window))
        QApplication::setPalette(*told);
}

void FollowDesktopColors()
{
    QTimer::singleShot(kShown, qApp, [] {
        if (qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("KDE")) {
            const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
            new ColorsOfFile(folder + QLatin1String("/kdeglobals"), qApp);
        } else {
            new WishedColors(*new PortalSettings(qApp), qApp);
        }
    });
}

}  // namespace qt
