#include "Tests/Contract/HttpClient/HttpClientContract.h"

#include "Tests/Support/Heard.h"
#include "Tests/Support/Patience.h"

#include <QCoreApplication>

#include <chrono>
#include <optional>
#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Answer = std::shared_ptr<Heard<HttpResponse>>;

Answer begin(HttpClient &client, const HttpRequest &request)
{
    auto heard = std::make_shared<Heard<HttpResponse>>();
    client.send(request, Heard<HttpResponse>::by(heard));
    return heard;
}

Answer ask(HttpClient &client, const HttpRequest &request)
{
    return hear<HttpResponse>(
        [&](Completion<HttpResponse> completion) { client.send(request, std::move(completion)); });
}

/// The error of the request; nothing if it was answered.
std::optional<HttpError> failureOf(HttpClient &client, const HttpRequest &request)
{
    std::optional<HttpError> failure;
    bool hasEnded = false;
    client.send(request, [&](Outcome<HttpResponse> outcome) {
        hasEnded = true;
        try {
            static_cast<void>(outcome.take());
        } catch (const HttpError &error) {
            failure = error;
        }
    });
    if (!comes([&hasEnded] { return hasEnded; }))
        qFatal("the request did not end");
    return failure;
}

QString sentenceOf(HttpError::Case kind)
{
    return HttpError(kind).errorDescription();
}

} // namespace

void HttpClientContract::everyStatusIsAnAnswer_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {200, 299, 404, 503})
        QTest::addRow("%d", status) << status;
}

void HttpClientContract::everyStatusIsAnAnswer()
{
    QFETCH(const int, status);
    const HttpResponse response{.statusCode = status, .body = "a\nbody"};
    willAnswer(response);
    const auto heard = ask(*m_client, {.url = url()});
    QVERIFY(heard->value == response);
    QCoreApplication::processEvents();
    QCOMPARE(heard->count, 1);
}

HttpError HttpClientContract::errorOf(Break when)
{
    return HttpError::transport(when == Break::BeforeItStands ? u"Connection refused"_s
                                                              : u"Connection closed"_s);
}

void HttpClientContract::aConnectionThatBreaksFailsInTheWordsOfTheTransport_data()
{
    QTest::addColumn<Break>("when");
    QTest::newRow("nobody listens") << Break::BeforeItStands;
    QTest::newRow("closed before the answer") << Break::BeforeTheAnswer;
    QTest::newRow("closed in the middle of the answer") << Break::InTheAnswer;
}

void HttpClientContract::aConnectionThatBreaksFailsInTheWordsOfTheTransport()
{
    QFETCH(const Break, when);
    willBreak(when);
    const auto failure = failureOf(*m_client, {.url = url()});
    QVERIFY(failure);
    QCOMPARE(failure->kind(), HttpError::Case::Transport);
    QCOMPARE(failure->errorDescription(), errorOf(when).errorDescription());
}

void HttpClientContract::aServerThatNeverAnswersTimesOut()
{
    willHold();
    const auto heard = begin(*m_client, {.url = url(), .timeout = 500ms});
    // A request that times out before it arrives is never held.
    QTRY_VERIFY(isHeld() || heard->count > 0);
    expire();
    QTRY_COMPARE(heard->count, 1);
    QCOMPARE(heard->error, sentenceOf(HttpError::Case::TimedOut));
}

void HttpClientContract::callsRunSideBySide()
{
    willHold();
    const auto first = begin(*m_client, {.url = url()});
    QTRY_VERIFY(isHeld());
    willAnswer({.statusCode = 200, .body = "second"});
    QCOMPARE(ask(*m_client, {.url = url()})->value->body, "second");
    QCOMPARE(first->count, 0);
    release({.statusCode = 200, .body = "first"});
    QTRY_COMPARE(first->count, 1);
    QCOMPARE(first->value->body, "first");
}

void HttpClientContract::openCallsEndAsCancelledWithTheClient()
{
    willHold();
    const auto heard = begin(*m_client, {.url = url()});
    QTRY_VERIFY(isHeld());
    QCOMPARE(heard->count, 0);
    m_client.reset();
    QTRY_COMPARE(heard->count, 1);
    QCOMPARE(heard->error, sentenceOf(HttpError::Case::Cancelled));
}

void HttpClientContract::whoWaitsMayDestroyTheClient()
{
    willAnswer({.statusCode = 200, .body = {}});
    int count = 0;
    m_client->send({.url = url()}, [&](const Outcome<HttpResponse> &) {
        ++count;
        m_client.reset();
    });
    QTRY_COMPARE(count, 1);
    QVERIFY(!m_client);
}

} // namespace quorvel::tests
