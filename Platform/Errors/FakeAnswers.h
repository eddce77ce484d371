#pragma once

#include "Platform/Errors/Outcome.h"

#include <QCoreApplication>

#include <deque>

namespace quorvel {

/// What a fake answers to one of its operations: each answer once, in the order in which a test
/// gives them. A call that no answer is left for ends the test.
template <class Value>
class FakeAnswers final
{
public:
    /// The operation is named in the last words of a test that it ends.
    explicit FakeAnswers(const char *operation)
        : m_operation(operation)
    {}

    void willSucceed(Value value)
    {
        m_answers.push_back(Outcome<Value>::success(std::move(value)));
    }
    template <class Error>
    void willFail(Error error)
    {
        m_answers.push_back(Outcome<Value>::failure(std::move(error)));
    }

    /// The next call stays open until it is released.
    void willHold() { ++m_holds; }
    /// The call that has been open for longest is given the next answer.
    void release()
    {
        if (m_held.empty())
            qFatal("%s: no call is held open", m_operation);
        auto completion = std::move(m_held.front());
        m_held.pop_front();
        answer(std::move(completion));
    }

    /// For the fake: has a call answered, later.
    void call(Completion<Value> completion)
    {
        if (m_holds == 0) {
            answer(std::move(completion));
            return;
        }
        --m_holds;
        m_held.push_back(std::move(completion));
    }

private:
    void answer(Completion<Value> completion)
    {
        if (m_answers.empty())
            qFatal("%s: called without a scripted answer", m_operation);
        const auto deliver = [completion = std::move(completion), outcome = m_answers.front()] {
            completion(outcome);
        };
        m_answers.pop_front();
        QMetaObject::invokeMethod(qApp, deliver, Qt::QueuedConnection);
    }

    const char *m_operation;
    std::deque<Outcome<Value>> m_answers;
    std::deque<Completion<Value>> m_held;
    int m_holds = 0;
};

} // namespace quorvel
