#pragma once

#include "Core/Keychain/FakeKeychainStore.h"
#include "Features/CheckIn/Wifi/WifiScanSection.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Services/Wifi/Passwords/FakeSystemWifiPasswordReader.h"

#include <QObject>

#include <optional>

namespace quorvel::tests {

/// The base of the Wi-Fi block's tests: a new block over fakes for each case.
class WifiSectionCase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    using ScanState = WifiScanSection::ScanState;
    using Networks = QList<WifiNetwork>;

    struct Services
    {
        FakeKeychainStore keychain;
        FakeSystemWifiPasswordReader reader;
        FakeWifiService wifi;
        FakePasteboard pasteboard;
    };

    WifiSectionCase();
    ~WifiSectionCase() override;

    static void settle();
    /// Only posted events, so that no timer fires.
    static void settleBriefly();

    [[nodiscard]] const QList<WifiRow> &rows() { return m_section->rows()->records(); }
    /// The block is shown and hears these networks.
    void show(const Networks &networks);
    void showAgain(const Networks &networks);
    /// "A" is open, and its password is stored.
    void openSaved();

    /// A join that stays open until `endJoin` or `failJoin`.
    void hold(const QString &ssid, const QString &password);
    void endJoin();
    void failJoin();

    /// The system answers its first open request.
    void answerFill(const std::optional<QString> &password);

    const Networks three;
    const QString other = WifiScanSection::otherKey;
    const QString cannotConnect;
    std::optional<Services> m_services;
    std::optional<WifiScanSection> m_section;
    /// How often the block reported a join or a stored password.
    int m_connected = 0;
};

} // namespace quorvel::tests
