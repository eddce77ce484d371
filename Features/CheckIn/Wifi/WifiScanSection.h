#pragma once

#include "Features/CheckIn/Wifi/StoredPasswords.h"
#include "Features/CheckIn/Wifi/WifiRow.h"
#include "Platform/Pasteboard/Pasteboard.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"
#include "Services/Wifi/WifiModels.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <stop_token>

namespace quorvel {

/// The Wi-Fi block of the check-in screen: the networks nearby, of which one row may be open, and
/// what the user does with its password. Main thread only.
///
/// An answer that comes late never lands in another network's row. The keychain is asked once a
/// network and scan, however often the rows are painted.
class WifiScanSection final : public QObject
{
    Q_OBJECT

public:
    enum class ScanState { Scanning, Loaded, Unavailable };

    /// What the section works with. The services outlive it.
    struct Inputs
    {
        KeychainStore &keychainStore;
        SystemWifiPasswordReader &systemPasswordReader;
        WifiService &wifiService;
        Pasteboard &pasteboard;
        /// Run after a password was stored.
        std::function<void()> onConnected = {};
        std::chrono::milliseconds copiedInterval = std::chrono::seconds(2);
    };

    /// Stands for the row "Other network…" where a network's name would.
    static constexpr QLatin1StringView otherKey{"__other__"};
    static constexpr qsizetype shortestPassword = 8;

    explicit WifiScanSection(Inputs inputs, QObject *parent = nullptr);

    /// The network that the machine is joined to, and its strength.
    void setCurrentNetwork(std::optional<QString> ssid, std::optional<WifiSignal> signal);
    /// Shown: listens anew.
    void appear();
    /// Hidden: what is still heard is passed over, and no password stays in clear.
    void disappear();

    /// Opens the row or closes it, and forgets what was typed and shown in the row before.
    void toggle(const QString &ssid);
    void saveOnly(const QString &ssid);
    /// One join at a time. It goes on when its row is closed, but says nothing in another one.
    void connectTo(const QString &ssid);
    void fillFromSystem(const QString &ssid);
    void toggleRevealConnectPassword();
    void toggleRevealStoredPassword(const QString &ssid);
    void copyStoredPassword(const QString &ssid);
    void setManualSSIDDraft(const QString &draft);
    void setConnectPasswordDraft(const QString &draft);

    [[nodiscard]] ScanState scanState() const { return m_scanState; }
    [[nodiscard]] QList<WifiRow> rows() const;
    [[nodiscard]] const std::optional<QString> &expanded() const { return m_expanded; }
    /// The network that the password field is for; empty when there is none.
    [[nodiscard]] QString targetSSID() const;
    /// Whether that network has to be joined for its password to prove right.
    [[nodiscard]] bool targetRequiresConnect() const;
    [[nodiscard]] bool isPasswordLongEnough() const;

    [[nodiscard]] const QString &manualSSIDDraft() const { return m_manualSSIDDraft; }
    [[nodiscard]] const QString &connectPasswordDraft() const { return m_connectPasswordDraft; }
    [[nodiscard]] bool revealConnectPassword() const { return m_revealConnectPassword; }
    [[nodiscard]] bool connecting() const { return m_connectingSSID.has_value(); }
    [[nodiscard]] const std::optional<QString> &connectingSSID() const { return m_connectingSSID; }
    [[nodiscard]] const std::optional<QString> &connectErrorMessage() const
    {
        return m_connectErrorMessage;
    }
    [[nodiscard]] const std::optional<QString> &revealedScannedPassword() const
    {
        return m_revealedScannedPassword;
    }
    [[nodiscard]] bool copiedScanned() const { return m_copiedTimer.isActive(); }
    [[nodiscard]] bool autofillAttempted() const { return m_autofillAttempted; }

signals:
    void changed();

private:
    [[nodiscard]] static Task<> scan(QPointer<WifiScanSection> self, std::stop_token stop);
    [[nodiscard]] static Task<> join(QPointer<WifiScanSection> self, QString ssid,
                                     QString password);
    [[nodiscard]] static Task<> fill(QPointer<WifiScanSection> self, std::stop_token stop,
                                     QString ssid);
    void didScan(const std::optional<QList<WifiNetwork>> &networks);
    void didJoin(const QString &ssid, const QString &password);
    void didNotJoin(const QString &ssid);

    void updateNetworks();
    void closeRowThatIsGone();
    [[nodiscard]] QList<WifiNetwork> mergeCurrentNetwork(QList<WifiNetwork> into) const;
    void open(const std::optional<QString> &row);
    void forgetFill();
    [[nodiscard]] bool isTargetManual() const;

    Inputs m_inputs;
    std::optional<QString> m_currentSSID;
    std::optional<WifiSignal> m_currentSignal;

    ScanState m_scanState = ScanState::Scanning;
    std::optional<QList<WifiNetwork>> m_scanned;
    QList<WifiNetwork> m_networks;
    std::optional<QString> m_expanded;
    bool m_hasSetInitialExpansion = false;
    QString m_manualSSIDDraft;
    QString m_connectPasswordDraft;
    bool m_revealConnectPassword = false;
    std::optional<QString> m_connectingSSID;
    std::optional<QString> m_connectErrorMessage;
    std::optional<QString> m_revealedScannedPassword;
    QTimer m_copiedTimer;
    bool m_autofillAttempted = false;

    bool m_isShown = false;
    StoredPasswords m_storedPasswords;
    std::stop_source m_scan;
    std::stop_source m_fill;
    std::optional<QString> m_fillingSSID;
};

} // namespace quorvel
