#include "Core/Keychain/KeychainError.h"
#include "Core/Support/AppError.h"
#include "Features/CheckIn/Wifi/WifiScanSection.h"
#include "Features/CheckIn/Wifi/WifiTexts.h"

#include <optional>
#include <utility>

namespace quorvel {

namespace {

Task<std::optional<QList<WifiNetwork>>> networksOrNone(WifiService *service)
{
    try {
        const auto networks = co_await service->scanNearbyNetworks();
        co_return networks;
    } catch (const AppError &) {
        // Silent: the section offers to type a name instead.
    }
    co_return std::nullopt;
}

Task<bool> hasJoined(WifiService *service, QString ssid, QString password)
{
    try {
        co_await service->connect(ssid, password);
        co_return true;
    } catch (const AppError &) {
        // The section has its own sentence for it.
    }
    co_return false;
}

} // namespace

Task<> WifiScanSection::scan(QPointer<WifiScanSection> self, std::stop_token stop)
{
    auto *service = &self->m_inputs.wifiService;
    const auto networks = co_await networksOrNone(service);
    if (self && !stop.stop_requested())
        self->didScan(networks);
}

Task<> WifiScanSection::join(QPointer<WifiScanSection> self, QString ssid, QString password)
{
    auto *service = &self->m_inputs.wifiService;
    const auto joined = co_await hasJoined(service, ssid, password);
    if (!self)
        co_return;
    if (joined)
        self->didJoin(ssid, password);
    else
        self->didNotJoin(ssid);
}

Task<> WifiScanSection::fill(QPointer<WifiScanSection> self, std::stop_token stop, QString ssid)
{
    auto *reader = &self->m_inputs.systemPasswordReader;
    const auto password = co_await reader->password(ssid);
    if (!self || stop.stop_requested())
        co_return;
    self->m_fillingSSID.reset();
    if (password)
        self->m_connectPasswordDraft = *password;
    self->publish();
}

void WifiScanSection::didScan(const std::optional<QList<WifiNetwork>> &networks)
{
    m_scanned = networks;
    m_storedPasswords.forget();
    updateNetworks();
    if (m_scanned && !std::exchange(m_hasSetInitialExpansion, true))
        open(m_currentSSID);
    publish();
}

void WifiScanSection::didJoin(const QString &ssid, const QString &password)
{
    m_connectingSSID.reset();
    try {
        m_storedPasswords.save(password, ssid);
    } catch (const KeychainError &) {
        // Silent: the machine is on the network, as the user wanted.
    }
    publish();
    didStore();
}

void WifiScanSection::didNotJoin(const QString &ssid)
{
    m_connectingSSID.reset();
    if (targetSSID() == ssid)
        m_connectErrorMessage = WifiTexts::cannotConnect();
    publish();
}

void WifiScanSection::didStore()
{
    // After a join the machine is on another network.
    setCurrentNetwork(m_inputs.wifiService.currentSSID(), m_inputs.wifiService.currentSignal());
    if (m_inputs.onConnected)
        m_inputs.onConnected();
}

} // namespace quorvel
