#include "Services/Share/ShareSlug.h"

#include "Models/Cafe.h"
#include "Models/WorkRatings.h"
#include "Tests/Support/Instants.h"

#include <QDate>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QUuid>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const QDate day(2025, 3, 3);

CheckIn visit(const QString &date, std::shared_ptr<Cafe> at)
{
    return CheckIn(QUuid::createUuid(), instant(date), QString(), std::nullopt, std::nullopt,
                   WorkRatings(), std::nullopt, std::move(at));
}

std::shared_ptr<Cafe> cafe(const QString &name)
{
    return std::make_shared<Cafe>(QUuid::createUuid(), name, 1, 2, std::nullopt, std::nullopt);
}

} // namespace

class ShareSlugTest final : public QObject
{
    Q_OBJECT

private slots:
    void aNameBecomesWords_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("words");
        const auto row = [](const QString &name, const QString &words) {
            QTest::newRow(qPrintable(name)) << name << words;
        };
        row(u"Mây Trắng (Phố Cổ)"_s, u"may-trang-pho-co"_s);
        row(u"Mây Trắng — Phố Cổ"_s, u"may-trang-pho-co"_s);
        row(u"Cà phê sữa đá"_s, u"ca-phe-sua-da"_s);
        row(u"Đường Đi Đến Đâu"_s, u"duong-di-den-dau"_s);
        row(u"àáảãạ ăằắẳẵặ âầấẩẫậ"_s, u"aaaaa-aaaaaa-aaaaaa"_s);
        row(u"èéẻẽẹ êềếểễệ"_s, u"eeeee-eeeeee"_s);
        row(u"ìíỉĩị"_s, u"iiiii"_s);
        row(u"òóỏõọ ôồốổỗộ ơờớởỡợ"_s, u"ooooo-oooooo-oooooo"_s);
        row(u"ùúủũụ ưừứửữự"_s, u"uuuuu-uuuuuu"_s);
        row(u"ỳýỷỹỵ"_s, u"yyyyy"_s);
        row(u"ÀÁẢÃẠ ĂẰẮẲẴẶ ÂẦẤẨẪẬ ĐƠƯ"_s, u"aaaaa-aaaaaa-aaaaaa-dou"_s);
        row(u"Ca\u0300 phe\u0302 su\u031B\u0303a"_s, u"ca-phe-sua"_s);
        row(u"The\u0302\u0301 gio\u031B\u0301i"_s, u"the-gioi"_s);

        row(u"Café de Flore"_s, u"cafe-de-flore"_s);
        row(u"L'Éclair de Génie"_s, u"l-eclair-de-genie"_s);
        row(u"Garçon Brûlé"_s, u"garcon-brule"_s);
        row(u"Müller & Söhne"_s, u"muller-sohne"_s);
        row(u"Straße 9¾"_s, u"straße-9¾"_s);
        row(u"Kaffebar Ærø Blå"_s, u"kaffebar-æro-bla"_s);
        row(u"Żółć Łódź"_s, u"zolc-lodz"_s);
        row(u"Přílíš žluťoučký kůň"_s, u"prilis-zlutoucky-kun"_s);
        row(u"Őrült Űr"_s, u"orult-ur"_s);
        row(u"İstanbul Kahvesi"_s, u"istanbul-kahvesi"_s);
        row(u"Işık ŞĞ"_s, u"isik-sg"_s);
        row(u"Caffè Ñandú"_s, u"caffe-nandu"_s);
        row(u"São João"_s, u"sao-joao"_s);
        row(u"Ħamrun Ŧ"_s, u"hamrun-t"_s);
        row(u"Ångström Å"_s, u"angstrom-a"_s);
        row(u"Kafi\u00ADhaus"_s, u"kafi-haus"_s);
        row(u"Ｃａｆｅ"_s, u"ｃａｆｅ"_s);

        row(u"Καφέ Άννα"_s, u"καφε-αννα"_s);
        row(u"Кофейня №1"_s, u"кофейня-1"_s);
        row(u"ЁЛКА Й"_s, u"ёлка-й"_s);
        row(u"Кофеи\u0306ня"_s, u"кофейня"_s);
        row(u"Київ Кава"_s, u"київ-кава"_s);
        row(u"星巴克 咖啡"_s, u"星巴克-咖啡"_s);
        row(u"𠮷野家"_s, u"𠮷野家"_s);
        row(u"カフェ・ガーデン"_s, u"カフェ-ガーデン"_s);
        row(u"カ\u3099ーテ\u3099ン"_s, u"ガーデン"_s);
        row(u"커피 하우스"_s, u"커피-하우스"_s);
        row(u"ร้านกาแฟ ดี"_s, u"ร้านกาแฟ-ดี"_s);
        row(u"कॉफ़ी हाउस"_s, u"कॉफ़ी-हाउस"_s.normalized(QString::NormalizationForm_C));
        row(u"مقهى الفيشاوي"_s, u"مقهى-الفيشاوي"_s);
        row(u"क्\u200Dष"_s, u"क्\u200Dष"_s);
        row(u"می\u200Cخواهم"_s, u"می\u200Cخواهم"_s);
        row(u"קפה תל אביב"_s, u"קפה-תל-אביב"_s);

        row(u"☕ Blue ☕"_s, u"blue"_s);
        row(u"Blue☕Door"_s, u"blue-door"_s);
        row(u"Blue ☕️🥐 Door"_s, u"blue-door"_s);
        row(u"👩‍🍳 Kitchen"_s, u"kitchen"_s);
        row(u"🇻🇳 Hà Nội"_s, u"ha-noi"_s);
        row(u"1️⃣ First"_s, u"1-first"_s);
        row(u"☕☕☕"_s, QString());

        row(u"Blue   Door"_s, u"blue-door"_s);
        row(u"--Blue--Door--"_s, u"blue-door"_s);
        row(u" Blue Door "_s, u"blue-door"_s);
        row(u"Blue/Door"_s, u"blue-door"_s);
        row(u"../../etc/passwd"_s, u"etc-passwd"_s);
        row(u"Blue\\Door:*?\"<>|"_s, u"blue-door"_s);
        row(u"Blue\nDoor\t!"_s, u"blue-door"_s);
        row(u"Blue\u00A0Door\u200B!"_s, u"blue-door"_s);
        row(u"\u202EBlue"_s, u"blue"_s);
        row(u"Café <b>24/7</b>"_s, u"cafe-b-24-7-b"_s);
        row(u"snake_case.png"_s, u"snake-case-png"_s);
        row(u"٢٤ ساعة"_s, u"٢٤-ساعة"_s);
        row(u"No. ⅷ ②"_s, u"no-ⅷ-②"_s);
        row(u"!!!"_s, QString());
        row(u"…—·"_s, QString());
        row(u"\u0301\u0302"_s, QString());
        row(QString(), QString());
    }

    void aNameBecomesWords()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, words);
        QCOMPARE(ShareSlug::of(name, day), words + u"-2025-03-03"_s);
    }

    void theDayIsWrittenWithAllItsDigits()
    {
        QCOMPARE(ShareSlug::of(u"Blue"_s, QDate(2025, 12, 31)), u"blue-2025-12-31"_s);
        QCOMPARE(ShareSlug::of(u"Blue"_s, QDate(987, 1, 2)), u"blue-0987-01-02"_s);
    }

    void theDayIsTheUsers_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("slug");
        QTest::newRow("UTC") << "UTC"_ba << u"blue-door-2025-03-03"_s;
        QTest::newRow("Saigon") << "Asia/Ho_Chi_Minh"_ba << u"blue-door-2025-03-04"_s;
    }

    void theDayIsTheUsers()
    {
        QFETCH(const QByteArray, zone);
        const CheckIn late = visit(u"2025-03-03T17:00:00Z"_s, cafe(u"Blue Door"_s));
        QTEST(ShareSlug::of(late, Calendar(QTimeZone(zone))), "slug");
    }

    void aVisitWithoutACafeIsACheckIn()
    {
        const CheckIn nowhere = visit(u"2025-03-03T12:00:00Z"_s, nullptr);
        const QString slug = ShareSlug::of(nowhere, Calendar(QTimeZone::utc()));
        QCOMPARE(ShareSlug::fileName(slug), u"checkin-checkin-2025-03-03.png"_s);
    }

    void theFileIsNamedAfterTheSlug()
    {
        QCOMPARE(ShareSlug::fileName(ShareSlug::of(u"Mây Trắng (Phố Cổ)"_s, day)),
                 u"checkin-may-trang-pho-co-2025-03-03.png"_s);
        QCOMPARE(ShareSlug::fileName(ShareSlug::of(u"!!!"_s, day)), u"checkin--2025-03-03.png"_s);
    }

    void longNamesAreCutWhereTheDiskEnds_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("bytes");
        QTest::addColumn<QString>("end");
        const auto row = [](const char *title, const QString &name, int bytes, const QString &end) {
            QTest::newRow(title) << name << bytes << end;
        };
        const auto a = [](int count) { return QString(count, u'a'); };
        row("fits", a(232), 255, u"aa"_s);
        row("one too many", a(233), 255, u"aa"_s);
        row("300 letters", a(300), 255, u"aa"_s);
        row("300 of two bytes", QString(300, u'я'), 255, u"я"_s);
        row("300 of three bytes", QString(300, u'咖'), 254, u"咖"_s);
        row("300 of four bytes", u"𠮷"_s.repeated(300), 255, u"𠮷"_s);
        row("letter with its marks", a(231) + u"กี้"_s, 254, u"a"_s);
        row("cut at a hyphen", a(231) + u" b"_s, 254, u"aa"_s);
        row("300 accented", u"ế"_s.repeated(300), 255, u"ee"_s);
    }

    void longNamesAreCutWhereTheDiskEnds()
    {
        QFETCH(const QString, name);
        QFETCH(const int, bytes);
        QFETCH(const QString, end);
        const QString slug = ShareSlug::of(name, day);
        QVERIFY(slug.endsWith(end + u"-2025-03-03"_s));
        const QString fileName = ShareSlug::fileName(slug);
        QCOMPARE(fileName.toUtf8().size(), bytes);
        const QTemporaryDir folder;
        QVERIFY(QFile(folder.filePath(fileName)).open(QIODevice::WriteOnly));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ShareSlugTest)
#include "ShareSlugTest.moc"
