#include "Features/CheckIn/Wifi/WifiScanSection.h"

#include "Core/Keychain/KeychainError.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

/// For a network that the machine is joined to, but that neither the scan nor the radio weighed.
constexpr qint64 assumedRssiDBm = -60;

/// As people count, in characters.
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

QString detailText(const WifiNetwork &network)
{
    return network.signal().label + u" · "_s + QString::number(network.rssiDBm) + u" dBm"_s;
}

} // namespace

WifiScanSection::WifiScanSection(Inputs inputs, QObject *parent)
    : QObject(parent)
    , m_inputs(std::move(inputs))
    , m_storedPasswords(m_inputs.keychainStore)
{
    m_copiedTimer.setSingleShot(true);
    m_copiedTimer.setInterval(m_inputs.copiedInterval);
    connect(&m_copiedTimer, &QTimer::timeout, this, &WifiScanSection::changed);
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
    emit changed();
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
    emit changed();
}

void WifiScanSection::toggle(const QString &ssid)
{
    open(m_expanded == ssid ? std::nullopt : std::optional(ssid));
    emit changed();
}

void WifiScanSection::saveOnly(const QString &ssid)
{
    if (!isPasswordLongEnough())
        return;
    try {
        m_storedPasswords.save(m_connectPasswordDraft, ssid);
    } catch (const KeychainError &error) {
        m_connectErrorMessage = error.errorDescription();
        emit changed();
        return;
    }
    m_connectErrorMessage.reset();
    m_connectPasswordDraft.clear();
    emit changed();
    if (m_inputs.onConnected)
        m_inputs.onConnected();
}

void WifiScanSection::connectTo(const QString &ssid)
{
    if (ssid.isEmpty() || !isPasswordLongEnough() || connecting())
        return;
    m_connectingSSID = ssid;
    m_connectErrorMessage.reset();
    emit changed();
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
    emit changed();
    spawn(fill(this, m_fill.get_token(), ssid));
}

void WifiScanSection::toggleRevealConnectPassword()
{
    m_revealConnectPassword = !m_revealConnectPassword;
    emit changed();
}

void WifiScanSection::toggleRevealStoredPassword(const QString &ssid)
{
    m_revealedScannedPassword =
        m_revealedScannedPassword ? std::nullopt : m_storedPasswords.read(ssid);
    emit changed();
}

void WifiScanSection::copyStoredPassword(const QString &ssid)
{
    if (const auto password = m_storedPasswords.read(ssid)) {
        m_inputs.pasteboard.clearContents();
        m_inputs.pasteboard.setSecret(*password);
        m_copiedTimer.start();
    }
    emit changed();
}

void WifiScanSection::setManualSSIDDraft(const QString &draft)
{
    if (m_manualSSIDDraft == draft)
        return;
    m_manualSSIDDraft = draft;
    if (isTargetManual())
        forgetFill();
    emit changed();
}

void WifiScanSection::setConnectPasswordDraft(const QString &draft)
{
    if (m_connectPasswordDraft == draft)
        return;
    m_connectPasswordDraft = draft;
    emit changed();
}

QList<WifiRow> WifiScanSection::rows() const
{
    QList<WifiRow> rows;
    for (const WifiNetwork &network : m_networks) {
        const bool isConnected = m_currentSSID == network.ssid;
        rows.append({.ssid = network.ssid,
                     .isOpen = m_expanded == network.ssid && network.ssid != otherKey,
                     .isConnected = isConnected,
                     .isSaved = m_storedPasswords.isSaved(network.ssid),
                     .detailText = detailText(network),
                     .bars = network.signal().bars,
                     .requiresConnect = !isConnected});
    }
    return rows;
}

QString WifiScanSection::targetSSID() const
{
    return isTargetManual() ? m_manualSSIDDraft : m_expanded.value_or(QString());
}

bool WifiScanSection::targetRequiresConnect() const
{
    return isTargetManual() || m_expanded != m_currentSSID;
}

bool WifiScanSection::isPasswordLongEnough() const
{
    return length(m_connectPasswordDraft) >= shortestPassword;
}

void WifiScanSection::updateNetworks()
{
    m_networks = m_scanned ? mergeCurrentNetwork(*m_scanned) : QList<WifiNetwork>();
    m_scanState = m_networks.isEmpty() ? ScanState::Unavailable : ScanState::Loaded;
    m_storedPasswords.learn(names(m_networks));
    closeRowThatIsGone();
}

/// What was typed for a network is not meant for another one.
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

void WifiScanSection::open(const std::optional<QString> &row)
{
    m_expanded = row;
    m_revealedScannedPassword.reset();
    m_connectErrorMessage.reset();
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

} // namespace quorvel
