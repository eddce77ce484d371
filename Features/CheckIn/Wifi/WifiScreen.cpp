#include "Features/CheckIn/Wifi/WifiScreen.h"

namespace quorvel {

using namespace Qt::StringLiterals;

WifiScreen::WifiScreen(WifiScanSection::Inputs inputs, QObject *parent)
    : QObject(parent)
    , m_section(following(std::move(inputs)))
{
    connect(&m_section, &WifiScanSection::changed, this, [this] {
        m_rows.setRecords(m_section.rows());
        emit changed();
    });
}

void WifiScreen::setCurrentNetwork(const std::optional<QString> &ssid,
                                   const std::optional<WifiSignal> &signal)
{
    m_section.setCurrentNetwork(ssid, signal);
}

void WifiScreen::submit()
{
    if (m_section.targetRequiresConnect())
        m_section.connectTo(m_section.targetSSID());
    else
        m_section.saveOnly(m_section.targetSSID());
}

void WifiScreen::toggleStored()
{
    m_section.toggleRevealStoredPassword(m_section.targetSSID());
}

WifiScreen::State WifiScreen::state() const
{
    switch (m_section.scanState()) {
    case WifiScanSection::ScanState::Scanning:
        return State::Scanning;
    case WifiScanSection::ScanState::Loaded:
        return State::Loaded;
    case WifiScanSection::ScanState::Unavailable:
        return State::Unavailable;
    }
    Q_UNREACHABLE();
}

QString WifiScreen::headerText() const
{
    return state() == State::Scanning ? u"Scanning…"_s : countText();
}

QString WifiScreen::countText() const
{
    return QString::number(m_rows.rowCount()) + u" found"_s;
}

bool WifiScreen::showsHint() const
{
    return state() == State::Loaded && !m_section.expanded();
}

bool WifiScreen::isOtherOpen() const
{
    return m_section.expanded() == WifiScanSection::otherKey;
}

QString WifiScreen::prompt() const
{
    return u"Enter the password for "_s + m_section.targetSSID() +
           u" — saved to your Keychain for next time."_s;
}

QString WifiScreen::submitTitle() const
{
    return m_section.targetRequiresConnect() ? u"Save & Connect"_s : u"Save"_s;
}

bool WifiScreen::canSubmit() const
{
    return m_section.isPasswordLongEnough() && !m_section.targetSSID().isEmpty() &&
           !(m_section.targetRequiresConnect() && m_section.connecting());
}

bool WifiScreen::isConnecting() const
{
    return m_section.connectingSSID() == m_section.targetSSID();
}

QString WifiScreen::errorText() const
{
    return m_section.connectErrorMessage().value_or(QString());
}

QString WifiScreen::storedText() const
{
    // Deliberate: as many bullets for every password, so that its length stays unknown.
    return m_section.revealedScannedPassword().value_or(u"••••••••••"_s);
}

bool WifiScreen::isStoredRevealed() const
{
    return m_section.revealedScannedPassword().has_value();
}

QString WifiScreen::copyTitle() const
{
    return m_section.copiedScanned() ? u"Copied!"_s : u"Copy"_s;
}

QString WifiScreen::copySymbol() const
{
    return m_section.copiedScanned() ? u"checkmark"_s : u"doc.on.doc"_s;
}

/// After a join the machine is on another network than when the screen was made.
WifiScanSection::Inputs WifiScreen::following(WifiScanSection::Inputs inputs)
{
    auto *service = &inputs.wifiService;
    inputs.onConnected = [this, service, then = std::move(inputs.onConnected)] {
        setCurrentNetwork(service->currentSSID(), service->currentSignal());
        if (then)
            then();
    };
    return inputs;
}

} // namespace quorvel
