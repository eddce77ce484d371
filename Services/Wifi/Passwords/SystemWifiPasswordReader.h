#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Wifi/WifiClient.h"

#include <QString>

#include <optional>

namespace quorvel {

/// The passwords that the system itself has stored for networks the machine was on before, so that
/// the user fills in one of them instead of typing it.
class SystemWifiPasswordReader
{
public:
    virtual ~SystemWifiPasswordReader() = default;

    /// The password without blanks around it; nothing when none is stored, the user refused, or
    /// anything went wrong. Never throws, and takes as long as the user does to agree.
    [[nodiscard]] virtual Task<std::optional<QString>> password(QString forSSID) = 0;
};

/// The stored passwords as the system's wireless client gives them out.
class SecurityCLIWifiPasswordReader final : public SystemWifiPasswordReader
{
public:
    /// The client outlives the reader.
    explicit SecurityCLIWifiPasswordReader(WifiClient &client);

    [[nodiscard]] Task<std::optional<QString>> password(QString forSSID) override;

private:
    WifiClient &m_client;
};

} // namespace quorvel
