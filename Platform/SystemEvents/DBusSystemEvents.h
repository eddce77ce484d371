#pragma once

#include "Platform/SystemEvents/SystemEvents.h"

#include <QDBusConnection>

class QDBusMessage;

namespace quorvel {

/// Hears the login manager tell of the machine's sleep, and the network manager of the network and
/// the radio. Asks neither of them anything, and does without one that is not there.
class DBusSystemEvents final : public SystemEvents
{
    Q_OBJECT

public:
    /// A bus that is not connected tells nothing.
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
