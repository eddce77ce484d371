#include "Platform/Bus/BusCall.h"

#include "Tests/Support/Patience.h"

#include <QDBusError>
#include <QDBusReply>
#include <QDBusVirtualObject>
#include <QTest>
#include <QVariant>

#include <chrono>
#include <memory>
#include <optional>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

const auto service = u"com.zantho.quorvel.Test"_s;
constexpr auto patience = 60s;

QDBusMessage question(const QString &member)
{
    return QDBusMessage::createMethodCall(service, u"/"_s, service, member);
}

/// A service on a separate connection, as in another process. It answers `Seven`, refuses `Refusal`
/// and leaves all other calls open.
class TestService final : public QDBusVirtualObject
{
public:
    TestService()
    {
        m_bus.registerVirtualObject(u"/"_s, this);
        m_bus.registerService(service);
    }
    ~TestService() override
    {
        m_bus.unregisterService(service);
        QDBusConnection::disconnectFromBus(u"service"_s);
    }

    void answerLate() { m_bus.send(open.takeFirst().createReply(7)); }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override
    {
        if (message.member() == "Seven"_L1)
            m_bus.send(message.createReply(7));
        else if (message.member() == "Refusal"_L1)
            m_bus.send(message.createErrorReply(QDBusError::AccessDenied, u"no"_s));
        else
            open.append(message);
        return true;
    }
    [[nodiscard]] QString introspect(const QString &) const override { return {}; }

    QList<QDBusMessage> open;

private:
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"service"_s);
};

} // namespace

class BusCallTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_service.emplace();
        m_context = std::make_unique<QObject>();
        m_heard.clear();
    }

    void aReplyIsHeardOnceAndLater()
    {
        start(u"Seven"_s);
        QVERIFY(m_heard.isEmpty());
        hearAllBefore();
        QCOMPARE(m_heard.size(), 1);
        QVERIFY(!BusCall::isError(m_heard[0]));
        QCOMPARE(m_heard[0].arguments(), QVariantList{7});
    }

    void theHandlerRunsOnTheThreadOfTheCall()
    {
        std::thread::id thread;
        BusCall::start(bus(), question(u"Seven"_s), patience, m_context.get(),
                       [&thread](const QDBusMessage &) { thread = std::this_thread::get_id(); });
        QTRY_COMPARE(thread, std::this_thread::get_id());
    }

    void aHandlerMayAskForTheTypeOfTheReply()
    {
        int value = 0;
        BusCall::start(bus(), question(u"Seven"_s), patience, m_context.get(),
                       [&value](const QDBusReply<int> &reply) { value = reply.value(); });
        QTRY_COMPARE(value, 7);
    }

    void aReplyOfAnotherTypeIsAnError()
    {
        auto error = QDBusError::NoError;
        BusCall::start(
            bus(), question(u"Seven"_s), patience, m_context.get(),
            [&error](const QDBusReply<QString> &reply) { error = reply.error().type(); });
        QTRY_COMPARE(error, QDBusError::InvalidSignature);
    }

    void anErrorOfTheServiceIsHeard()
    {
        start(u"Refusal"_s);
        QTRY_COMPARE(m_heard.size(), 1);
        QVERIFY(BusCall::isError(m_heard[0]));
        QCOMPARE(QDBusError(m_heard[0]).type(), QDBusError::AccessDenied);
        QCOMPARE(m_heard[0].errorMessage(), u"no"_s);
    }

    void aServiceThatIsNotThereIsAnError()
    {
        m_service.reset();
        start(u"Seven"_s);
        QTRY_COMPARE(m_heard.size(), 1);
        QCOMPARE(QDBusError(m_heard[0]).type(), QDBusError::ServiceUnknown);
    }

    void aServiceThatEndsDuringTheCallIsAnError()
    {
        start(u"Silence"_s);
        QTRY_COMPARE(m_service->open.size(), 1);
        m_service.reset();
        QTRY_COMPARE(m_heard.size(), 1);
        QCOMPARE(QDBusError(m_heard[0]).type(), QDBusError::NoReply);
    }

    void silenceEndsAtTheLimit()
    {
        start(u"Silence"_s, 100ms);
        QTRY_COMPARE(m_heard.size(), 1);
        QCOMPARE(QDBusError(m_heard[0]).type(), QDBusError::NoReply);
    }

    void anAnswerAfterTheLimitIsNotHeard()
    {
        start(u"Silence"_s, 100ms);
        QTRY_COMPARE(m_heard.size(), 1);
        m_service->answerLate();
        hearAllBefore();
        QCOMPARE(m_heard.size(), 1);
    }

    void aCallWithoutALimitWaitsForItsAnswer()
    {
        start(u"Silence"_s, BusCall::noLimit);
        QTRY_COMPARE(m_service->open.size(), 1);
        hearAllBefore();
        QVERIFY(m_heard.isEmpty());
        m_service->answerLate();
        QTRY_COMPARE(m_heard.size(), 1);
        QVERIFY(!BusCall::isError(m_heard[0]));
    }

    void aBusThatIsNotThereIsAnErrorLater()
    {
        BusCall::start(QDBusConnection(u"nowhere"_s), question(u"Seven"_s), patience,
                       m_context.get(), handler());
        QVERIFY(m_heard.isEmpty());
        QTRY_COMPARE(m_heard.size(), 1);
        QCOMPARE(QDBusError(m_heard[0]).type(), QDBusError::Disconnected);
    }

    void aContextThatIsGoneHearsNothing_data() { buses(); }
    void aContextThatIsGoneHearsNothing()
    {
        QFETCH(const QString, bus);
        BusCall::start(QDBusConnection(bus), question(u"Seven"_s), patience, m_context.get(),
                       handler());
        m_context.reset();
        hearAllBefore();
        QVERIFY(m_heard.isEmpty());
    }

    void aHandlerMayDestroyItsContext_data() { buses(); }
    void aHandlerMayDestroyItsContext()
    {
        QFETCH(const QString, bus);
        BusCall::start(QDBusConnection(bus), question(u"Seven"_s), patience, m_context.get(),
                       [this](const QDBusMessage &answer) {
                           m_context.reset();
                           m_heard.append(answer);
                       });
        QTRY_COMPARE(m_heard.size(), 1);
        QVERIFY(!m_context);
    }

    void aCallThatHasEndedLeavesNothingInItsContext()
    {
        start(u"Seven"_s);
        QVERIFY(!m_context->children().isEmpty());
        QTRY_COMPARE(m_heard.size(), 1);
        QTRY_VERIFY(m_context->children().isEmpty());
    }

private:
    static QDBusConnection bus() { return QDBusConnection::sessionBus(); }

    static void buses()
    {
        QTest::addColumn<QString>("bus");
        QTest::newRow("open") << bus().name();
        QTest::newRow("closed") << u"nowhere"_s;
    }

    BusCall::Handler handler()
    {
        return [this](const QDBusMessage &answer) { m_heard.append(answer); };
    }

    void start(const QString &member, std::chrono::milliseconds limit = patience)
    {
        BusCall::start(bus(), question(member), limit, m_context.get(), handler());
    }

    /// When this returns, everything sent before it has been received.
    void hearAllBefore()
    {
        bool isOver = false;
        BusCall::start(bus(), question(u"Seven"_s), patience, this,
                       [&isOver](const QDBusMessage &) { isOver = true; });
        QTRY_VERIFY(isOver);
    }

    std::optional<TestService> m_service;
    std::unique_ptr<QObject> m_context;
    QList<QDBusMessage> m_heard;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::BusCallTest)
#include "BusCallTest.moc"
