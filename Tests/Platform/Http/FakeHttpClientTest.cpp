#include "Platform/Http/FakeHttpClient.h"

#include "Tests/Support/Heard.h"

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class FakeHttpClientTest final : public QObject
{
    Q_OBJECT

private slots:
    void callsEndAsTheScriptSays()
    {
        FakeHttpClient web;
        web.calls.willSucceed({.statusCode = 200, .body = "first"});
        web.calls.willFail(HttpError(HttpError::Case::TimedOut));
        QCOMPARE(ask(web, u"http://a.example/"_s)->value->body, "first");
        QCOMPARE(ask(web, u"http://b.example/"_s)->error, u"The request timed out."_s);
        QCOMPARE(web.calls.requests.size(), 2U);
        QCOMPARE(web.calls.requests[1].url, QUrl(u"http://b.example/"_s));
    }

    void aHeldCallEndsWhenItIsReleased()
    {
        FakeHttpClient web;
        web.calls.willHold();
        web.calls.willSucceed({.statusCode = 200, .body = "second"});
        const auto held = std::make_shared<Heard<HttpResponse>>();
        web.send({}, Heard<HttpResponse>::by(held));
        QCOMPARE(ask(web, u"http://a.example/"_s)->value->body, "second");
        QCOMPARE(held->count, 0);
        web.calls.release(Outcome<HttpResponse>::success({.statusCode = 200, .body = "first"}));
        QCOMPARE(held->count, 0);
        QTRY_COMPARE(held->count, 1);
        QCOMPARE(held->value->body, "first");
    }

    void openCallsEndWithTheFake()
    {
        const auto held = std::make_shared<Heard<HttpResponse>>();
        const auto unheard = std::make_shared<Heard<HttpResponse>>();
        {
            FakeHttpClient web;
            web.calls.willHold();
            web.calls.willSucceed({.statusCode = 200, .body = {}});
            web.send({}, Heard<HttpResponse>::by(held));
            web.send({}, Heard<HttpResponse>::by(unheard));
        }
        QCoreApplication::processEvents();
        QCOMPARE(held->count, 1);
        QCOMPARE(held->error, u"The request was cancelled."_s);
        QCOMPARE(unheard->count, 1);
        QCOMPARE(unheard->error, u"The request was cancelled."_s);
    }

private:
    static std::shared_ptr<Heard<HttpResponse>> ask(HttpClient &client, const QString &url)
    {
        return hear<HttpResponse>([&](Completion<HttpResponse> completion) {
            client.send({.url = QUrl(url)}, std::move(completion));
        });
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeHttpClientTest)
#include "FakeHttpClientTest.moc"
