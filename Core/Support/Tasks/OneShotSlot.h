#pragma once

#include "Core/Support/Tasks/Task.h"

#include <memory>
#include <utility>
#include <vector>

namespace quorvel {

/// Holds one waiter, for services whose facility answers at any time. Main thread only.
template <class Value>
class OneShotSlot final
{
public:
    OneShotSlot() = default;
    Q_DISABLE_COPY_MOVE(OneShotSlot)
    /// Ends all waits with Abandoned, also the replaced ones, before it returns.
    ~OneShotSlot();

    class [[nodiscard]] Wait final
    {
    public:
        explicit Wait(std::shared_ptr<Delivery<Value>> delivery)
            : m_delivery(std::move(delivery))
        {}
        Q_DISABLE_COPY_MOVE(Wait)
        [[nodiscard]] auto operator co_await() const
        {
            return typename Delivery<Value>::Awaiter(m_delivery);
        }

    private:
        std::shared_ptr<Delivery<Value>> m_delivery;
    };

    /// Takes the slot. Await the result once. Deliberate: an earlier waiter stays suspended until
    /// the slot is destroyed.
    Wait wait();

    [[nodiscard]] bool isWaiting() const { return m_waiting != nullptr; }

    /// Empties the slot, then resumes the waiter in its own turn of the event loop. Does nothing
    /// without a waiter.
    void end(Outcome<Value> outcome);
    void finish(Value value) { end(Outcome<Value>::success(std::move(value))); }
    template <class Error>
    void fail(Error error)
    {
        end(Outcome<Value>::failure(std::move(error)));
    }

private:
    std::shared_ptr<Delivery<Value>> m_waiting;
    std::vector<std::shared_ptr<Delivery<Value>>> m_replaced;
};

template <class Value>
OneShotSlot<Value>::~OneShotSlot()
{
    auto abandoned = std::exchange(m_replaced, {});
    if (m_waiting)
        abandoned.push_back(std::exchange(m_waiting, {}));
    for (const auto &delivery : abandoned) {
        delivery->arrive(Outcome<Value>::failure(Abandoned()));
        delivery->resume();
    }
}

template <class Value>
typename OneShotSlot<Value>::Wait OneShotSlot<Value>::wait()
{
    if (m_waiting)
        m_replaced.push_back(std::move(m_waiting));
    m_waiting = std::make_shared<Delivery<Value>>();
    return Wait(m_waiting);
}

template <class Value>
void OneShotSlot<Value>::end(Outcome<Value> outcome)
{
    const auto delivery = std::exchange(m_waiting, {});
    if (!delivery)
        return;
    delivery->arrive(std::move(outcome));
    postToMainThread([delivery] { delivery->resume(); });
}

} // namespace quorvel
