#include "Platform/NotificationCenter/NotificationCenter.h"

#include <utility>

namespace quorvel {

NotificationCenter &NotificationCenter::standard()
{
    static NotificationCenter center;
    return center;
}

NotificationCenter::Observation NotificationCenter::observe(const QString &name,
                                                            std::function<void()> handler)
{
    std::erase_if(m_observers, [](const auto &observer) { return observer.expired(); });
    auto observer = std::make_shared<const Observer>(Observer{name, std::move(handler)});
    m_observers.push_back(observer);
    return Observation(std::move(observer));
}

void NotificationCenter::post(const QString &name)
{
    // Lifetime: a handler may start or end observations, even its own, or post again.
    const auto observers = m_observers;
    for (const auto &place : observers) {
        const auto observer = place.lock();
        if (observer && observer->name == name)
            observer->handler();
    }
}

} // namespace quorvel
