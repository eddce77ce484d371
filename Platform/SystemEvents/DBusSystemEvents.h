#pragma once

#include "Platform/SystemEvents/SystemEvents.h"

#include <QDBusConnection>

class QDBusMessage;

namespace quorvel {

/// Listens to the login manager for the machine's sleep, and to the network manager for network and
/// radio. It sends no requests, and works without either of them.
class DBusSystemEvents final : public SystemEvents
{
    Q_OBJECT

public:
    /// Without a connected bus it reports nothing.
    explicit DBusSystemEvents(const QDBusConnection &bus, QObject *parent = nullptr);

    void follow() override;
    void rest() override;

private slots:
    void sleepTurns(bool begins);
    void networkManagerChanges(const QDBusMessage &message);

private:
    void tell(Returning what);

    QDBusConnection m_bus;
    bool m_isFollowed = false;
};

} // namespace quorvel
