#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace quorvel {

/// Tells those who asked for a name that something of that name has happened, so that one feature
/// follows another without knowing it. Main thread only.
class NotificationCenter final
{
public:
    NotificationCenter() = default;
    Q_DISABLE_COPY_MOVE(NotificationCenter)

    /// The one of the whole process.
    [[nodiscard]] static NotificationCenter &standard();

    class Observation;

    /// The handler hears every later post of that name, for as long as the observation is kept.
    [[nodiscard]] Observation observe(const QString &name, std::function<void()> handler);

    /// Calls the handlers before it returns, in the order in which they began to observe. One that
    /// begins meanwhile hears the next post; one that ends meanwhile hears nothing more.
    void post(const QString &name);

private:
    struct Observer
    {
        QString name;
        std::function<void()> handler;
    };

    std::vector<std::weak_ptr<const Observer>> m_observers;
};

/// Keeps a handler observing until it is destroyed, before or after its center.
class NotificationCenter::Observation final
{
public:
    /// Observes nothing.
    Observation() = default;
    Observation(Observation &&) noexcept = default;
    Observation &operator=(Observation &&) noexcept = default;

private:
    friend class NotificationCenter;

    explicit Observation(std::shared_ptr<const Observer> observer)
        : m_observer(std::move(observer))
    {}

    std::shared_ptr<const Observer> m_observer;
};

} // namespace quorvel
