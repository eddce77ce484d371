#include "Features/CheckIn/Wifi/WifiScanSection.h"

#include "Core/Keychain/KeychainError.h"
#include "Features/CheckIn/Wifi/WifiTexts.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace quorvel {

namespace {

constexpr qsizetype shortestPassword = 8;

/// The strength of a joined network that neither the scan nor the radio reports.
constexpr qint64 assumedRssiDBm = -60;

/// In characters, as people count them.
qsizetype length(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() != -1)
        ++count;
    return count;
}

QStringList names(const QList<WifiNetwork> &networks)
{
    QStringList names;
    std::ranges::transform(networks, std::back_inserter(names), &WifiNetwork::ssid);
    return names;
}

} // namespace

WifiScanSection::WifiScanSection(Inputs inputs, QObject *parent)
    : QObject(parent)
    , m_inputs(std::move(inputs))
    , m_storedPasswords(m_inputs.keychainStore)
{
    m_copiedTimer.setSingleShot(true);
    m_copiedTimer.setInterval(m_inputs.copiedInterval);
    connect(&m_copiedTimer, &QTimer::timeout, this, &WifiScanSection::publish);
}

void WifiScanSection::setCurrentNetwork(std::optional<QString> ssid,
                                        std::optional<WifiSignal> signal)
{
    if (m_currentSSID == ssid && m_currentSignal == signal)
        return;
    m_currentSSID = std::move(ssid);
    m_currentSignal = std::move(signal);
    if (m_scanned)
        updateNetworks();
    publish();
}

void WifiScanSection::appear()
{
    if (m_isShown)
        return;
    m_isShown = true;
    m_scan = std::stop_source();
    spawn(scan(this, m_scan.get_token()));
}

void WifiScanSection::disappear()
{
    m_isShown = false;
    m_scan.request_stop();
    m_revealConnectPassword = false;
    m_revealedScannedPassword.reset();
    publish();
}

void WifiScanSection::toggle(const QString &ssid)
{
    open(m_expanded == ssid ? std::nullopt : std::optional(ssid));
    publish();
}

void WifiScanSection::submit()
{
    if (targetRequiresConnect())
        connectTo(targetSSID());
    else
        saveOnly(targetSSID());
}

void WifiScanSection::saveOnly(const QString &ssid)
{
    if (!isPasswordLongEnough())
        return;
    try {
        m_storedPasswords.save(m_connectPasswordDraft, ssid);
    } catch (const KeychainError &error) {
        m_connectErrorMessage = error.errorDescription();
        publish();
        return;
    }
    m_connectErrorMessage.clear();
    m_connectPasswordDraft.clear();
    publish();
    didStore();
}

void WifiScanSection::connectTo(const QString &ssid)
{
    if (ssid.isEmpty() || !isPasswordLongEnough() || connecting())
        return;
    m_connectingSSID = ssid;
    m_connectErrorMessage.clear();
    publish();
    spawn(join(this, ssid, m_connectPasswordDraft));
}

void WifiScanSection::fillFromSystem(const QString &ssid)
{
    // The system may be asking the user already.
    if (m_fillingSSID == ssid)
        return;
    m_fill.request_stop();
    m_fill = std::stop_source();
    m_fillingSSID = ssid;
    m_autofillAttempted = true;
    publish();
    spawn(fill(this, m_fill.get_token(), ssid));
}

void WifiScanSection::toggleRevealConnectPassword()
{
    m_revealConnectPassword = !m_revealConnectPassword;
    publish();
}

void WifiScanSection::toggleRevealStoredPassword(const QString &ssid)
{
    m_revealedScannedPassword =
        m_revealedScannedPassword ? std::nullopt : m_storedPasswords.read(ssid);
    publish();
}

void WifiScanSection::copyStoredPassword(const QString &ssid)
{
    if (const auto password = m_storedPasswords.read(ssid)) {
        m_inputs.pasteboard.clearContents();
        m_inputs.pasteboard.setSecret(*password);
        m_copiedTimer.start();
    }
    publish();
}

void WifiScanSection::setManualSSIDDraft(const QString &draft)
{
    if (m_manualSSIDDraft == draft)
        return;
    m_manualSSIDDraft = draft;
    if (isTargetManual())
        forgetFill();
    publish();
}

void WifiScanSection::setConnectPasswordDraft(const QString &draft)
{
    if (m_connectPasswordDraft == draft)
        return;
    m_connectPasswordDraft = draft;
    publish();
}

QString WifiScanSection::headerText() const
{
    const bool isScanning = m_scanState == ScanState::Scanning;
    return WifiTexts::header(isScanning ? std::nullopt : std::optional(m_networks.size()));
}

bool WifiScanSection::showsHint() const
{
    return m_scanState == ScanState::Loaded && !m_expanded;
}

ConnectRowState WifiScanSection::connectRow() const
{
    const QString ssid = targetSSID();
    const bool requiresConnect = targetRequiresConnect();
    return {.ssid = ssid,
            .prompt = WifiTexts::prompt(ssid),
            .connectPasswordDraft = m_connectPasswordDraft,
            .revealConnectPassword = m_revealConnectPassword,
            .revealTitle = WifiTexts::revealTitle(m_revealConnectPassword),
            .connecting = m_connectingSSID == ssid,
            .connectErrorMessage = m_connectErrorMessage,
            .canSubmit =
                isPasswordLongEnough() && !ssid.isEmpty() && !(requiresConnect && connecting()),
            .submitTitle = WifiTexts::submitTitle(requiresConnect)};
}

StoredRowState WifiScanSection::storedRow() const
{
    const bool isRevealed = m_revealedScannedPassword.has_value();
    const bool copiedScanned = m_copiedTimer.isActive();
    return {.text = WifiTexts::stored(m_revealedScannedPassword),
            .spokenText = WifiTexts::storedSpoken(m_revealedScannedPassword),
            .isRevealed = isRevealed,
            .revealTitle = WifiTexts::revealTitle(isRevealed),
            .copiedScanned = copiedScanned,
            .copyTitle = WifiTexts::copyTitle(copiedScanned)};
}

void WifiScanSection::updateNetworks()
{
    m_networks = m_scanned ? mergeCurrentNetwork(*m_scanned) : QList<WifiNetwork>();
    m_scanState = m_networks.isEmpty() ? ScanState::Unavailable : ScanState::Loaded;
    m_storedPasswords.learn(names(m_networks));
    closeRowThatIsGone();
}

/// A text that was typed for one network is not meant for another.
void WifiScanSection::closeRowThatIsGone()
{
    if (m_expanded && m_expanded != otherKey && !names(m_networks).contains(*m_expanded))
        open(std::nullopt);
}

QList<WifiNetwork> WifiScanSection::mergeCurrentNetwork(QList<WifiNetwork> into) const
{
    if (m_currentSSID && !names(into).contains(*m_currentSSID))
        into.append({.ssid = *m_currentSSID,
                     .rssiDBm = m_currentSignal ? m_currentSignal->rssiDBm : assumedRssiDBm});
    return into;
}

WifiRow WifiScanSection::row(const WifiNetwork &network) const
{
    const bool isConnected = m_currentSSID == network.ssid;
    const bool isSaved = m_storedPasswords.isSaved(network.ssid);
    const QString detail = WifiTexts::detail(network);
    return {.ssid = network.ssid,
            .isOpen = m_expanded == network.ssid && network.ssid != otherKey,
            .isConnected = isConnected,
            .isSaved = isSaved,
            .detailText = detail,
            .bars = network.signal().bars,
            .description = WifiTexts::description(isConnected, isSaved, detail)};
}

void WifiScanSection::open(const std::optional<QString> &row)
{
    m_expanded = row;
    m_revealedScannedPassword.reset();
    m_connectErrorMessage.clear();
    m_connectPasswordDraft.clear();
    m_revealConnectPassword = false;
    m_copiedTimer.stop();
    forgetFill();
}

void WifiScanSection::forgetFill()
{
    m_fill.request_stop();
    m_fillingSSID.reset();
}

bool WifiScanSection::isTargetManual() const
{
    return m_expanded == otherKey || m_scanState == ScanState::Unavailable;
}

/// The network of the password field; empty without one.
QString WifiScanSection::targetSSID() const
{
    return isTargetManual() ? m_manualSSIDDraft : m_expanded.value_or(QString());
}

/// Whether only a join shows that its password is right.
bool WifiScanSection::targetRequiresConnect() const
{
    return isTargetManual() || m_expanded != m_currentSSID;
}

bool WifiScanSection::isPasswordLongEnough() const
{
    return length(m_connectPasswordDraft) >= shortestPassword;
}

void WifiScanSection::publish()
{
    QList<WifiRow> rows;
    for (const WifiNetwork &network : m_networks)
        rows.append(row(network));
    m_rows.setRecords(rows);
    emit changed();
}

} // namespace quorvel
