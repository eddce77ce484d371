#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "_Probes/ProbeRoles.h"

namespace quorvel::tests {

/// Fakes of everything that the diagnostics use. It outlives them.
struct ProbeWorld
{
    enum class Store { Absent, Present };

    ProbeWorld();
    ~ProbeWorld();
    Q_DISABLE_COPY_MOVE(ProbeWorld)

    [[nodiscard]] ProbeRoles roles(Store store = Store::Present);

    void willLocate(const Location &where);
    void visit(const QString &time, const QString &cafe);

    AuthorizationStatus status = AuthorizationStatus::NotDetermined;
    FakeLocationService location;
    FakeWifiService wifi;
    FakePlacesService places;
    FakeCheckInRepository repository;
    QString setupError;
    FakePasteboard pasteboard;
    LoopWorld loop;
};

} // namespace quorvel::tests
