#include "Services/Share/Export/VisitCsv.h"

#include "Models/Cafe.h"
#include "Models/WeatherSnapshot.h"
#include "Tests/Services/Share/SampleVisit.h"

#include <QTest>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

/// The note's field in a visit's row.
QString noteField(const QString &note)
{
    const auto visit = bareVisit();
    visit->setNote(note);
    const QByteArray before = "00000000-0000-0000-0000-000000000001,2026-03-03T07:05:00.000Z,"
                              "0,0,0,0,";
    const QByteArray after = ",,,,,,,,,,,,,\r\n";
    const QByteArray row = VisitCsv::row(*visit);
    if (!row.startsWith(before) || !row.endsWith(after))
        qFatal("not the row of a bare visit: %s", row.constData());
    return QString::fromUtf8(row.mid(before.size(), row.size() - before.size() - after.size()));
}

} // namespace

class VisitCsvTest final : public QObject
{
    Q_OBJECT

private slots:
    void theHeaderNamesEveryColumn()
    {
        QCOMPARE(VisitCsv::header(),
                 QByteArray("id,date,wifiSpeed,outlets,noise,quietForCalls,note,address,"
                            "photoFilename,temperatureC,apparentTemperatureC,weatherCode,isDay,"
                            "capturedAt,cafeId,cafeName,latitude,longitude,lastKnownSSID,"
                            "mapItemIdentifier\r\n"));
    }

    void aRowHasAsManyFieldsAsTheHeader()
    {
        QCOMPARE(VisitCsv::row(*bareVisit()).count(','), VisitCsv::header().count(','));
        QCOMPARE(VisitCsv::row(*fullVisit()).count(','), VisitCsv::header().count(','));
    }

    void aRowHasEverything()
    {
        QCOMPARE(VisitCsv::row(*fullVisit()),
                 QByteArray("00000000-0000-0000-0000-000000000001,2026-03-03T07:05:00.120Z,5,4,1,"
                            "2,calm,1 Main Street,photo.jpg,22.5,-0.25,3,true,"
                            "2026-03-03T07:04:59.000Z,00000000-0000-0000-0000-000000000002,"
                            "Blue Door,10.5,-106.25,Cafe 5G,node/1\r\n"));
    }

    void theWeatherOfANightIsNotOfTheDay()
    {
        const auto visit = bareVisit();
        visit->setWeather(WeatherSnapshot{.weatherCode = 3, .isDay = false});
        QVERIFY(VisitCsv::row(*visit).contains(",3,false,"));
    }

    void aPlaceThatIsNoNumberIsEmpty()
    {
        const auto visit = bareVisit();
        visit->setCafe(cafeAt(std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()));
        QVERIFY(VisitCsv::row(*visit).contains(",Blue Door,,,Cafe 5G,"));
    }

    void aFieldIsQuotedWhereItHasTo_data()
    {
        QTest::addColumn<QString>("note");
        QTest::addColumn<QString>("field");
        QTest::newRow("plain") << u"cà phê"_s << u"cà phê"_s;
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("a comma") << u"a,b"_s << u"\"a,b\""_s;
        QTest::newRow("a semicolon") << u"a;b"_s << u"\"a;b\""_s;
        QTest::newRow("a quote") << u"a\"b"_s << u"\"a\"\"b\""_s;
        QTest::newRow("a line break") << u"a\nb"_s << u"\"a\nb\""_s;
        QTest::newRow("a break of a typewriter") << u"a\rb\r\nc"_s << u"\"a\nb\nc\""_s;
        QTest::newRow("blanks at its ends") << u" a "_s << u"\" a \""_s;
        QTest::newRow("a control character") << u"a\u001bb"_s << u"a\ufffdb"_s;
    }

    void aFieldIsQuotedWhereItHasTo()
    {
        QFETCH(const QString, note);
        QFETCH(const QString, field);
        QCOMPARE(noteField(note), field);
    }

    void aTextIsNeverCalculated_data()
    {
        QTest::addColumn<QString>("note");
        QTest::addColumn<QString>("field");
        QTest::newRow("equals") << u"=1+1"_s << u"'=1+1"_s;
        QTest::newRow("plus") << u"+1"_s << u"'+1"_s;
        QTest::newRow("minus") << u"-1"_s << u"'-1"_s;
        QTest::newRow("at") << u"@SUM(A1)"_s << u"'@SUM(A1)"_s;
        QTest::newRow("of full width") << u"＝1"_s << u"'＝1"_s;
        QTest::newRow("after a blank") << u" =1"_s << u"' =1"_s;
        QTest::newRow("after a tabulator") << u"\t=1"_s << u"' =1"_s;
        QTest::newRow("after a line break") << u"\n=1"_s << u"\"'\n=1\""_s;
        QTest::newRow("with a quote") << u"=\"x\""_s << u"\"'=\"\"x\"\"\""_s;
        QTest::newRow("not at the beginning") << u"1=1"_s << u"1=1"_s;
    }

    void aTextIsNeverCalculated()
    {
        QFETCH(const QString, note);
        QFETCH(const QString, field);
        QCOMPARE(noteField(note), field);
    }

    void everyTextOfACafeIsKeptAText()
    {
        const auto visit = bareVisit();
        visit->setAddress(u"=a"_s);
        visit->setPhotoFilename(u"=p"_s);
        visit->setCafe(std::make_shared<Cafe>(cafeId, u"=n"_s, 1, 2, u"=s"_s, u"=m"_s));
        const QByteArray row = VisitCsv::row(*visit);
        QVERIFY(row.contains(",'=a,'=p,"));
        QVERIFY(row.endsWith(",'=n,1.0,2.0,'=s,'=m\r\n"));
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::VisitCsvTest)
#include "VisitCsvTest.moc"
