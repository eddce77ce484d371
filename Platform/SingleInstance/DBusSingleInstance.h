#pragma once

#include "Platform/SingleInstance/SingleInstance.h"

#include <QProcessEnvironment>

#include <chrono>
#include <optional>

namespace quorvel {

/// The claim as a name on the session bus: the owner of the name is the one instance.
class DBusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    /// How long the owner of the name may take to answer. It may still be starting, but nobody
    /// waits longer for a window.
    static constexpr std::chrono::seconds answerLimit{5};

    /// `environment` is this start's environment; `request` is what a running instance is asked
    /// for, if anything. Needs an application object.
    explicit DBusSingleInstance(const QProcessEnvironment &environment,
                                std::chrono::milliseconds limit = answerLimit,
                                std::optional<Request> request = Request::Panel,
                                QObject *parent = nullptr);
    ~DBusSingleInstance() override;

    [[nodiscard]] Claim claim() override;

private:
    enum class Name { Ours, SomebodyElses, Unknown };

    [[nodiscard]] Claim claimOnBus();
    [[nodiscard]] static Name requestName();
    [[nodiscard]] bool handOver() const;
    [[nodiscard]] bool activateOwner(Request request) const;

    QProcessEnvironment m_environment;
    std::chrono::milliseconds m_limit;
    std::optional<Request> m_request;
    bool m_isOnBus = false;
};

} // namespace quorvel
