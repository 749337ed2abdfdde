// Ends the program behind the first paint of a window, so that the life of the process is the time to it.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

class FirstPaint : public QObject {
public:
    FirstPaint() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow())
            QTimer::singleShot(0, [] { std::_Exit(0); });
        return QObject::eventFilter(watched, event);
    }
};
