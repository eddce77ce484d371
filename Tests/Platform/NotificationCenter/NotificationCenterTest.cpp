#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QTest>

#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

using Observation = NotificationCenter::Observation;

class NotificationCenterTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_center.emplace();
        m_heard.clear();
    }

    void handlersHearTheirNameInOrderBeforeThePostReturns()
    {
        const auto first = observe(u"saved"_s, u"first"_s);
        const auto other = observe(u"Saved"_s, u"other"_s);
        const auto second = observe(u"saved"_s, u"second"_s);
        m_center->post(u"saved"_s);
        QCOMPARE(m_heard, QStringList({u"first"_s, u"second"_s}));
    }

    void aPostWithoutAnObserverIsFine() { m_center->post(u"saved"_s); }

    void anObservationEndsWithItsToken()
    {
        {
            const auto observation = observe(u"saved"_s, u"ended"_s);
        }
        auto kept = observe(u"saved"_s, u"replaced"_s);
        kept = observe(u"saved"_s, u"kept"_s);
        const auto moved = std::move(kept);
        m_center->post(u"saved"_s);
        QCOMPARE(m_heard, QStringList({u"kept"_s}));
    }

    void aTokenMayOutliveItsCenter()
    {
        const auto observation = observe(u"saved"_s, u"never"_s);
        m_center.reset();
    }

    void aHandlerMayEndItselfAndOthers()
    {
        std::optional<Observation> first;
        std::optional<Observation> second;
        const QString word = u"first"_s;
        first = m_center->observe(u"saved"_s, [&first, &second, word, this] {
            first.reset();
            second.reset();
            m_heard.append(word);
        });
        second = observe(u"saved"_s, u"second"_s);
        m_center->post(u"saved"_s);
        m_center->post(u"saved"_s);
        QCOMPARE(m_heard, QStringList({u"first"_s}));
    }

    void whoBeginsDuringAPostHearsTheNext()
    {
        std::vector<Observation> late;
        const auto first = m_center->observe(
            u"saved"_s, [&late, this] { late.push_back(observe(u"saved"_s, u"late"_s)); });
        m_center->post(u"saved"_s);
        QVERIFY(m_heard.isEmpty());
        m_center->post(u"saved"_s);
        QCOMPARE(m_heard, QStringList({u"late"_s}));
    }

    void aHandlerMayPost()
    {
        const auto chain = m_center->observe(u"saved"_s, [this] { m_center->post(u"reloaded"_s); });
        const auto reloaded = observe(u"reloaded"_s, u"reloaded"_s);
        m_center->post(u"saved"_s);
        QCOMPARE(m_heard, QStringList({u"reloaded"_s}));
    }

    void theProcessHasOneCenter()
    {
        int count = 0;
        const auto observation =
            NotificationCenter::standard().observe(u"saved"_s, [&count] { ++count; });
        m_center->post(u"saved"_s);
        QCOMPARE(count, 0);
        NotificationCenter::standard().post(u"saved"_s);
        QCOMPARE(count, 1);
    }

private:
    [[nodiscard]] Observation observe(const QString &name, const QString &word)
    {
        return m_center->observe(name, [this, word] { m_heard.append(word); });
    }

    std::optional<NotificationCenter> m_center;
    QStringList m_heard;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::NotificationCenterTest)
#include "NotificationCenterTest.moc"
