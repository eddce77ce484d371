#pragma once

#include "Core/Support/RecordListModel.h"
#include "Features/CheckIn/Wifi/WifiScanSection.h"

#include <qqmlintegration.h>

namespace quorvel {

/// The Wi-Fi block as its view binds it. What is typed and pressed is always about the one row that
/// is open.
class WifiScreen final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the check-in screen")
    Q_PROPERTY(State state READ state NOTIFY changed)
    Q_PROPERTY(QString headerText READ headerText NOTIFY changed)
    Q_PROPERTY(QObject *rows READ rows CONSTANT)
    Q_PROPERTY(bool showsHint READ showsHint NOTIFY changed)
    Q_PROPERTY(bool isOtherOpen READ isOtherOpen NOTIFY changed)
    Q_PROPERTY(QString networkName READ networkName WRITE setNetworkName NOTIFY changed)
    Q_PROPERTY(QString prompt READ prompt NOTIFY changed)
    Q_PROPERTY(QString password READ password WRITE setPassword NOTIFY changed)
    Q_PROPERTY(bool isPasswordRevealed READ isPasswordRevealed NOTIFY changed)
    Q_PROPERTY(QString submitTitle READ submitTitle NOTIFY changed)
    Q_PROPERTY(bool canSubmit READ canSubmit NOTIFY changed)
    Q_PROPERTY(bool isConnecting READ isConnecting NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(QString storedText READ storedText NOTIFY changed)
    Q_PROPERTY(bool isStoredRevealed READ isStoredRevealed NOTIFY changed)
    Q_PROPERTY(QString copyTitle READ copyTitle NOTIFY changed)
    Q_PROPERTY(QString copySymbol READ copySymbol NOTIFY changed)

public:
    enum class State { Scanning, Loaded, Unavailable };
    Q_ENUM(State)

    explicit WifiScreen(WifiScanSection::Inputs inputs, QObject *parent = nullptr);

    void setCurrentNetwork(const std::optional<QString> &ssid,
                           const std::optional<WifiSignal> &signal);

    Q_INVOKABLE void appear() { m_section.appear(); }
    Q_INVOKABLE void disappear() { m_section.disappear(); }
    Q_INVOKABLE void toggle(const QString &ssid) { m_section.toggle(ssid); }
    Q_INVOKABLE void toggleOther() { m_section.toggle(WifiScanSection::otherKey); }
    /// "Save" or "Save & Connect".
    Q_INVOKABLE void submit();
    Q_INVOKABLE void fillFromSystem() { m_section.fillFromSystem(m_section.targetSSID()); }
    Q_INVOKABLE void togglePassword() { m_section.toggleRevealConnectPassword(); }
    Q_INVOKABLE void toggleStored();
    Q_INVOKABLE void copyStored() { m_section.copyStoredPassword(m_section.targetSSID()); }

    [[nodiscard]] State state() const;
    /// "Scanning…" or "3 found".
    [[nodiscard]] QString headerText() const;
    [[nodiscard]] QString countText() const;
    [[nodiscard]] QAbstractItemModel *rows() { return &m_rows; }
    [[nodiscard]] bool showsHint() const;
    [[nodiscard]] bool isOtherOpen() const;
    [[nodiscard]] QString networkName() const { return m_section.manualSSIDDraft(); }
    void setNetworkName(const QString &name) { m_section.setManualSSIDDraft(name); }
    [[nodiscard]] QString prompt() const;
    [[nodiscard]] QString password() const { return m_section.connectPasswordDraft(); }
    void setPassword(const QString &password) { m_section.setConnectPasswordDraft(password); }
    [[nodiscard]] bool isPasswordRevealed() const { return m_section.revealConnectPassword(); }
    [[nodiscard]] QString submitTitle() const;
    [[nodiscard]] bool canSubmit() const;
    /// Whether the open row's network is being joined.
    [[nodiscard]] bool isConnecting() const;
    /// Whether any network is, if only behind a row that was closed meanwhile.
    [[nodiscard]] bool isJoining() const { return m_section.connecting(); }
    [[nodiscard]] QString errorText() const;
    /// Ten bullets, or the password itself.
    [[nodiscard]] QString storedText() const;
    [[nodiscard]] bool isStoredRevealed() const;
    [[nodiscard]] QString copyTitle() const;
    [[nodiscard]] QString copySymbol() const;

signals:
    void changed();

private:
    [[nodiscard]] WifiScanSection::Inputs following(WifiScanSection::Inputs inputs);

    WifiScanSection m_section;
    RecordListModel<WifiRow> m_rows;
};

} // namespace quorvel
