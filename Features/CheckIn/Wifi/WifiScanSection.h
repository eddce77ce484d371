#pragma once

#include "Core/Support/RecordListModel.h"
#include "Features/CheckIn/Wifi/ConnectRowState.h"
#include "Features/CheckIn/Wifi/StoredPasswords.h"
#include "Features/CheckIn/Wifi/StoredRowState.h"
#include "Features/CheckIn/Wifi/WifiRow.h"
#include "Platform/Pasteboard/Pasteboard.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"
#include "Services/Wifi/WifiModels.h"

#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>

namespace quorvel {

/// The Wi-Fi block of the check-in screen, for its view: the networks nearby, of which one row may
/// be open, and the use of its password. Main thread only. A late answer never appears in another
/// network's row. The keychain is asked once per network and scan, however often the rows are
/// painted.
class WifiScanSection final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the check-in screen")
    Q_PROPERTY(ScanState scanState READ scanState NOTIFY changed)
    Q_PROPERTY(QString headerText READ headerText NOTIFY changed)
    Q_PROPERTY(QObject *rows READ rows CONSTANT)
    Q_PROPERTY(bool showsHint READ showsHint NOTIFY changed)
    Q_PROPERTY(bool isOtherOpen READ isOtherOpen NOTIFY changed)
    Q_PROPERTY(QString manualSSIDDraft READ manualSSIDDraft NOTIFY changed)
    Q_PROPERTY(quorvel::ConnectRowState connectRow READ connectRow NOTIFY changed)
    Q_PROPERTY(quorvel::StoredRowState storedRow READ storedRow NOTIFY changed)

public:
    enum class ScanState { Scanning, Loaded, Unavailable };
    Q_ENUM(ScanState)

    /// What the section works with. The services must outlive it.
    struct Inputs
    {
        KeychainStore &keychainStore;
        SystemWifiPasswordReader &systemPasswordReader;
        WifiService &wifiService;
        Pasteboard &pasteboard;
        /// Called after a password was stored.
        std::function<void()> onConnected = {};
        std::chrono::milliseconds copiedInterval = std::chrono::seconds(2);
    };

    /// The key of the row "Other network…", in place of a network's name.
    static constexpr QLatin1StringView otherKey{"__other__"};

    explicit WifiScanSection(Inputs inputs, QObject *parent = nullptr);

    /// The network that the machine is on, and its strength.
    void setCurrentNetwork(std::optional<QString> ssid, std::optional<WifiSignal> signal);
    /// The block is shown: scans again.
    void appear();
    /// The block is hidden: ignores a running scan, and hides every password.
    void disappear();

    /// Opens or closes the row, and forgets what was typed and shown in the last one.
    Q_INVOKABLE void toggle(const QString &ssid);
    Q_INVOKABLE void toggleOther() { toggle(otherKey); }
    /// `connectTo` or `saveOnly`, whichever fits the open row's network.
    Q_INVOKABLE void submit();
    void saveOnly(const QString &ssid);
    /// One join at a time. It continues after its row is closed, but shows nothing in another row.
    void connectTo(const QString &ssid);
    Q_INVOKABLE void fillFromSystem(const QString &ssid);
    Q_INVOKABLE void toggleRevealConnectPassword();
    Q_INVOKABLE void toggleRevealStoredPassword(const QString &ssid);
    Q_INVOKABLE void copyStoredPassword(const QString &ssid);
    Q_INVOKABLE void setManualSSIDDraft(const QString &draft);
    Q_INVOKABLE void setConnectPasswordDraft(const QString &draft);

    [[nodiscard]] ScanState scanState() const { return m_scanState; }
    [[nodiscard]] QString headerText() const;
    [[nodiscard]] RecordListModel<WifiRow> *rows() { return &m_rows; }
    [[nodiscard]] bool showsHint() const;
    [[nodiscard]] const std::optional<QString> &expanded() const { return m_expanded; }
    [[nodiscard]] bool isOtherOpen() const { return m_expanded == otherKey; }
    [[nodiscard]] const QString &manualSSIDDraft() const { return m_manualSSIDDraft; }
    [[nodiscard]] ConnectRowState connectRow() const;
    [[nodiscard]] StoredRowState storedRow() const;
    /// Whether any network is being joined, even one whose row is closed.
    [[nodiscard]] bool connecting() const { return m_connectingSSID.has_value(); }
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
    void didStore();

    void updateNetworks();
    void closeRowThatIsGone();
    [[nodiscard]] QList<WifiNetwork> mergeCurrentNetwork(QList<WifiNetwork> into) const;
    [[nodiscard]] WifiRow row(const WifiNetwork &network) const;
    void open(const std::optional<QString> &row);
    void forgetFill();
    [[nodiscard]] bool isTargetManual() const;
    [[nodiscard]] QString targetSSID() const;
    [[nodiscard]] bool targetRequiresConnect() const;
    [[nodiscard]] bool isPasswordLongEnough() const;
    void publish();

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
    QString m_connectErrorMessage;
    std::optional<QString> m_revealedScannedPassword;
    QTimer m_copiedTimer;
    bool m_autofillAttempted = false;

    bool m_isShown = false;
    StoredPasswords m_storedPasswords;
    RecordListModel<WifiRow> m_rows;
    std::stop_source m_scan;
    std::stop_source m_fill;
    std::optional<QString> m_fillingSSID;
};

} // namespace quorvel
