#pragma once

#include "Platform/Errors/Outcome.h"

#include <QCoroTask>

#include <coroutine>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace quorvel {

/// The return type of every asynchronous operation. A task starts at the call, runs on the main
/// thread, and continues even if nobody holds it.
template <class Value = void>
using Task = QCoro::Task<Value>;

/// Ends the wait for an answer that can no longer come. It only unwinds the waiting coroutine; the
/// user never sees it.
class Abandoned final : public std::exception
{
public:
    [[nodiscard]] const char *what() const noexcept override;
};

/// Runs the action in a later turn of the main event loop than the caller's. Any thread may call
/// it.
void postToMainThread(std::function<void()> action);

/// Carries one outcome to the one coroutine that awaits it; either may come first. Main thread
/// only.
template <class Value>
class Delivery final
{
public:
    /// Sets the outcome, once. The coroutine resumes when it is told to.
    void arrive(Outcome<Value> outcome) { m_outcome.emplace(std::move(outcome)); }
    void resume()
    {
        if (const auto waiter = std::exchange(m_waiter, {}))
            waiter.resume();
    }

    class Awaiter final
    {
    public:
        explicit Awaiter(std::shared_ptr<Delivery> delivery)
            : m_delivery(std::move(delivery))
        {}
        [[nodiscard]] bool await_ready() const noexcept
        {
            return m_delivery->m_outcome.has_value();
        }
        void await_suspend(std::coroutine_handle<> waiter) noexcept
        {
            m_delivery->m_waiter = waiter;
        }
        Value await_resume() { return m_delivery->m_outcome->take(); }

    private:
        std::shared_ptr<Delivery> m_delivery;
    };

private:
    std::optional<Outcome<Value>> m_outcome;
    std::coroutine_handle<> m_waiter;
};

/// The bridge from a call with a Completion to a coroutine, for one call:
/// `Pending<T> pending; facility.operation(pending.completion()); auto value = co_await pending;`.
/// Awaiting it returns the value, throws the call's error, or throws Abandoned if the completion
/// was destroyed before it was called. The coroutine resumes in its own turn of the event loop,
/// where it may even destroy the facility.
template <class Value>
class Pending final
{
public:
    Pending() = default;
    Q_DISABLE_COPY_MOVE(Pending)

    /// Ask for it once. Any thread may call it; only the first call counts.
    [[nodiscard]] Completion<Value> completion()
    {
        Q_ASSERT(m_sender);
        return [sender = std::exchange(m_sender, {})](Outcome<Value> outcome) {
            sender->send(std::move(outcome));
        };
    }

    /// The awaiter is always a new object, since a copy of an awaited variable would lose its
    /// state.
    [[nodiscard]] auto operator co_await()
    {
        m_sender.reset();
        return typename Delivery<Value>::Awaiter(m_delivery);
    }

private:
    class Sender final
    {
    public:
        explicit Sender(std::shared_ptr<Delivery<Value>> delivery)
            : m_delivery(std::move(delivery))
        {}
        Q_DISABLE_COPY_MOVE(Sender)
        ~Sender() { send(Outcome<Value>::failure(Abandoned())); }

        void send(Outcome<Value> outcome)
        {
            if (!m_delivery)
                return;
            // A posted closure must be copyable; an outcome need not be.
            auto shared = std::make_shared<Outcome<Value>>(std::move(outcome));
            postToMainThread(
                [delivery = std::exchange(m_delivery, {}), shared = std::move(shared)] {
                    delivery->arrive(std::move(*shared));
                    delivery->resume();
                });
        }

    private:
        std::shared_ptr<Delivery<Value>> m_delivery;
    };

    std::shared_ptr<Delivery<Value>> m_delivery = std::make_shared<Delivery<Value>>();
    std::shared_ptr<Sender> m_sender = std::make_shared<Sender>(m_delivery);
};

/// Runs a task that nobody awaits. An exception that leaves it is a bug: it ends the program with
/// the exception's text. Only Abandoned ends the task silently.
void spawn(Task<> task);

/// Unwinds the coroutines that still wait for a facility that is gone. Call it once on the main
/// thread, after the program has destroyed its parts: no event loop will run again to do it.
void unwindAbandonedTasks();

} // namespace quorvel
