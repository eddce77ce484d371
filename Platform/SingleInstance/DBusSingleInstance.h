#pragma once

#include "Platform/SingleInstance/SingleInstance.h"

#include <QProcessEnvironment>

#include <chrono>
#include <optional>

namespace quorvel {

/// The claim as a name on the session's bus: whoever owns the name is the one instance.
class DBusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    /// How long the owner of the name may take to answer: it may be starting itself, but nobody
    /// waits longer for a window.
    static constexpr std::chrono::seconds answerLimit{5};

    /// The environment is that of this start, and the request is what it hands over, if anything;
    /// needs an application object.
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
