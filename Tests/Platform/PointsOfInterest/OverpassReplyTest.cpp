#include "Platform/PointsOfInterest/OverpassReply.h"

#include "Platform/PointsOfInterest/PointsOfInterestError.h"

#include <QTest>

#include <optional>
#include <vector>

Q_DECLARE_METATYPE(quorvel::PointsOfInterestError::Case)

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

QByteArray reply(const QByteArray &elements, const QByteArray &more = {})
{
    return "{\"version\": 0.6, \"elements\": [" + elements + "]" + more + "}";
}

/// A node with these tags at the usual position.
QByteArray node(const QByteArray &tags)
{
    return "{\"type\": \"node\", \"id\": 7, \"lat\": 10.5, \"lon\": 106.25, \"tags\": {" + tags +
           "}}";
}

PointOfInterest only(const QByteArray &element)
{
    const auto points = OverpassReply::pointsOfInterest(reply(element));
    return points.size() == 1 ? points.front() : PointOfInterest{.name = u"not one"_s};
}

} // namespace

class OverpassReplyTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyKindOfElementIsRead()
    {
        const auto points = OverpassReply::pointsOfInterest(reply(R"(
            {"type": "node", "id": 11, "lat": 10.5, "lon": 106.25,
             "tags": {"amenity": "cafe", "name": "Lamp"}},
            {"type": "way", "id": 11, "center": {"lat": -10.5, "lon": -106.25},
             "tags": {"amenity": "cafe", "name": "Quán <b>Góc</b> 7"}},
            {"type": "relation", "id": 9000000000000001, "center": {"lat": 1, "lon": 2},
             "tags": {"amenity": "cafe"}})"));
        const std::vector<PointOfInterest> expected{
            {.identifier = u"node/11"_s,
             .name = u"Lamp"_s,
             .coordinate = {.latitude = 10.5, .longitude = 106.25},
             .category = u"MKPOICategoryCafe"_s},
            {.identifier = u"way/11"_s,
             .name = u"Quán <b>Góc</b> 7"_s,
             .coordinate = {.latitude = -10.5, .longitude = -106.25},
             .category = u"MKPOICategoryCafe"_s},
            {.identifier = u"relation/9000000000000001"_s,
             .coordinate = {.latitude = 1, .longitude = 2},
             .category = u"MKPOICategoryCafe"_s}};
        QVERIFY(points == expected);
    }

    void whatANameHoldsIsKept()
    {
        QCOMPARE(only(node("\"name\": \"A \\\"B\\\" \\\\ \\u1ebf\"")).name, u"A \"B\" \\ ế"_s);
    }

    void anEmptyReplyHasNoPlaces()
    {
        QVERIFY(OverpassReply::pointsOfInterest(reply("")).empty());
        QVERIFY(OverpassReply::pointsOfInterest(reply("", R"(, "remark": "all is well")")).empty());
    }

    void elementsWithoutAPositionArePassedOver_data()
    {
        QTest::addColumn<QByteArray>("position");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("half") << QByteArray(R"(, "lat": 1)");
        QTest::newRow("other half") << QByteArray(R"(, "lon": 1)");
        QTest::newRow("texts") << QByteArray(R"(, "lat": "1", "lon": "2")");
        QTest::newRow("nulls") << QByteArray(R"(, "lat": null, "lon": null)");
        QTest::newRow("beyond the north pole") << QByteArray(R"(, "lat": 90.1, "lon": 2)");
        QTest::newRow("beyond the south pole") << QByteArray(R"(, "lat": -90.1, "lon": 2)");
        QTest::newRow("too far east") << QByteArray(R"(, "lat": 1, "lon": 180.1)");
        QTest::newRow("too far west") << QByteArray(R"(, "lat": 1, "lon": -180.1)");
        QTest::newRow("huge") << QByteArray(R"(, "lat": 1e300, "lon": -1e300)");
        QTest::newRow("empty centre") << QByteArray(R"(, "center": {})");
        QTest::newRow("centre of another kind") << QByteArray(R"(, "center": [1, 2])");
    }

    void elementsWithoutAPositionArePassedOver()
    {
        QFETCH(const QByteArray, position);
        const QByteArray element = "{\"type\": \"way\", \"id\": 1" + position + "}";
        const auto points = OverpassReply::pointsOfInterest(reply(element + "," + node("")));
        QCOMPARE(points.size(), 1U);
        QCOMPARE(points.front().identifier, u"node/7"_s);
    }

    void theEdgesOfTheWorldBelongToIt()
    {
        const auto points = OverpassReply::pointsOfInterest(
            reply(R"({"lat": 90, "lon": 180}, {"lat": -90.0, "lon": -180.0})"));
        QCOMPARE(points.size(), 2U);
    }

    void elementsThatAreNoneArePassedOver()
    {
        const auto points =
            OverpassReply::pointsOfInterest(reply(R"(null, 3, "cafe", [], {}, )" + node("")));
        QCOMPARE(points.size(), 1U);
    }

    void withoutTypeOrNumberThereIsNoIdentifier_data()
    {
        QTest::addColumn<QByteArray>("members");
        QTest::newRow("neither") << QByteArray();
        QTest::newRow("no type") << QByteArray(R"(, "id": 1)");
        QTest::newRow("no number") << QByteArray(R"(, "type": "node")");
        QTest::newRow("another type") << QByteArray(R"(, "type": "area", "id": 1)");
        QTest::newRow("text") << QByteArray(R"(, "type": "node", "id": "1")");
        QTest::newRow("fraction") << QByteArray(R"(, "type": "node", "id": 1.5)");
        QTest::newRow("zero") << QByteArray(R"(, "type": "node", "id": 0)");
        QTest::newRow("negative") << QByteArray(R"(, "type": "node", "id": -1)");
    }

    void withoutTypeOrNumberThereIsNoIdentifier()
    {
        QFETCH(const QByteArray, members);
        const PointOfInterest point = only("{\"lat\": 1, \"lon\": 2" + members + "}");
        QVERIFY(point == (PointOfInterest{.coordinate = {.latitude = 1, .longitude = 2}}));
    }

    void onlyANameIsAName_data()
    {
        QTest::addColumn<QByteArray>("tags");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("brand") << QByteArray(R"("brand": "Chain")");
        QTest::newRow("other language") << QByteArray(R"("name:en": "Corner")");
        QTest::newRow("empty") << QByteArray(R"("name": "")");
        QTest::newRow("blank") << QByteArray(R"("name": "  ")");
        QTest::newRow("number") << QByteArray(R"("name": 7)");
        QTest::newRow("null") << QByteArray(R"("name": null)");
    }

    void onlyANameIsAName()
    {
        QFETCH(const QByteArray, tags);
        QVERIFY(!only(node(tags)).name);
    }

    void onlyACafeHasACategory()
    {
        QCOMPARE(only(node(R"("amenity": "cafe")")).category, u"MKPOICategoryCafe"_s);
        QVERIFY(!only(node(R"("amenity": "bar")")).category);
        QVERIFY(!only(node(R"("shop": "cafe")")).category);
        QVERIFY(!only(R"({"lat": 1, "lon": 2, "tags": "cafe"})").category);
    }

    void theAddressIsPutTogetherFromItsTags_data()
    {
        QTest::addColumn<QByteArray>("tags");
        QTest::addColumn<QString>("address");
        QTest::newRow("none") << QByteArray() << QString();
        QTest::newRow("empty") << QByteArray(R"("addr:city": "", "addr:full": " ")") << QString();
        QTest::newRow("in full") << QByteArray(R"("addr:full": "3 Test Square, North",
                                                  "addr:street": "Test Square")")
                                 << u"3 Test Square, North"_s;
        QTest::newRow("all parts")
            << QByteArray(R"("addr:city": "Thành phố", "addr:suburb": "Phường 2",
                             "addr:district": "Quận 3", "addr:street": "Đường Dài",
                             "addr:housenumber": "12/4")")
            << u"12/4 Đường Dài, Phường 2, Thành phố"_s;
        QTest::newRow("district") << QByteArray(R"("addr:district": "Quận 3",
                                                   "addr:street": "Đường Dài")")
                                  << u"Đường Dài, Quận 3"_s;
        QTest::newRow("street alone")
            << QByteArray(R"("addr:street": "Đường Dài")") << u"Đường Dài"_s;
        QTest::newRow("city alone") << QByteArray(R"("addr:city": "Thành phố")") << u"Thành phố"_s;
        QTest::newRow("number and city")
            << QByteArray(R"("addr:housenumber": "5", "addr:city": "Oldtown")") << u"5, Oldtown"_s;
        QTest::newRow("of another type")
            << QByteArray(R"("addr:housenumber": 5, "addr:city": "Oldtown")") << u"Oldtown"_s;
    }

    void theAddressIsPutTogetherFromItsTags()
    {
        QFETCH(const QByteArray, tags);
        QFETCH(const QString, address);
        QCOMPARE(only(node(tags)).address,
                 address.isEmpty() ? std::nullopt : std::optional(address));
    }

    void repliesThatAreNoneFail_data()
    {
        using Case = PointsOfInterestError::Case;
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<PointsOfInterestError::Case>("kind");
        QTest::newRow("empty") << QByteArray() << Case::Unreadable;
        QTest::newRow("page") << QByteArray("<html><title>Response</title></html>")
                              << Case::Unreadable;
        QTest::newRow("truncated") << reply(node("")).chopped(1) << Case::Unreadable;
        QTest::newRow("list") << QByteArray("[]") << Case::Unreadable;
        QTest::newRow("nothing inside") << QByteArray("{}") << Case::Unreadable;
        QTest::newRow("elements of another type")
            << QByteArray(R"({"elements": {}})") << Case::Unreadable;
        QTest::newRow("null") << QByteArray(R"({"elements": null})") << Case::Unreadable;
        QTest::newRow("deep") << QByteArray(100000, '[') << Case::Unreadable;
        QTest::newRow("deep inside") << reply(QByteArray(100000, '[')) << Case::Unreadable;
        QTest::newRow("not a number") << reply(R"({"lat": NaN, "lon": 2})") << Case::Unreadable;
        QTest::newRow("gave up") << reply("", R"(, "remark": "runtime error: Query timed out.")")
                                 << Case::Busy;
        QTest::newRow("gave up half way")
            << reply(node(""), R"(, "remark": "runtime error: Query ran out of memory.")")
            << Case::Busy;
    }

    void repliesThatAreNoneFail()
    {
        QFETCH(const QByteArray, body);
        QFETCH(const PointsOfInterestError::Case, kind);
        try {
            static_cast<void>(OverpassReply::pointsOfInterest(body));
        } catch (const PointsOfInterestError &error) {
            QCOMPARE(error.kind(), kind);
            return;
        }
        QFAIL("the reply was accepted");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::OverpassReplyTest)
#include "OverpassReplyTest.moc"
