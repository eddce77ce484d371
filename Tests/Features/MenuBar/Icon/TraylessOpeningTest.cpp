#include "Features/MenuBar/Icon/TraylessOpening.h"

#include "Platform/StatusItem/FakeStatusItem.h"
#include "Tests/Support/Patience.h"

#include <QSignalSpy>
#include <QTest>

#include <chrono>

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
        QTRY_COMPARE(asked.size(), 1);
        waitForALaterOpening();
        QCOMPARE(asked.size(), 1);
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

    static void expectSilence(const TraylessOpening &opening)
    {
        const QSignalSpy asked(&opening, &TraylessOpening::openRequested);
        waitForALaterOpening();
        QCOMPARE(asked.size(), 0);
    }

    /// A new object starts now and asks. An earlier one would have asked by then.
    static void waitForALaterOpening()
    {
        const FakeStatusItem nowhere;
        const TraylessOpening later(nowhere, patience);
        const QSignalSpy asked(&later, &TraylessOpening::openRequested);
        QTRY_COMPARE(asked.size(), 1);
    }

    FakeStatusItem m_item;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::TraylessOpeningTest)
#include "TraylessOpeningTest.moc"
