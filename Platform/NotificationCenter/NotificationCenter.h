#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorvel {

/// Tells observers that something of a given name has happened, so that features need not know each
/// other. Main thread only.
class NotificationCenter final
{
public:
    NotificationCenter() = default;
    Q_DISABLE_COPY_MOVE(NotificationCenter)

    /// The center of the whole process.
    [[nodiscard]] static NotificationCenter &standard();

    class Observation;

    /// The handler receives every later post of that name while the observation is kept.
    [[nodiscard]] Observation observe(const QString &name, std::function<void()> handler);

    /// Calls the handlers before it returns, in the order of their observations. An observation
    /// that starts meanwhile gets the next post; one that ends meanwhile gets nothing more.
    void post(const QString &name);

private:
    struct Observer
    {
        QString name;
        std::function<void()> handler;
    };

    std::vector<std::weak_ptr<const Observer>> m_observers;
};

/// Keeps a handler observing until this is destroyed. The center may be destroyed first.
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
