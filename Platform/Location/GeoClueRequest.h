#pragma once

#include "Platform/Location/LocationManager.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QTimer>
#include <QVariant>

#include <chrono>

class QDBusMessage;
class QDBusObjectPath;

namespace quorvel {

/// The time limit of each step of a conversation with the daemon.
struct GeoClueLimits
{
    /// The daemon may have to start, and it waits for the agent of the user's session.
    std::chrono::milliseconds client{6'000};
    std::chrono::milliseconds property{5'000};
    std::chrono::milliseconds start{5'000};
    /// The daemon scans for networks and asks a server about them. It never reports a failure of
    /// that.
    std::chrono::milliseconds fix{20'000};
};

/// One conversation with GeoClue, for the location manager. It ends with exactly one of `granted`,
/// `located`, `refused` and `failed`, leaves nothing behind in the daemon, and deletes itself.
class GeoClueRequest final : public QObject
{
    Q_OBJECT

public:
    enum class Goal { Permission, Position };

    /// Starts at once and answers in a later turn of the event loop.
    GeoClueRequest(Goal goal, const QDBusConnection &bus, const GeoClueLimits &limits,
                   QObject *parent);
    ~GeoClueRequest() override;

signals:
    /// The goal was the permission, and the daemon gave it.
    void granted();
    void located(const quorvel::Location &location);
    void refused(quorvel::AuthorizationStatus status, const QString &description);
    /// Says nothing about the permission.
    void failed(const QString &description);

private slots:
    void locationUpdated(const QDBusObjectPath &oldLocation, const QDBusObjectPath &newLocation);
    void propertiesChanged(const QString &interfaceName, const QVariantMap &changed,
                           const QStringList &invalidated);

private:
    using Next = void (GeoClueRequest::*)(const QDBusMessage &reply);

    void createClient();
    void clientCreated(const QDBusMessage &reply);
    void desktopIdSet(const QDBusMessage &reply);
    void accuracySet(const QDBusMessage &reply);
    void started(const QDBusMessage &reply);
    void readLocation();
    void locationRead(const QDBusMessage &reply);

    void follow();
    void ask(const QDBusMessage &message, std::chrono::milliseconds limit, Next next);
    void setClientProperty(const QString &name, const QVariant &value, Next next);
    [[nodiscard]] QDBusMessage clientCall(const QString &method) const;
    /// Returns false once it has ended the conversation.
    [[nodiscard]] bool isFine(const QDBusMessage &reply);
    void fail(const QString &description);
    /// Returns true for the one caller that may report the end of the conversation.
    [[nodiscard]] bool end();
    void leave();

    Goal m_goal;
    QDBusConnection m_bus;
    GeoClueLimits m_limits;
    QDBusServiceWatcher m_ownerWatcher;
    QTimer m_limit;
    /// The unique bus name of the daemon that made the client.
    QString m_daemon;
    QString m_client;
    QString m_location;
    bool m_isStarted = false;
    bool m_hasEnded = false;
};

} // namespace quorvel
