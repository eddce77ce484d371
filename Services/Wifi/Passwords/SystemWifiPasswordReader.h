#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Platform/Wifi/WifiClient.h"

#include <QString>

#include <optional>

namespace quorvel {

/// Reads the passwords that the system has stored for known networks, so that the user need not
/// type them again.
class SystemWifiPasswordReader
{
public:
    virtual ~SystemWifiPasswordReader() = default;

    /// Returns the password without surrounding blanks; nothing if none is stored, the user refuses
    /// or anything fails. Never throws. Waits until the user has answered the system's question.
    [[nodiscard]] virtual Task<std::optional<QString>> password(QString forSSID) = 0;
};

/// Reads the stored passwords from the system's wireless client.
class SecurityCLIWifiPasswordReader final : public SystemWifiPasswordReader
{
public:
    /// The client must outlive the reader.
    explicit SecurityCLIWifiPasswordReader(WifiClient &client);

    [[nodiscard]] Task<std::optional<QString>> password(QString forSSID) override;

private:
    WifiClient &m_client;
};

} // namespace quorvel
