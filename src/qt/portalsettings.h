// The settings behind the desktop portal: a service of the session that answers programs of every desktop.
#pragma once

#include <QDBusMessage>

#include "qt/desktopcolors.h"

class QDBusPendingCallWatcher;

namespace qt {

class PortalSettings : public DesktopSettings {
    Q_OBJECT

public:
    using DesktopSettings::DesktopSettings;

    // Waits for nothing: where there is no session bus or no portal, no value ever comes.
    void Follow(Taker taker) override;

private:
    Q_SLOT void TakeChange(const QDBusMessage& change);
    void TakeAll(const QDBusPendingCallWatcher& answer);

    Taker taker_;
};

}  // namespace qt
