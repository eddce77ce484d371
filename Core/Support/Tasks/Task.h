#pragma once

#include "Platform/Errors/Outcome.h"

#include <QCoroTask>

#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace quorvel {

/// What an asynchronous operation returns, for all who write or await one. It starts at the call,
/// runs on the main thread and goes on by itself when nobody holds it any more.
template <class Value = void>
using Task = QCoro::Task<Value>;

/// Ends the wait for an answer that nobody is left to give. Not for the user: it only unwinds
/// whoever waited.
class Abandoned final : public std::exception
{
public:
    [[nodiscard]] const char *what() const noexcept override;
};

/// Runs the action in a turn of the main event loop that begins after the caller's has ended. From
/// any thread.
void postToMainThread(std::function<void()> action);

/// One outcome on its way to the one coroutine that awaits it, before or after it arrives. Lives on
/// the main thread.
template <class Value>
class Delivery final
{
public:
    /// Once. The coroutine goes on when told to.
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

/// The bridge from a call that ends in a Completion to a coroutine, once:
/// `Pending<T> pending; facility.operation(pending.completion()); auto value = co_await pending;`.
/// It gives the value, throws the call's error, or throws Abandoned when the completion was
/// destroyed without having been called. The coroutine goes on in a turn of the event loop of its
/// own, where it may even destroy the facility.
template <class Value>
class Pending final
{
public:
    Pending() = default;
    Q_DISABLE_COPY_MOVE(Pending)

    /// To be asked for once. May be called on any thread; only its first call counts.
    [[nodiscard]] Completion<Value> completion()
    {
        Q_ASSERT(m_sender);
        return [sender = std::exchange(m_sender, {})](Outcome<Value> outcome) {
            sender->send(std::move(outcome));
        };
    }

    /// Copies of an awaited variable would lose its state: the awaiter is always a new object.
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
            // A closure that can be posted can be copied, which an outcome need not be.
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

/// Lets a task run that nobody awaits. An exception that leaves it is a bug and ends the program
/// with its text; only an abandoned task ends in silence.
void spawn(Task<> task);

/// Unwinds whoever still waits for a facility that is gone, where no event loop will run again to
/// do it: once, when the program has taken down what it was made of. On the main thread.
void unwindAbandonedTasks();

} // namespace quorvel
