#include "Services/Share/Export/VisitExport.h"

#include "Tests/Services/Share/SampleVisit.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QLatin1String>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

using VisitExport::Format;
using Visits = std::vector<std::shared_ptr<CheckIn>>;

constexpr int manyVisits = 2'000;
constexpr qsizetype pieceBytes = 64 * 1024;
constexpr qsizetype pieceLimit = 66 * 1024;

QByteArray textOf(const Visits &visits, Format format)
{
    QByteArray text;
    VisitExport::write(visits, format, [&text](QByteArrayView piece) { text.append(piece); });
    return text;
}

QJsonObject parsed(const QByteArray &text)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        qFatal("no JSON: %s", text.constData());
    return document.object();
}

QJsonValue geometryAt(double latitude, double longitude)
{
    const auto visit = bareVisit();
    visit->setCafe(cafeAt(latitude, longitude));
    return parsed(textOf({visit}, Format::GeoJson))[u"features"][0][u"geometry"];
}

} // namespace

class VisitExportTest final : public QObject
{
    Q_OBJECT

private slots:
    void formatsHaveTheirNames()
    {
        QVERIFY(VisitExport::formatNamed(u"json") == Format::Json);
        QVERIFY(VisitExport::formatNamed(u"csv") == Format::Csv);
        QVERIFY(VisitExport::formatNamed(u"geojson") == Format::GeoJson);
        for (const QString &name : {u"JSON"_s, u"xml"_s, QString(), u"json "_s})
            QVERIFY(!VisitExport::formatNamed(name));
    }

    void noVisitsAreAnEmptyList()
    {
        QCOMPARE(parsed(textOf({}, Format::Json)),
                 (QJsonObject{{u"version"_s, 1}, {u"visits"_s, QJsonArray()}}));
        QCOMPARE(parsed(textOf({}, Format::GeoJson)),
                 (QJsonObject{{u"type"_s, u"FeatureCollection"_s}, {u"features"_s, QJsonArray()}}));
        QCOMPARE(textOf({}, Format::Csv).count("\r\n"), 1);
    }

    void jsonHasEverything()
    {
        const QJsonObject weather{{u"temperatureC"_s, 22.5},
                                  {u"apparentTemperatureC"_s, -0.25},
                                  {u"weatherCode"_s, 3},
                                  {u"isDay"_s, true},
                                  {u"capturedAt"_s, u"2026-03-03T07:04:59.000Z"_s}};
        const QJsonObject cafe{{u"id"_s, u"00000000-0000-0000-0000-000000000002"_s},
                               {u"name"_s, u"Blue Door"_s},
                               {u"latitude"_s, 10.5},
                               {u"longitude"_s, -106.25},
                               {u"lastKnownSSID"_s, u"Cafe 5G"_s},
                               {u"mapItemIdentifier"_s, u"node/1"_s}};
        const QJsonObject ratings{
            {u"wifiSpeed"_s, 5}, {u"outlets"_s, 4}, {u"noise"_s, 1}, {u"quietForCalls"_s, 2}};
        const QJsonObject visit{{u"id"_s, u"00000000-0000-0000-0000-000000000001"_s},
                                {u"date"_s, u"2026-03-03T07:05:00.120Z"_s},
                                {u"note"_s, u"calm"_s},
                                {u"address"_s, u"1 Main Street"_s},
                                {u"photoFilename"_s, u"photo.jpg"_s},
                                {u"ratings"_s, ratings},
                                {u"weather"_s, weather},
                                {u"cafe"_s, cafe}};
        QCOMPARE(parsed(textOf({fullVisit()}, Format::Json)),
                 (QJsonObject{{u"version"_s, 1}, {u"visits"_s, QJsonArray{visit}}}));
    }

    void whatIsAbsentIsNull()
    {
        const auto visit = parsed(textOf({bareVisit()}, Format::Json))[u"visits"][0].toObject();
        QCOMPARE(visit.size(), 8);
        for (const auto *key : {"address", "photoFilename", "weather", "cafe"})
            QVERIFY2(visit[QLatin1String(key)].isNull(), key);
        QCOMPARE(visit[u"note"_s], u""_s);
    }

    void eachVisitIsALineOfItsOwn()
    {
        const auto lines = textOf({fullVisit(), bareVisit()}, Format::Json).split('\n');
        QCOMPARE(lines.size(), 5);
        QCOMPARE(lines[0], QByteArray("{\"version\":1,\"visits\":["));
        QVERIFY(lines[1].startsWith('{') && lines[1].endsWith("},"));
        QVERIFY(lines[2].startsWith('{') && lines[2].endsWith('}'));
        QCOMPARE(lines[3], QByteArray("]}"));
        QCOMPARE(lines[4], QByteArray());
    }

    void aFeatureIsAtTheCafeLongitudeFirst()
    {
        const auto feature =
            parsed(textOf({fullVisit()}, Format::GeoJson))[u"features"][0].toObject();
        QCOMPARE(feature[u"type"], u"Feature"_s);
        QCOMPARE(feature[u"id"], u"00000000-0000-0000-0000-000000000001"_s);
        QCOMPARE(
            feature[u"geometry"],
            (QJsonObject{{u"type"_s, u"Point"_s}, {u"coordinates"_s, QJsonArray{-106.25, 10.5}}}));
        const auto properties = feature[u"properties"].toObject();
        QCOMPARE(properties[u"cafe"][u"name"], u"Blue Door"_s);
        QCOMPARE(properties[u"note"], u"calm"_s);
        QVERIFY(!properties.contains(u"id"));
    }

    void aVisitWithoutAPlaceHasNoGeometry()
    {
        const auto feature =
            parsed(textOf({bareVisit()}, Format::GeoJson))[u"features"][0].toObject();
        QVERIFY(feature.contains(u"geometry"));
        QVERIFY(feature[u"geometry"].isNull());
    }

    void aPlaceIsOnEarth()
    {
        QVERIFY(geometryAt(90, 180).isObject());
        QVERIFY(geometryAt(-90, -180).isObject());
        QVERIFY(geometryAt(90.001, 0).isNull());
        QVERIFY(geometryAt(0, -180.001).isNull());
        QVERIFY(geometryAt(std::numeric_limits<double>::quiet_NaN(), 0).isNull());
        QVERIFY(geometryAt(0, std::numeric_limits<double>::infinity()).isNull());
    }

    void aHugeHistoryIsHandedOnInPieces_data()
    {
        QTest::addColumn<Format>("format");
        QTest::newRow("json") << Format::Json;
        QTest::newRow("csv") << Format::Csv;
        QTest::newRow("geojson") << Format::GeoJson;
    }

    void aHugeHistoryIsHandedOnInPieces()
    {
        QFETCH(const Format, format);
        const Visits visits(manyVisits, fullVisit());
        qsizetype largest = 0;
        QByteArray text;
        VisitExport::write(visits, format, [&](QByteArrayView piece) {
            largest = std::max(largest, piece.size());
            text.append(piece);
        });
        QVERIFY(largest < pieceLimit);
        QCOMPARE(text.count("2026-03-03T07:05:00.120Z"), manyVisits);
        if (format != Format::Csv)
            QVERIFY(!parsed(text).isEmpty());
    }

    void aPieceEndsWhereItReachesItsLimit()
    {
        const qsizetype room = pieceBytes - textOf({bareVisit()}, Format::Csv).size();
        const auto sizesWithNote = [](qsizetype length) {
            const auto visit = bareVisit();
            visit->setNote(QString(length, u'a'));
            QList<qsizetype> sizes;
            VisitExport::write({visit}, Format::Csv,
                               [&sizes](QByteArrayView piece) { sizes.append(piece.size()); });
            return sizes;
        };
        QCOMPARE(sizesWithNote(room - 1), QList<qsizetype>({pieceBytes - 1}));
        QCOMPARE(sizesWithNote(room), QList<qsizetype>({pieceBytes, 0}));
    }

    void aSinkThatFailsEndsIt()
    {
        const Visits visits(manyVisits, fullVisit());
        int pieces = 0;
        const auto fail = [&pieces](QByteArrayView) {
            ++pieces;
            throw std::runtime_error("full");
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, VisitExport::write(visits, Format::Csv, fail));
        QCOMPARE(pieces, 1);
    }
};

} // namespace quorvel::tests

QTEST_APPLESS_MAIN(quorvel::tests::VisitExportTest)
#include "VisitExportTest.moc"
