#include "Core/Keychain/KeychainError.h"
#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"
#include "Tests/Support/Patience.h"

#include <QTest>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

/// Showing and copying a stored password.
class StoredWifiPasswordTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
    void theEyeReadsTheStoredPasswordAndClearsIt()
    {
        openSaved();
        QCOMPARE(m_section->storedRow().text, u"••••••••••"_s);
        m_section->toggleRevealStoredPassword(u"A"_s);
        QVERIFY(m_section->storedRow().isRevealed);
        QCOMPARE(m_section->storedRow().text, u"stored word"_s);
        QCOMPARE(m_section->storedRow().spokenText, u"stored word"_s);
        QCOMPARE(m_section->storedRow().revealTitle, u"Hide password"_s);
        m_section->toggleRevealStoredPassword(u"A"_s);
        QVERIFY(!m_section->storedRow().isRevealed);
        QCOMPARE(m_section->storedRow().text, u"••••••••••"_s);
        QCOMPARE(m_section->storedRow().spokenText, u"Password hidden"_s);
        QCOMPARE(m_section->storedRow().revealTitle, u"Show password"_s);
    }

    void aStoredPasswordThatIsGoneIsNoLongerSaved()
    {
        openSaved();
        m_services->keychain.passwords.clear();
        m_section->toggleRevealStoredPassword(u"A"_s);
        QVERIFY(!m_section->storedRow().isRevealed);
        QVERIFY(!rows()[0].isSaved);
    }

    void copyingPutsTheStoredPasswordOnThePasteboard()
    {
        openSaved();
        QCOMPARE(m_section->storedRow().copyTitle, u"Copy"_s);
        m_section->copyStoredPassword(u"A"_s);
        QCOMPARE(m_section->storedRow().copyTitle, u"Copied!"_s);
        QCOMPARE(m_services->pasteboard.calls, QStringList({u"clear"_s, u"secret"_s}));
        QCOMPARE(m_services->pasteboard.secret, u"stored word"_s);
        QVERIFY(m_section->storedRow().copiedScanned);
        int changes = 0;
        connect(&*m_section, &WifiScanSection::changed, this, [&changes] { ++changes; });
        QVERIFY(comes([this] { return !m_section->storedRow().copiedScanned; }));
        QCOMPARE(changes, 1);
    }

    void copiedStaysForTwoSecondsUnlessToldOtherwise()
    {
        const WifiScanSection::Inputs inputs{.keychainStore = m_services->keychain,
                                             .systemPasswordReader = m_services->reader,
                                             .wifiService = m_services->wifi,
                                             .pasteboard = m_services->pasteboard};
        QVERIFY(inputs.copiedInterval == 2s);
    }

    void whatCannotBeReadLeavesThePasteboardAlone()
    {
        openSaved();
        m_services->keychain.failure = KeychainError::unexpectedItemFormat();
        m_section->copyStoredPassword(u"A"_s);
        QVERIFY(m_services->pasteboard.calls.isEmpty());
        QVERIFY(!m_section->storedRow().copiedScanned);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::StoredWifiPasswordTest)
#include "StoredWifiPasswordTest.moc"
