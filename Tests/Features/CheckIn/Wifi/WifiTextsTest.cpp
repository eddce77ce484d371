#include "Features/CheckIn/Wifi/WifiTexts.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class WifiTextsTest final : public QObject
{
    Q_OBJECT

private slots:
    void theHeaderCountsWhatWasFound()
    {
        QCOMPARE(WifiTexts::header(std::nullopt), u"Scanning…"_s);
        QCOMPARE(WifiTexts::header(0), u"0 found"_s);
        QCOMPARE(WifiTexts::header(1), u"1 found"_s);
        QCOMPARE(WifiTexts::header(3), u"3 found"_s);
    }

    void aScreenReaderHearsTheTagsAndTheDetail()
    {
        const QString detail = WifiTexts::detail({.ssid = u"A"_s, .rssiDBm = -65});
        QCOMPARE(detail, u"Good · -65 dBm"_s);
        QCOMPARE(WifiTexts::description(false, false, detail), u"Good · -65 dBm"_s);
        QCOMPARE(WifiTexts::description(true, false, detail), u"connected, Good · -65 dBm"_s);
        QCOMPARE(WifiTexts::description(false, true, detail), u"saved, Good · -65 dBm"_s);
        QCOMPARE(WifiTexts::description(true, true, detail), u"connected, saved, Good · -65 dBm"_s);
    }

    void theFieldSaysWhosePasswordItIsFor()
    {
        QCOMPARE(WifiTexts::prompt(u"<b>B</b>"_s),
                 u"Enter the password for <b>B</b> — saved to your Keychain for next time."_s);
        QCOMPARE(WifiTexts::submitTitle(true), u"Save & Connect"_s);
        QCOMPARE(WifiTexts::submitTitle(false), u"Save"_s);
        QCOMPARE(WifiTexts::cannotConnect(), u"Couldn't connect — check the password."_s);
    }

    void theEyeNamesWhatItWillDo()
    {
        QCOMPARE(WifiTexts::revealTitle(false), u"Show password"_s);
        QCOMPARE(WifiTexts::revealTitle(true), u"Hide password"_s);
    }

    void aStoredPasswordIsTenBulletsUntilRevealed()
    {
        QCOMPARE(WifiTexts::stored(std::nullopt), u"••••••••••"_s);
        QCOMPARE(WifiTexts::stored(u"stored"_s), u"stored"_s);
        QCOMPARE(WifiTexts::storedSpoken(std::nullopt), u"Password hidden"_s);
        QCOMPARE(WifiTexts::storedSpoken(u"stored"_s), u"stored"_s);
    }

    void copyingSaysSo()
    {
        QCOMPARE(WifiTexts::copyTitle(false), u"Copy"_s);
        QCOMPARE(WifiTexts::copyTitle(true), u"Copied!"_s);
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::WifiTextsTest)
#include "WifiTextsTest.moc"
