#include "play/display.h"

#include <QApplication>
#include <QEvent>
#include <utility>

namespace play {
namespace {

constexpr qint64 kPictureMilliseconds = 16;

}  // namespace

Display::Display()
{
    qApp->installEventFilter(this);
}

bool Display::IsTimeToPaint() const
{
    return !sincePicture_.isValid() || sincePicture_.hasExpired(kPictureMilliseconds);
}

void Display::Refresh()
{
    if (waiting_.empty() || !IsTimeToPaint()) return;
    for (const QPointer<QObject>& window : std::exchange(waiting_, {})) {
        sincePicture_.invalidate();
        QEvent request(QEvent::UpdateRequest);
        if (!window.isNull()) QCoreApplication::sendEvent(window, &request);
    }
}

bool Display::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::UpdateRequest) return false;
    if (!IsTimeToPaint()) {
        waiting_.emplace_back(watched);
        return true;
    }
    sincePicture_.start();
    return false;
}

}  // namespace play
