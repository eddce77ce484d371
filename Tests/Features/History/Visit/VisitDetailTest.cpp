#include "Features/History/Visit/VisitDetail.h"

#include "Core/Persistence/CheckInPhotoStore.h"
#include "Features/History/Share/ShareState.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/Keychain/Keychain.h"
#include "Services/Wifi/WifiQRGenerator.h"
#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/History/Visits.h"
#include "Tests/Support/Patience.h"

#include <QColor>
#include <QFile>
#include <QSemaphore>
#include <QSignalSpy>
#include <QSize>
#include <QTest>
#include <QThread>
#include <QVariant>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

QImage codeOf(const QString &payload)
{
    return WifiQRGenerator::image(payload, 8).value();
}

std::shared_ptr<CheckIn> visitOn(const std::optional<QString> &ssid)
{
    const auto place = cafe(u"Blue Door"_s);
    place->setLastKnownSSID(ssid);
    return visit(u"2025-03-03T14:05:00Z"_s, place);
}

QImage picture(const QColor &color)
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class VisitDetailTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world.emplace(); }
    void cleanup()
    {
        HistoryWorld::finishLoading();
        m_world.reset();
    }

    void theCardIsThereBeforeItsPictures()
    {
        const auto detail = m_world->makeDetail(visitOn(u"Blue"_s));
        QCOMPARE(detail.card().title, u"Blue Door"_s);
        QVERIFY(detail.photoImage().isNull());
        QVERIFY(!detail.hasWifiQR());
        HistoryWorld::finishLoading();
        QVERIFY(!detail.hasWifiQR());
    }

    void aSavedPasswordIsInTheCode()
    {
        m_world->savePassword(u"a:b"_s, u"Cafe;1"_s);
        const VisitDetail &detail = load(visitOn(u"Cafe;1"_s));
        QVERIFY(detail.hasWifiQR());
        QCOMPARE(detail.wifiQRImage(), codeOf(u"WIFI:T:WPA;S:Cafe\\;1;P:a\\:b;;"_s));
    }

    void anEmptyPasswordIsOne()
    {
        m_world->savePassword(u""_s, u"Open"_s);
        QCOMPARE(load(visitOn(u"Open"_s)).wifiQRImage(), codeOf(u"WIFI:T:WPA;S:Open;P:;;"_s));
    }

    void withoutASavedPasswordThereIsNoCode()
    {
        m_world->savePassword(u"secret"_s, u"blue"_s);
        QVERIFY(!load(visitOn(u"Blue"_s)).hasWifiQR());
    }

    void withoutANetworkTheKeychainIsNotAsked()
    {
        m_world->facilities.makeKeychain = []() -> std::unique_ptr<Keychain> {
            qFatal("the keychain was asked");
            return nullptr;
        };
        for (const auto &checkIn : {visitOn(std::nullopt), visit(u"2025-03-03T14:05:00Z"_s)}) {
            auto detail = m_world->makeDetail(checkIn);
            detail.load();
            HistoryWorld::finishLoading();
            QVERIFY(!detail.hasWifiQR());
        }
    }

    void aKeychainThatFailsGivesNoCode()
    {
        m_world->savePassword(u"secret"_s, u"Blue"_s);
        m_world->keychain.failure = KeychainStatus::interactionNotAllowed;
        QVERIFY(!load(visitOn(u"Blue"_s)).hasWifiQR());
    }

    void theKeychainIsReadOnAnotherThread()
    {
        QThread *reader = nullptr;
        m_world->facilities.makeKeychain = [&reader] {
            reader = QThread::currentThread();
            return std::make_unique<FakeKeychain>();
        };
        auto detail = m_world->makeDetail(visitOn(u"Blue"_s));
        detail.load();
        HistoryWorld::finishLoading();
        QVERIFY(reader && reader != QThread::currentThread());
    }

    void theCodeArrivesOnceAndTellsSo()
    {
        m_world->savePassword(u"secret"_s, u"Blue"_s);
        auto detail = m_world->makeDetail(visitOn(u"Blue"_s));
        const QSignalSpy changes(&detail, &VisitDetail::wifiQRImageChanged);
        detail.load();
        HistoryWorld::finishLoading();
        QCOMPARE(changes.count(), 1);
        QCOMPARE(changes.at(0), QVariantList());
    }

    void aCodeThatComesAfterItsVisitWasClosedGoesNowhere()
    {
        QSemaphore unlocked;
        m_world->savePassword(u"secret"_s, u"Blue"_s);
        m_world->facilities.makeKeychain = [this, &unlocked] {
            unlocked.acquire();
            return std::make_unique<FakeKeychain>(m_world->keychain);
        };
        std::unique_ptr<VisitDetail> closed(
            new VisitDetail(m_world->makeDetail(visitOn(u"Blue"_s))));
        closed->load();
        auto next = m_world->makeDetail(visitOn(u"Red"_s));
        next.load();
        const QSignalSpy changes(&next, &VisitDetail::wifiQRImageChanged);
        closed.reset();
        unlocked.release(2);
        HistoryWorld::finishLoading();
        QCOMPARE(changes.count(), 0);
        QVERIFY(!next.hasWifiQR());
    }

    void thePhotoIsTheVisits()
    {
        m_world->putPhoto(picture(Qt::red), u"visit.png"_s);
        const auto there = visitOn(std::nullopt);
        there->setPhotoFilename(u"visit.png"_s);
        const VisitDetail &detail = load(there);
        QCOMPARE(detail.photoImage().size(), QSize(40, 40));
        QCOMPARE(detail.photoImage().pixelColor(20, 20), QColor(Qt::red));
    }

    void aPhotoThatIsGoneIsNotShownAtTheNextOpening()
    {
        m_world->putPhoto(picture(Qt::red), u"visit.png"_s);
        const auto there = visitOn(std::nullopt);
        there->setPhotoFilename(u"visit.png"_s);
        QVERIFY(!load(there).photoImage().isNull());
        QVERIFY(QFile::remove(
            CheckInPhotoStore(m_world->fileManager).url(u"visit.png"_s).toLocalFile()));
        QVERIFY(!m_detail->photoImage().isNull());
        QVERIFY(load(there).photoImage().isNull());
    }

    void withoutAPhotoThereIsNone() { QVERIFY(load(visitOn(std::nullopt)).photoImage().isNull()); }

    void theShareButtonSaysHowFarItIs()
    {
        m_world->renderCard = [](VisitDetail &) { return picture(Qt::red); };
        m_world->pasteboard.acceptances.willSucceed(Acceptance::Accepted);
        auto detail = m_world->makeDetail(visitOn(std::nullopt));
        VisitShare &share = *detail.share();
        QCOMPARE(share.label(), u"Share"_s);
        QCOMPARE(share.symbol(), u"square.and.arrow.up"_s);
        const QSignalSpy changes(&share, &VisitShare::stateChanged);
        share.shareCard();
        QCOMPARE(changes.count(), 1);
        QVERIFY(share.isSharing());
        QCOMPARE(share.label(), u"Sharing…"_s);
        QCOMPARE(share.symbol(), QString());
        QTRY_COMPARE(changes.count(), 2);
        QVERIFY(!share.isSharing());
        QCOMPARE(share.label(), u"Copied!"_s);
        QCOMPARE(share.symbol(), u"checkmark"_s);
    }

    void itsOwnCardIsShared()
    {
        const VisitDetail *drawn = nullptr;
        m_world->renderCard = [&drawn](VisitDetail &shared) {
            drawn = &shared;
            return picture(Qt::red);
        };
        share(visitOn(std::nullopt), Acceptance::Accepted);
        QCOMPARE(drawn, m_detail.get());
        QCOMPARE(m_world->pasteboard.image, picture(Qt::red));
    }

    void aRefusedCardIsNamedAfterCafeAndDay()
    {
        m_world->renderCard = [](VisitDetail &) { return picture(Qt::red); };
        m_world->fileManager.downloads = {u"/downloads"_s};
        share(visitOn(std::nullopt), Acceptance::Refused);
        QCOMPARE(m_world->fileManager.files.keys(),
                 QStringList{u"/downloads/checkin-blue-door-2025-03-03.png"_s});
        QCOMPARE(m_detail->share()->state(), ShareState::Saved);
    }

    void aCardWithACodeIsASecret()
    {
        m_world->renderCard = [](VisitDetail &) { return picture(Qt::red); };
        m_world->savePassword(u"secret"_s, u"Blue"_s);
        share(visitOn(u"Red"_s), Acceptance::Accepted);
        QCOMPARE(m_world->pasteboard.calls, (QStringList{u"clear"_s, u"image"_s}));
        share(visitOn(u"Blue"_s), Acceptance::Accepted);
        QCOMPARE(m_world->pasteboard.calls.last(), u"secret image"_s);
    }

private:
    VisitDetail &load(std::shared_ptr<CheckIn> checkIn)
    {
        m_detail.reset(new VisitDetail(m_world->makeDetail(std::move(checkIn))));
        m_detail->load();
        HistoryWorld::finishLoading();
        return *m_detail;
    }

    void share(std::shared_ptr<CheckIn> checkIn, Acceptance acceptance)
    {
        m_world->pasteboard.acceptances.willSucceed(acceptance);
        load(std::move(checkIn)).share()->shareCard();
        QTRY_VERIFY(!m_detail->share()->isSharing());
    }

    std::optional<HistoryWorld> m_world;
    std::unique_ptr<VisitDetail> m_detail;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::VisitDetailTest)
#include "VisitDetailTest.moc"
