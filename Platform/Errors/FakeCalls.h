#pragma once

#include "Platform/Errors/Outcome.h"

#include <QObject>

#include <deque>
#include <list>
#include <optional>
#include <vector>

namespace quorvel {

/// The calls that a test's fake was asked for, each ending as the test wrote it down: for fakes
/// whose operations take a Completion. A call without an answer in the script fails the test.
template <class Request, class Value>
class FakeCalls final
{
public:
    /// `atEnd` is what calls end in that are open when the fake is destroyed.
    FakeCalls(const char *operation, Outcome<Value> atEnd)
        : m_operation(operation)
        , m_atEnd(std::move(atEnd))
    {}
    Q_DISABLE_COPY_MOVE(FakeCalls)

    ~FakeCalls()
    {
        for (const Open &call : std::exchange(m_open, {}))
            call.completion(m_atEnd);
    }

    void willSucceed(Value value) { m_script.push_back(Outcome<Value>::success(std::move(value))); }
    template <class Error>
    void willFail(Error error)
    {
        m_script.push_back(Outcome<Value>::failure(std::move(error)));
    }
    /// The call stays open until `release`.
    void willHold() { m_script.push_back(std::nullopt); }

    /// Ends the oldest call that is held.
    void release(Outcome<Value> outcome)
    {
        for (Open &call : m_open) {
            if (!call.answer) {
                call.answer.emplace(std::move(outcome));
                return deliverLater();
            }
        }
        qFatal("%s: no call is held", m_operation);
    }

    /// What the fake's operation does.
    void begin(Request request, Completion<Value> completion)
    {
        requests.push_back(std::move(request));
        if (m_script.empty())
            qFatal("%s: call %zu has no answer in the script", m_operation, requests.size());
        m_open.push_back({std::move(completion), std::move(m_script.front())});
        m_script.pop_front();
        if (m_open.back().answer)
            deliverLater();
    }

    /// What was asked for, in order.
    std::vector<Request> requests;

private:
    struct Open
    {
        Completion<Value> completion;
        std::optional<Outcome<Value>> answer;
    };

    void deliverLater()
    {
        const auto deliver = [this] { deliverFirst(); };
        QMetaObject::invokeMethod(&m_context, deliver, Qt::QueuedConnection);
    }

    void deliverFirst()
    {
        auto call = m_open.begin();
        while (!call->answer)
            ++call;
        const Open open = std::move(*call);
        m_open.erase(call);
        open.completion(*open.answer);
    }

    const char *m_operation;
    Outcome<Value> m_atEnd;
    std::deque<std::optional<Outcome<Value>>> m_script;
    std::list<Open> m_open;
    QObject m_context;
};

} // namespace quorvel
