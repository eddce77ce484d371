#pragma once

#include "Platform/Errors/Outcome.h"

#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <deque>
#include <list>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace quorvel {

/// The answers of a fake's operation that takes a Completion, from a test's script: one entry per
/// call, in the script's order. A call without an entry ends the test.
template <class Value, class Request = std::monostate>
class FakeAnswers final
{
public:
    /// `operation` names the operation in the message of a failed test. When the fake is destroyed,
    /// calls that are still open get `atEnd`; without it they get no answer.
    explicit FakeAnswers(const char *operation, std::optional<Outcome<Value>> atEnd = std::nullopt)
        : m_operation(operation)
        , m_atEnd(std::move(atEnd))
    {}
    Q_DISABLE_COPY_MOVE(FakeAnswers)

    ~FakeAnswers()
    {
        const auto open = std::exchange(m_open, {});
        for (const Open &call : open)
            if (m_atEnd)
                call.completion(*m_atEnd);
    }

    void willSucceed(Value value) { m_script.push_back(Outcome<Value>::success(std::move(value))); }
    template <class Error>
    void willFail(Error error)
    {
        m_script.push_back(Outcome<Value>::failure(std::move(error)));
    }

    /// The call stays open until it is released.
    void willHold() { m_script.push_back(std::nullopt); }
    /// Ends the call that has been held for longest with this outcome.
    void release(Outcome<Value> outcome)
    {
        const auto call = std::find_if(m_open.begin(), m_open.end(),
                                       [](const Open &open) { return !open.answer; });
        if (call == m_open.end())
            qFatal("%s: no call is held open", m_operation);
        call->answer.emplace(std::move(outcome));
        deliverLater();
    }
    /// Answers with the next entry of the script.
    void release()
    {
        const auto answer = std::find_if(m_script.begin(), m_script.end(),
                                         [](const auto &entry) { return entry.has_value(); });
        if (answer == m_script.end())
            qFatal("%s: released without a scripted answer", m_operation);
        Outcome<Value> outcome = std::move(**answer);
        m_script.erase(answer);
        release(std::move(outcome));
    }

    /// For the fake: answers a call later.
    void call(Completion<Value> completion, Request request = {})
    {
        requests.push_back(std::move(request));
        if (m_script.empty())
            qFatal("%s: called without a scripted answer", m_operation);
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
        const auto call = std::find_if(m_open.begin(), m_open.end(),
                                       [](const Open &open) { return open.answer.has_value(); });
        const Open open = std::move(*call);
        m_open.erase(call);
        open.completion(*open.answer);
    }

    const char *m_operation;
    std::optional<Outcome<Value>> m_atEnd;
    std::deque<std::optional<Outcome<Value>>> m_script;
    std::list<Open> m_open;
    QObject m_context;
};

} // namespace quorvel
