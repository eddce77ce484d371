#pragma once

#include "Platform/SingleInstance/SingleInstance.h"

#include <QProcessEnvironment>

#include <chrono>

namespace quorvel {

/// The claim as a name on the session's bus: whoever owns the name is the one instance.
class DBusSingleInstance final : public SingleInstance
{
    Q_OBJECT

public:
    /// How long the owner of the name may take to answer: it may be starting itself, but nobody
    /// waits longer for a window.
    static constexpr std::chrono::seconds answerLimit{5};

    /// The environment is that of this start, and the request is what it hands over; needs an
    /// application object.
    explicit DBusSingleInstance(const QProcessEnvironment &environment,
                                std::chrono::milliseconds limit = answerLimit,
                                Request request = Request::Panel, QObject *parent = nullptr);
    ~DBusSingleInstance() override;

    [[nodiscard]] Claim claim() override;

private:
    enum class Name { Ours, SomebodyElses, Unknown };

    [[nodiscard]] Claim claimOnBus();
    [[nodiscard]] static Name requestName();
    [[nodiscard]] bool activateOwner() const;

    QProcessEnvironment m_environment;
    std::chrono::milliseconds m_limit;
    Request m_request;
    bool m_isOnBus = false;
};

} // namespace quorvel
