#include "_Probes/Log/ShareableText.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class ShareableTextTest final : public QObject
{
    Q_OBJECT

private slots:
    void aPositionIsRoundedToAboutAKilometre_data()
    {
        QTest::addColumn<double>("latitude");
        QTest::addColumn<double>("longitude");
        QTest::addColumn<QString>("text");
        QTest::newRow("Saigon") << 10.7769 << 106.7009 << u"10.78, 106.70"_s;
        QTest::newRow("south and west") << -33.8568 << -70.6483 << u"-33.86, -70.65"_s;
        QTest::newRow("zero has no sign") << -0.004 << -0.0049 << u"0.00, 0.00"_s;
        QTest::newRow("a hundredth has one") << -0.006 << 0.006 << u"-0.01, 0.01"_s;
    }
    void aPositionIsRoundedToAboutAKilometre()
    {
        QFETCH(const double, latitude);
        QFETCH(const double, longitude);
        QTEST(ShareableText::position({latitude, longitude}), "text");
    }

    void wordsLeaveOut_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("shareable");
        QTest::newRow("a name") << u"Network \"Gió Sông\" not found"_s
                                << u"Network \"(left out)\" not found"_s;
        QTest::newRow("a name that holds another one")
            << u"Gió Sông 5G is gone"_s << u"(left out) is gone"_s;
        QTest::newRow("a folder") << QDir::homePath() + u"/.local/share: read-only"_s
                                  << u"~/.local/share: read-only"_s;
        QTest::newRow("a radio") << u"no answer from 3C:84:6a:00:ff:12"_s
                                 << u"no answer from (left out)"_s;
        QTest::newRow("digits") << u"around:100,10.7769,-106.70090"_s
                                << u"around:100,10.78,-106.70"_s;
        QTest::newRow("nothing") << u"timed out after 20.5 s, HTTP 504"_s
                                 << u"timed out after 20.5 s, HTTP 504"_s;
    }
    void wordsLeaveOut()
    {
        QFETCH(const QString, words);
        QTEST(ShareableText::words(words, {u"Gió Sông"_s, u""_s, u"Gió Sông 5G"_s}), "shareable");
    }

    void onlyErrorsAreInTheWordsOfSomebodyElse()
    {
        LogLine line{.text = u"SSID: x"_s, .shareableText = u"SSID: (left out)"_s};
        QCOMPARE(ShareableText::line(line, {u"S"_s}), u"SSID: (left out)"_s);
        line.kind = LogLine::Kind::Error;
        line.shareableText = u"x is gone"_s;
        QCOMPARE(ShareableText::line(line, {u"x"_s}), u"(left out) is gone"_s);
        line.kind = LogLine::Kind::Separator;
        QCOMPARE(ShareableText::line(line, {u"x"_s}), u"— x is gone —"_s);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ShareableTextTest)
#include "ShareableTextTest.moc"
