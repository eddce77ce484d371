#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

/// NetworkManager's latest report about the machine's radios. It is read once as a whole, kept up
/// to date by signals, and read again after a restart of the service. All immediate questions are
/// answered from here.
class NetworkManagerModel final : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        std::chrono::milliseconds reply;
        /// The wait before asking again after the service failed to describe itself.
        std::chrono::milliseconds retry;
    };

    NetworkManagerModel(NetworkManagerBus bus, Limits limits, QObject *parent = nullptr);

    /// Calls back when the service has answered or failed; at once if it already has.
    void whenRead(QObject *context, std::function<void()> action);

    /// Why the radio cannot be used; nothing if it is ready. A machine without the service has no
    /// interface.
    [[nodiscard]] std::optional<WifiError> obstacle() const;

    /// The path of the radio that counts: the one that carries the traffic, else one that is
    /// joined, else one that is ready. Empty if there is none.
    [[nodiscard]] QString radio() const;

    [[nodiscard]] bool contains(const QString &path) const;
    [[nodiscard]] QVariantMap values(const QString &path, const QString &interface) const;
    [[nodiscard]] QVariant value(const QString &path, const QString &interface,
                                 const QString &name) const;
    /// For a property that names another object; empty if it names none.
    [[nodiscard]] QString pathValue(const QString &path, const QString &interface,
                                    const QString &name) const;

signals:
    void readEnded();
    void valuesChanged(const QString &path);
    void objectRemoved(const QString &path);
    /// Every state that a device passes through, even if it is over before the values arrive.
    void deviceStateChanged(const QString &device, uint state, uint reason);
    void activeStateChanged(const QString &active, uint state, uint reason);
    /// The service has ended: open calls get no answer.
    void serviceGone();

private slots:
    void propertiesChanged(const QDBusMessage &message);
    void interfacesAdded(const QDBusMessage &message);
    void interfacesRemoved(const QDBusMessage &message);
    void stateChanged(const QDBusMessage &message);

private:
    using Change = void (NetworkManagerModel::*)(const QDBusMessage &);
    struct Early
    {
        QDBusMessage message;
        Change change;
    };

    void follow();
    void read();
    void take(const QDBusMessage &reply);
    /// Applies the change of a signal, as soon as the changed object is known.
    void hear(const QDBusMessage &message, Change change);
    void changeProperties(const QDBusMessage &message);
    void addInterfaces(const QDBusMessage &message);
    void removeInterfaces(const QDBusMessage &message);
    void changeState(const QDBusMessage &message);
    void add(const QString &path, const NetworkManagerGroups &interfaces);
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    /// False if the user or a hardware switch has turned off all radios.
    [[nodiscard]] bool isRadioOn() const;
    [[nodiscard]] int rank(const QString &device) const;

    NetworkManagerBus m_bus;
    Limits m_limits;
    QDBusServiceWatcher m_ownerWatcher;
    QMap<QString, NetworkManagerGroups> m_objects;
    /// The unique bus name of the service that owns the objects.
    QString m_owner;
    bool m_isRead = false;
    /// Why it is not.
    WifiError m_readError{WifiError::Code::ServiceGone};
    /// The context of the open question. Deleting it ignores the answer.
    std::unique_ptr<QObject> m_question;
    /// The signals since the question: the bus library delivers signals before an answer that came
    /// earlier.
    QList<Early> m_early;
    QTimer m_retry;
};

} // namespace quorvel
