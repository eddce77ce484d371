#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"

#include <QCoreApplication>

#include <deque>

namespace quorvel {

/// The answers to one operation in the order in which a test gave them. A call that comes early is
/// held open until its answer is given; one that nobody expects ends the test.
template <class Value>
class ScriptedAnswers final
{
public:
    explicit ScriptedAnswers(const char *operation)
        : m_operation(operation)
    {}

    void willSucceed(Value value)
    {
        m_answers.push_back(Outcome<Value>::success(std::move(value)));
    }
    void willFail(WifiError error)
    {
        m_answers.push_back(Outcome<Value>::failure(std::move(error)));
    }
    /// The next call stays open until `release`.
    void willHold() { ++m_holds; }
    /// Gives the oldest call that is held open the next answer.
    void release()
    {
        if (m_held.empty() || m_answers.empty())
            qFatal("FakeWifiClient: nothing to release of %s", m_operation);
        auto completion = std::move(m_held.front());
        m_held.pop_front();
        answer(std::move(completion));
    }

    void call(Completion<Value> completion)
    {
        if (m_holds > 0) {
            --m_holds;
            m_held.push_back(std::move(completion));
            return;
        }
        if (m_answers.empty())
            qFatal("FakeWifiClient: unscripted %s", m_operation);
        answer(std::move(completion));
    }

private:
    void answer(Completion<Value> completion)
    {
        const auto post = [completion = std::move(completion), outcome = m_answers.front()] {
            completion(outcome);
        };
        m_answers.pop_front();
        QMetaObject::invokeMethod(qApp, post, Qt::QueuedConnection);
    }

    const char *m_operation;
    std::deque<Outcome<Value>> m_answers;
    std::deque<Completion<Value>> m_held;
    int m_holds = 0;
};

/// A radio that hears, joins and remembers what a test has scripted, and keeps what it was asked.
class FakeWifiClient final : public WifiClient
{
public:
    struct Association
    {
        WifiName name;
        QString password;

        friend bool operator==(const Association &, const Association &) = default;
    };

    [[nodiscard]] bool hasInterface() const override { return interfaceThere; }
    [[nodiscard]] std::optional<QString> ssid() const override { return currentSSID; }
    [[nodiscard]] qint64 rssiValue() const override { return currentRSSI; }

    void scan(Completion<QList<ScannedNetwork>> completion) override
    {
        ++scanCount;
        scans.call(std::move(completion));
    }
    void associate(const WifiName &name, const QString &password,
                   Completion<std::monostate> completion) override
    {
        associated.append({.name = name, .password = password});
        associations.call(std::move(completion));
    }
    void storedPassword(const QString &ssid, Completion<std::optional<QString>> completion) override
    {
        passwordsAskedFor.append(ssid);
        storedPasswords.call(std::move(completion));
    }

    bool interfaceThere = true;
    std::optional<QString> currentSSID;
    qint64 currentRSSI = 0;
    ScriptedAnswers<QList<ScannedNetwork>> scans{"scan"};
    ScriptedAnswers<std::monostate> associations{"associate"};
    ScriptedAnswers<std::optional<QString>> storedPasswords{"storedPassword"};

    int scanCount = 0;
    QList<Association> associated;
    QStringList passwordsAskedFor;
};

} // namespace quorvel
