#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

#include "Platform/Wifi/WifiError.h"

#include <utility>

namespace quorvel {

namespace {

std::optional<QString> trimmed(const std::optional<QString> &password)
{
    const QString text = password.value_or(QString()).trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

// Lifetime: coroutines may outlive the reader, so they are not members of it.

Task<std::optional<QString>> read(WifiClient *client, QString ssid)
{
    Pending<std::optional<QString>> pending;
    client->storedPassword(ssid, pending.completion());
    try {
        const auto password = co_await pending;
        co_return trimmed(password);
    } catch (const WifiError &) {
        // Silent: without a stored password the user types one.
    }
    co_return std::nullopt;
}

} // namespace

SecurityCLIWifiPasswordReader::SecurityCLIWifiPasswordReader(WifiClient &client)
    : m_client(client)
{}

Task<std::optional<QString>> SecurityCLIWifiPasswordReader::password(QString forSSID)
{
    return read(&m_client, std::move(forSSID));
}

} // namespace quorvel
