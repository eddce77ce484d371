#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/LoopServices.h"
#include "Features/Terminal/TerminalParts.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Quorvel/LiveFacilities.h"

#include <optional>

namespace quorvel {

/// The live parts of the commands. It announces every stored visit to the session.
class LiveTerminal final : public TerminalParts
{
public:
    LiveTerminal();

    [[nodiscard]] CheckInRepository &repository() override;
    [[nodiscard]] Services services() override;
    [[nodiscard]] const FileManager &fileManager() override;
    [[nodiscard]] const Clock &clock() override;
    [[nodiscard]] NotificationCenter &notificationCenter() override;

private:
    void waitForRadio();

    NotificationCenter::Observation m_saveObserver;
    std::optional<AppEnvironment> m_environment;
    std::optional<LiveFacilities> m_live;
    std::optional<LoopServices> m_services;
};

} // namespace quorvel
