#include "Features/MenuBar/Icon/TraylessOpening.h"

#include "Platform/StatusItem/FakeStatusItem.h"

#include <QSignalSpy>
#include <QTest>

using namespace std::chrono_literals;

namespace quorvel::tests {

class TraylessOpeningTest final : public QObject
{
    Q_OBJECT

private slots:
    void panelIsAskedForOnceWhereNoHostCame()
    {
        const TraylessOpening opening(m_item, patience);
        QSignalSpy asked(&opening, &TraylessOpening::openRequested);
        QVERIFY(asked.wait());
        QVERIFY(!asked.wait(several.count()));
    }

    void hostThatIsThereIsEnough()
    {
        m_item.setShown(true);
        const TraylessOpening opening(m_item, patience);
        expectSilence(opening);
    }

    void hostThatComesInTimeIsEnough()
    {
        const TraylessOpening opening(m_item, patience);
        m_item.setShown(true);
        expectSilence(opening);
    }

    void hostThatCameAndWentIsWaitedFor()
    {
        const TraylessOpening opening(m_item, patience);
        m_item.setShown(true);
        m_item.setShown(false);
        expectSilence(opening);
    }

    void cancelledOpeningNeverComes()
    {
        TraylessOpening opening(m_item, patience);
        opening.cancel();
        expectSilence(opening);
    }

    void cleanup() { m_item.setShown(false); }

private:
    static constexpr std::chrono::milliseconds patience = 20ms;
    static constexpr std::chrono::milliseconds several = 5 * patience;

    static void expectSilence(const TraylessOpening &opening)
    {
        QSignalSpy asked(&opening, &TraylessOpening::openRequested);
        QVERIFY(!asked.wait(several.count()));
    }

    FakeStatusItem m_item;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::TraylessOpeningTest)
#include "TraylessOpeningTest.moc"
