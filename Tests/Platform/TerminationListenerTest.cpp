#include "Platform/Termination/TerminationListener.h"

#include "Tests/Support/Patience.h"

#include <QSignalSpy>
#include <QTest>
#include <sys/wait.h>

#include <csignal>
#include <unistd.h>

namespace quorvel::tests {

class TerminationListenerTest final : public QObject
{
    Q_OBJECT

private slots:
    void eachRequestToEndIsASignalOnTheMainThread_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void eachRequestToEndIsASignalOnTheMainThread()
    {
        QFETCH(int, number);
        const TerminationListener listener;
        QSignalSpy requests(&listener, &TerminationListener::terminationRequested);
        ::kill(::getpid(), number);
        QCOMPARE(requests.count(), 0);
        QVERIFY(requests.wait(patienceMilliseconds));
        QCOMPARE(requests.count(), 1);
    }

    void aSignalThatIsIgnoredStaysIgnored()
    {
        std::signal(SIGHUP, SIG_IGN);
        {
            const TerminationListener listener;
            QSignalSpy requests(&listener, &TerminationListener::terminationRequested);
            ::raise(SIGHUP);
            ::raise(SIGTERM);
            QVERIFY(requests.wait(patienceMilliseconds));
            QCOMPARE(requests.count(), 1);
        }
        ::raise(SIGHUP);
        std::signal(SIGHUP, SIG_DFL);
    }

    void withoutAListenerTheProcessEndsAtOnce()
    {
        const pid_t child = ::fork();
        if (child == 0) {
            {
                const TerminationListener listener;
            }
            ::raise(SIGTERM);
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        QVERIFY(WIFSIGNALED(status));
        QCOMPARE(WTERMSIG(status), SIGTERM);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::TerminationListenerTest)
#include "TerminationListenerTest.moc"
