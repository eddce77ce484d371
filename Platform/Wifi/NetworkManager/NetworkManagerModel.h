#pragma once

#include "Platform/Wifi/NetworkManager/NetworkManagerBus.h"

#include <QDBusServiceWatcher>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

/// What the network service last said about the machine's radios: read once as a whole, then kept
/// up to date by its signals, and read anew after the service was started again. Everything that
/// has to be known at once is answered from here.
class NetworkManagerModel final : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        std::chrono::milliseconds reply;
        /// After which a service that refused or failed to describe itself is asked again.
        std::chrono::milliseconds retry;
    };

    NetworkManagerModel(NetworkManagerBus bus, Limits limits, QObject *parent = nullptr);

    /// Calls back once the service has answered, or failed to: at once where it has before.
    void whenRead(QObject *context, std::function<void()> action);

    /// What keeps the radio from being used; nothing where it is ready. A machine without the
    /// service has no interface.
    [[nodiscard]] std::optional<WifiError> obstacle() const;

    /// The path of the radio that counts: the one that carries the traffic, else one that is
    /// joined, else one that is ready. Empty where there is none.
    [[nodiscard]] QString radio() const;

    [[nodiscard]] bool contains(const QString &path) const;
    [[nodiscard]] QVariantMap values(const QString &path, const QString &interface) const;
    [[nodiscard]] QVariant value(const QString &path, const QString &interface,
                                 const QString &name) const;
    /// For a property that names another object; empty where it names none.
    [[nodiscard]] QString pathValue(const QString &path, const QString &interface,
                                    const QString &name) const;

signals:
    void readEnded();
    void valuesChanged(const QString &path);
    void objectRemoved(const QString &path);
    /// Every state that a device passes through, also those that are over when the values arrive.
    void deviceStateChanged(const QString &device, uint state, uint reason);
    void activeStateChanged(const QString &active, uint state, uint reason);
    /// The service has ended: nobody answers the calls that are open.
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
    /// Makes the change that a signal of the service tells of, once it is known what is changed.
    void hear(const QDBusMessage &message, Change change);
    void changeProperties(const QDBusMessage &message);
    void addInterfaces(const QDBusMessage &message);
    void removeInterfaces(const QDBusMessage &message);
    void changeState(const QDBusMessage &message);
    void add(const QString &path, const NetworkManagerGroups &interfaces);
    void ownerChanged(const QString &oldOwner, const QString &newOwner);
    /// False where the user or a switch on the machine has turned off all radios.
    [[nodiscard]] bool isRadioOn() const;
    [[nodiscard]] int rank(const QString &device) const;

    NetworkManagerBus m_bus;
    Limits m_limits;
    QDBusServiceWatcher m_ownerWatcher;
    QMap<QString, NetworkManagerGroups> m_objects;
    /// The unique name of the service that the objects are of.
    QString m_owner;
    bool m_isRead = false;
    /// Why it is not.
    WifiError m_readError{WifiError::Code::ServiceGone};
    /// The context of the question that is open now; to drop it is to ignore the answer.
    std::unique_ptr<QObject> m_question;
    /// What was heard since it was asked: the bus library hands signals out before an answer that
    /// came before them.
    QList<Early> m_early;
    QTimer m_retry;
};

} // namespace quorvel
