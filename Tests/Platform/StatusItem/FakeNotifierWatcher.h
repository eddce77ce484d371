#pragma once

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QVariant>

namespace quorvel {

/// A status notifier watcher on the real session bus, over a separate connection. A test scripts
/// its answers.
class FakeNotifierWatcher final : public QDBusVirtualObject
{
public:
    enum class Answer { WithHost, WithoutHost, Refusal, Silence };

    explicit FakeNotifierWatcher(Answer first)
        : answer(first)
        , m_name(QStringLiteral("fake watcher %1").arg(++s_made))
        , m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name))
    {
        m_bus.registerVirtualObject(path, this);
    }
    ~FakeNotifierWatcher() override { QDBusConnection::disconnectFromBus(m_name); }

    /// Takes the watcher's name, also from a present owner.
    void appear()
    {
        m_bus.interface()->registerService(service,
                                           QDBusConnectionInterface::ReplaceExistingService,
                                           QDBusConnectionInterface::AllowReplacement);
    }
    void vanish() { m_bus.unregisterService(service); }
    void announce(const QString &signal)
    {
        m_bus.send(QDBusMessage::createSignal(path, service, signal));
    }
    /// Answers the first question that is still open.
    void answerLate(bool hasHost) { m_bus.send(reply(unanswered.takeFirst(), hasHost)); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        calls.append(message.member());
        if (answer == Answer::Silence)
            unanswered.append(message);
        else if (answer == Answer::Refusal)
            m_bus.send(message.createErrorReply(QDBusError::UnknownObject, QString()));
        else
            m_bus.send(reply(message, answer == Answer::WithHost));
        return true;
    }
    [[nodiscard]] QString introspect(const QString &) const override { return {}; }

    Answer answer;
    QStringList calls; ///< The members that were called, in order.
    QList<QDBusMessage> unanswered;

private:
    [[nodiscard]] static QDBusMessage reply(const QDBusMessage &question, bool hasHost)
    {
        return question.createReply(QVariant::fromValue(QDBusVariant(hasHost)));
    }

    inline static const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
    inline static const QString path = QStringLiteral("/StatusNotifierWatcher");
    inline static int s_made = 0;

    QString m_name;
    QDBusConnection m_bus;
};

} // namespace quorvel
