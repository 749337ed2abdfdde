// The colours that the desktop tells while the program runs, in the two ways that are common: a file of
// colours (KDE), and settings behind the desktop portal that ask for dark colours or for high contrast (GNOME
// and others).
#pragma once

#include <QBasicTimer>
#include <QFileSystemWatcher>
#include <QObject>
#include <QPalette>
#include <QString>
#include <QVariant>
#include <functional>
#include <optional>

namespace qt {

[[nodiscard]] QPalette DarkColors();
[[nodiscard]] QPalette HighContrastColors(bool dark);

// The palette that a file like `kdeglobals` tells; nothing where it tells none.
[[nodiscard]] std::optional<QPalette> ReadColors(const QString& file);

// Settings of a desktop. `Follow` returns at once; each value comes later, and again whenever it changes.
class DesktopSettings : public QObject {
public:
    using Taker = std::function<void(const QString& group, const QString& key, const QVariant& value)>;

    using QObject::QObject;
    virtual void Follow(Taker taker) = 0;
};

// Gives the program what the settings wish. Where they wish nothing, and where the desktop has told dark
// colours in a way of its own already, the colours stay those that the program started with.
class WishedColors : public QObject {
public:
    explicit WishedColors(DesktopSettings& settings, QObject* parent = nullptr);

private:
    void Take(const QString& group, const QString& key, const QVariant& value);
    void Apply();

    bool dark_ = false;
    bool highContrast_ = false;
    bool applied_ = false;
};

// Gives the program the colours of a file, and those it has later.
class ColorsOfFile : public QObject {
public:
    explicit ColorsOfFile(QString file, QObject* parent = nullptr);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Watch();

    QString file_;
    QFileSystemWatcher watcher_;
    QBasicTimer wait_;  // a file is written in several goes
};

// Follows the desktop that the program runs on, from when its first window has been shown. For the life of
// the application.
void FollowDesktopColors();

}  // namespace qt
