#include "Platform/Http/HttpError.h"

#include <QTest>

Q_DECLARE_METATYPE(quorvel::HttpError::Case)

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class HttpErrorTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyCaseHasItsSentence_data()
    {
        using Case = HttpError::Case;
        QTest::addColumn<HttpError::Case>("kind");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("transport") << Case::Transport << u"The connection failed."_s;
        QTest::newRow("timed out") << Case::TimedOut << u"The request timed out."_s;
        QTest::newRow("too large") << Case::BodyTooLarge << u"The answer is too large."_s;
        QTest::newRow("redirects")
            << Case::TooManyRedirects << u"The server redirected too many times."_s;
        QTest::newRow("downgrade") << Case::InsecureRedirect
                                   << u"The server redirected to an address that is not secure."_s;
        QTest::newRow("cancelled") << Case::Cancelled << u"The request was cancelled."_s;
    }

    void everyCaseHasItsSentence()
    {
        QFETCH(const HttpError::Case, kind);
        const HttpError error(kind);
        QCOMPARE(error.kind(), kind);
        QTEST(error.errorDescription(), "sentence");
    }

    void theTransportSpeaksForItself()
    {
        const HttpError error = HttpError::transport(u"Host not found"_s);
        QCOMPARE(error.kind(), HttpError::Case::Transport);
        QCOMPARE(error.errorDescription(), u"Host not found"_s);
    }

    void errorsAreEqualOnlyWithTheSameCaseAndSentence()
    {
        QVERIFY(HttpError::transport(u"a"_s) == HttpError::transport(u"a"_s));
        QVERIFY(!(HttpError::transport(u"a"_s) == HttpError::transport(u"b"_s)));
        QVERIFY(!(HttpError(HttpError::Case::TimedOut) == HttpError(HttpError::Case::Cancelled)));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::HttpErrorTest)
#include "HttpErrorTest.moc"
