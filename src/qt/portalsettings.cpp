#include "qt/portalsettings.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QMap>
#include <utility>

namespace qt {
namespace {

constexpr const char* kService = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Settings";

}  // namespace

void PortalSettings::Follow(Taker taker)
{
    taker_ = std::move(taker);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(kService, kPath, kInterface, "SettingChanged", this, SLOT(TakeChange(QDBusMessage)));
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, "ReadAll");
    question << QStringList{"org.freedesktop.appearance", "org.gnome.desktop.a11y.interface"};
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        TakeAll(*answer);
        answer->deleteLater();
    });
}

void PortalSettings::TakeAll(const QDBusPendingCallWatcher& answer)
{
    const QDBusPendingReply<> reply = answer;
    if (reply.isError() || reply.reply().arguments().isEmpty()) return;
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.reply().arguments().constFirst());
    for (auto group = groups.begin(); group != groups.end(); ++group)
        for (auto entry = group->begin(); entry != group->end(); ++entry)
            taker_(group.key(), entry.key(), entry.value());
}

// Group, key and value.
void PortalSettings::TakeChange(const QDBusMessage& change)
{
    const QVariantList told = change.arguments();
    if (told.size() == 3)
        taker_(told[0].toString(), told[1].toString(), told[2].value<QDBusVariant>().variant());
}

}  // namespace qt
