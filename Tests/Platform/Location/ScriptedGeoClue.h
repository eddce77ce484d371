#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QLatin1Char>
#include <QMap>
#include <QMetaType>
#include <QStringList>
#include <QVariant>

#include <utility>

namespace quorvel::tests {

/// The two numbers of a timestamp, (tt) on the bus.
struct TimePair
{
    quint64 seconds = 0;
    quint64 microseconds = 0;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const TimePair &time)
{
    argument.beginStructure();
    argument << time.seconds << time.microseconds;
    argument.endStructure();
    return argument;
}

inline const QDBusArgument &operator>>(const QDBusArgument &argument, TimePair &time)
{
    argument.beginStructure();
    argument >> time.seconds >> time.microseconds;
    argument.endStructure();
    return argument;
}

/// A daemon that gives a test's answers, even wrong ones, and records its calls.
class ScriptedGeoClue final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    explicit ScriptedGeoClue(const QDBusConnection &bus)
        : m_bus(bus)
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        m_bus.registerService(QStringLiteral("org.freedesktop.GeoClue2"));
    }
    ~ScriptedGeoClue() override
    {
        m_bus.unregisterService(QStringLiteral("org.freedesktop.GeoClue2"));
        m_bus.unregisterObject(QStringLiteral("/"));
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override;

    void emitLocation(const QString &path)
    {
        auto signal =
            QDBusMessage::createSignal(client, QStringLiteral("org.freedesktop.GeoClue2.Client"),
                                       QStringLiteral("LocationUpdated"));
        signal << QVariant::fromValue(QDBusObjectPath(QStringLiteral("/")))
               << QVariant::fromValue(QDBusObjectPath(path));
        m_bus.send(signal);
    }

    /// Answers the calls that were left open.
    void answerLate()
    {
        for (const QDBusMessage &message : std::exchange(m_unanswered, {}))
            m_bus.send(message.createReply(answerTo(message.member())));
    }

    const QString client = QStringLiteral("/client");
    const QString location = QStringLiteral("/location");
    /// The answer of a method instead of the right one.
    QMap<QString, QVariantList> answers;
    QMap<QString, std::pair<QString, QString>> errors;
    QStringList silent;
    QStringList locationPaths{location};
    QVariantMap properties;
    QStringList calls;

private:
    [[nodiscard]] QVariantList answerTo(const QString &method) const;
    static QString described(const QDBusMessage &message);

    QDBusConnection m_bus;
    QList<QDBusMessage> m_unanswered;
};

inline bool ScriptedGeoClue::handleMessage(const QDBusMessage &message, const QDBusConnection &bus)
{
    const QString method = message.member();
    calls.append(described(message));
    if (silent.contains(method)) {
        m_unanswered.append(message);
        return true;
    }
    if (method == QStringLiteral("Start")) {
        for (const QString &path : locationPaths)
            emitLocation(path);
    }
    const auto [name, text] = errors.value(method);
    bus.send(name.isEmpty() ? message.createReply(answerTo(method))
                            : message.createErrorReply(name, text));
    return true;
}

inline QVariantList ScriptedGeoClue::answerTo(const QString &method) const
{
    if (answers.contains(method))
        return answers.value(method);
    if (method == QStringLiteral("CreateClient"))
        return {QVariant::fromValue(QDBusObjectPath(client))};
    if (method == QStringLiteral("GetAll"))
        return {properties};
    return {};
}

inline QString ScriptedGeoClue::described(const QDBusMessage &message)
{
    QStringList words{message.path(), message.member()};
    for (const QVariant &argument : message.arguments()) {
        const bool isVariant = argument.metaType() == QMetaType::fromType<QDBusVariant>();
        const QVariant value = isVariant ? argument.value<QDBusVariant>().variant() : argument;
        const bool isPath = value.metaType() == QMetaType::fromType<QDBusObjectPath>();
        words.append(isPath ? value.value<QDBusObjectPath>().path() : value.toString());
    }
    return words.join(QLatin1Char(' '));
}

} // namespace quorvel::tests

Q_DECLARE_METATYPE(quorvel::tests::TimePair)
