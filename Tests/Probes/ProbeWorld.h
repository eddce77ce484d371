#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Platform/Location/Location.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Support/Services/FakeServices.h"
#include "Tests/Support/Services/QuietFacilities.h"
#include "_Probes/ProbeViewModel.h"

namespace quorvel::tests {

/// Fakes of everything that the diagnostics use; the services are those of the actions. It outlives
/// them.
struct ProbeWorld : FakeServices
{
    enum class Store { Absent, Present };

    ProbeWorld();
    ~ProbeWorld();

    [[nodiscard]] ProbeViewModel makeViewModel(Store store = Store::Present);

    void willLocate(const Location &where);
    void visit(const QString &time, const QString &cafe);

    QuietFacilities system;
    FakeCheckInRepository repository;
    QString setupError;
    LoopWorld loop;
};

} // namespace quorvel::tests
