#include "Platform/Http/QtHttpClient.h"

#include "Platform/Http/HttpRequest.h"
#include "Platform/Http/HttpResponse.h"
#include "Tests/Support/Heard.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Server = ScriptedHttpServer;
using Answer = std::shared_ptr<Heard<HttpResponse>>;

Answer ask(HttpClient &client, const HttpRequest &request)
{
    return hear<HttpResponse>(
        [&](Completion<HttpResponse> completion) { client.send(request, std::move(completion)); });
}

/// Writes as many bytes as the other side accepts, up to a total, and counts them.
class Flood final : public QObject
{
public:
    explicit Flood(qint64 totalBytes)
        : m_left(totalBytes)
    {}

    Server::Answer answer()
    {
        return [this](const Server::Request &, QTcpSocket &socket) {
            connect(&socket, &QTcpSocket::bytesWritten, this, [this, &socket] { pour(socket); });
            socket.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(m_left) +
                         "\r\n\r\n");
        };
    }

    qint64 pouredBytes = 0;

private:
    void pour(QTcpSocket &socket)
    {
        if (socket.bytesToWrite() > 0 || m_left == 0)
            return;
        const QByteArray chunk(std::min<qint64>(m_left, 64 * 1024), 'x');
        m_left -= chunk.size();
        pouredBytes += chunk.size();
        socket.write(chunk);
    }

    qint64 m_left;
};

/// Sends a byte now and then, for ever.
Server::Answer drip(std::chrono::milliseconds pause)
{
    return [=](const Server::Request &, QTcpSocket &socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        auto *timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
        timer->start(pause);
    };
}

/// Redirects this many times, then answers.
Server::Answer redirects(int count)
{
    return [=](const Server::Request &request, QTcpSocket &socket) {
        const int hop = request.target.mid(1).toInt();
        const QByteArray next = "Location: /" + QByteArray::number(hop + 1) + "\r\n";
        socket.write(hop < count ? Server::text(302, "", next) : Server::text(200, "arrived"));
    };
}

void silence(const Server::Request &, QTcpSocket &) {}

/// Fifty megabytes of zeros, compressed to fifty kilobytes.
QByteArray gzipBomb()
{
    constexpr qsizetype lengthPrefix = 4;
    constexpr qsizetype zlibHead = 2;
    constexpr qsizetype checksum = 4;
    const QByteArray packed = qCompress(QByteArray(50 * 1024 * 1024, '\0'));
    return QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\x03", 10) +
           packed.sliced(lengthPrefix + zlibHead).chopped(checksum) + QByteArray(8, '\0');
}

} // namespace

class QtHttpClientTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_client = std::make_unique<QtHttpClient>(); }

    void getSendsNothingButItsOwnHeaders()
    {
        Server server(Server::whole(200, "here"));
        const auto heard = ask(*m_client, {.url = server.url(u"/a/b?x=1,2&y=-3.5"_s)});
        QVERIFY(heard->value == (HttpResponse{.statusCode = 200, .body = "here"}));
        QCOMPARE(server.requests.size(), 1);
        const Server::Request &request = server.requests.first();
        QCOMPARE(request.method, "GET");
        QCOMPARE(request.target, "/a/b?x=1,2&y=-3.5");
        QCOMPARE(request.body, "");
        QCOMPARE(request.headers.value("user-agent"),
                 "Quorvel/" QUORVEL_VERSION " (Linux desktop; cafe check-ins)");
        QList<QByteArray> names = request.headers.keys();
        std::sort(names.begin(), names.end());
        QCOMPARE(names.join(' '), "accept-encoding accept-language connection host user-agent");
    }

    void postSendsItsForm()
    {
        Server server(Server::whole(200, ""));
        const auto heard =
            ask(*m_client,
                {.url = server.url(), .method = HttpRequest::Method::Post, .body = "data=a%20b"});
        QVERIFY(heard->value == (HttpResponse{.statusCode = 200, .body = ""}));
        QCOMPARE(server.requests.first().method, "POST");
        QCOMPARE(server.requests.first().body, "data=a%20b");
        QCOMPARE(server.requests.first().headers.value("content-type"),
                 "application/x-www-form-urlencoded");
    }

    void aRequestWaitsAMinuteUnlessToldOtherwise() { QCOMPARE(HttpRequest().timeout, 60s); }

    void everyStatusIsAnAnswer_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {199, 200, 204, 299, 300, 304, 400, 401, 403, 404, 406, 410, 418,
                                 429, 500, 501, 503, 504, 599})
            QTest::addRow("%d", status) << status;
    }

    void everyStatusIsAnAnswer()
    {
        QFETCH(const int, status);
        const bool hasBody = status >= 200 && status != 204 && status != 304;
        Server server(Server::whole(status, hasBody ? "text" : ""));
        const auto heard = ask(*m_client, {.url = server.url()});
        QCOMPARE(heard->error, QString());
        QCOMPARE(heard->value->statusCode.value(), status);
        QCOMPARE(heard->value->body, hasBody ? "text" : "");
    }

    void anAnswerThatIsNotHttpHasNoStatus()
    {
        const auto heard = ask(*m_client, {.url = QUrl(u"data:,hello"_s)});
        QVERIFY(heard->value == (HttpResponse{.statusCode = std::nullopt, .body = "hello"}));
    }

    void answersThatAreNoneFail_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("half a head") << QByteArray("HTTP/1.1 200 OK\r\nContent-Le");
        QTest::newRow("half a body")
            << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
        QTest::newRow("half a chunk")
            << QByteArray("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n64\r\nhalf");
        QTest::newRow("another protocol") << QByteArray("220 mail.example ESMTP\r\n\r\n");
    }

    void answersThatAreNoneFail()
    {
        QFETCH(const QByteArray, bytes);
        Server server(Server::raw(bytes));
        const auto heard = ask(*m_client, {.url = server.url()});
        QVERIFY(!heard->value);
        QVERIFY(!heard->error.isEmpty());
        QCOMPARE(heard->count, 1);
    }

    void aRefusedConnectionFailsInTheTransportsWords()
    {
        QUrl url;
        {
            const Server server(silence);
            url = server.url();
        }
        QCOMPARE(ask(*m_client, {.url = url})->error, u"Connection refused"_s);
    }

    void addressesThatLeadNowhereFail_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::newRow("empty") << QUrl();
        QTest::newRow("no host") << QUrl(u"http:///"_s);
        QTest::newRow("unknown scheme") << QUrl(u"carrier-pigeon://roof/"_s);
    }

    void addressesThatLeadNowhereFail()
    {
        QFETCH(const QUrl, url);
        const auto heard = ask(*m_client, {.url = url});
        QVERIFY(!heard->value);
        QVERIFY(!heard->error.isEmpty());
    }

    void aHostThatNeverAnswersTimesOut()
    {
        Server server(silence);
        const auto heard = ask(*m_client, {.url = server.url(), .timeout = 50ms});
        QCOMPARE(heard->error, u"The request timed out."_s);
    }

    void aSlowDripTimesOut()
    {
        Server server(drip(10ms));
        const auto heard = ask(*m_client, {.url = server.url(), .timeout = 200ms});
        QCOMPARE(heard->error, u"The request timed out."_s);
    }

    void redirectsAreFollowedUpToTheirLimit()
    {
        Server server(redirects(QtHttpClient::redirectLimit));
        const auto heard = ask(*m_client, {.url = server.url(u"/0"_s)});
        QVERIFY(heard->value == (HttpResponse{.statusCode = 200, .body = "arrived"}));

        Server further(redirects(QtHttpClient::redirectLimit + 1));
        QCOMPARE(ask(*m_client, {.url = further.url(u"/0"_s)})->error,
                 u"The server redirected too many times."_s);
    }

    void aRedirectLoopEnds()
    {
        Server server(Server::whole(302, "", "Location: /\r\n"));
        QCOMPARE(ask(*m_client, {.url = server.url()})->error,
                 u"The server redirected too many times."_s);
        QCOMPARE(server.requests.size(), QtHttpClient::redirectLimit + 1);
    }

    void redirectsOutOfTheWebAreNotFollowed()
    {
        Server server(Server::whole(302, "", "Location: file:///etc/hostname\r\n"));
        const auto heard = ask(*m_client, {.url = server.url()});
        QVERIFY(!heard->value);
        QVERIFY(!heard->error.isEmpty());
    }

    void aBodyOfExactlyTheLimitIsKept()
    {
        QtHttpClient client(1000);
        Server server(Server::whole(200, QByteArray(1000, 'x')));
        QCOMPARE(ask(client, {.url = server.url()})->value->body.size(), 1000);

        Server larger(Server::whole(200, QByteArray(1001, 'x')));
        QCOMPARE(ask(client, {.url = larger.url()})->error, u"The answer is too large."_s);
    }

    void fiftyMegabytesAreCutOffWhileTheyArrive()
    {
        constexpr qint64 megabyte = 1024 * 1024;
        Flood flood(50 * megabyte);
        Server server(flood.answer());
        QCOMPARE(ask(*m_client, {.url = server.url()})->error, u"The answer is too large."_s);
        QVERIFY(flood.pouredBytes > QtHttpClient::defaultBodyLimitBytes);
        QVERIFY(flood.pouredBytes < 30 * megabyte);
    }

    void aBodyThatUnpacksBeyondTheLimitIsCutOff()
    {
        Server server(Server::whole(200, gzipBomb(), "Content-Encoding: gzip\r\n"));
        const auto heard = ask(*m_client, {.url = server.url()});
        QVERIFY(!heard->value);
        QVERIFY(!heard->error.isEmpty());
    }

    void callsRunSideBySide()
    {
        Server slow(silence);
        Server quick(Server::whole(200, "quick"));
        const auto waiting = std::make_shared<Heard<HttpResponse>>();
        m_client->send({.url = slow.url()}, Heard<HttpResponse>::by(waiting));
        QCOMPARE(ask(*m_client, {.url = quick.url()})->value->body, "quick");
        QCOMPARE(waiting->count, 0);
    }

    void cookiesAreNotKept()
    {
        Server server(Server::whole(200, "", "Set-Cookie: who=me\r\n"));
        QVERIFY(ask(*m_client, {.url = server.url()})->value);
        QVERIFY(ask(*m_client, {.url = server.url()})->value);
        QCOMPARE(server.requests.size(), 2);
        QVERIFY(!server.requests.last().headers.contains("cookie"));
    }

    void destroyingTheClientCancelsWhatIsOpen()
    {
        Server server(silence);
        const auto first = std::make_shared<Heard<HttpResponse>>();
        const auto second = std::make_shared<Heard<HttpResponse>>();
        m_client->send({.url = server.url()}, Heard<HttpResponse>::by(first));
        m_client->send({.url = server.url()}, Heard<HttpResponse>::by(second));
        QTRY_COMPARE(server.requests.size(), 2);
        m_client.reset();
        QCoreApplication::processEvents();
        for (const auto &heard : {first, second}) {
            QCOMPARE(heard->count, 1);
            QCOMPARE(heard->error, u"The request was cancelled."_s);
        }
    }

    void whoWaitsMayDestroyTheClient_data()
    {
        QTest::addColumn<bool>("isAnswered");
        QTest::newRow("on an answer") << true;
        QTest::newRow("on a time-out") << false;
    }

    void whoWaitsMayDestroyTheClient()
    {
        QFETCH(const bool, isAnswered);
        Server quiet(silence);
        Server server(isAnswered ? Server::whole(200, "last words") : Server::Answer(silence));
        const auto other = std::make_shared<Heard<HttpResponse>>();
        m_client->send({.url = quiet.url()}, Heard<HttpResponse>::by(other));
        int count = 0;
        m_client->send({.url = server.url(), .timeout = isAnswered ? 60000ms : 50ms},
                       [&](const Outcome<HttpResponse> &outcome) {
                           ++count;
                           QCOMPARE(outcome.isSuccess(), isAnswered);
                           m_client.reset();
                       });
        QTRY_COMPARE(count, 1);
        QVERIFY(!m_client);
        QCOMPARE(other->error, u"The request was cancelled."_s);
    }

    void whoWaitsMaySendAnew()
    {
        Server server(Server::whole(200, "again"));
        const auto second = std::make_shared<Heard<HttpResponse>>();
        m_client->send({.url = server.url()}, [&](const Outcome<HttpResponse> &) {
            m_client->send({.url = server.url()}, Heard<HttpResponse>::by(second));
        });
        QTRY_COMPARE(second->count, 1);
        QCOMPARE(second->value->body, "again");
    }

    void everyoneSharesOneSession()
    {
        QCOMPARE(&HttpClient::shared(), &HttpClient::shared());
        Server server(Server::whole(200, "shared"));
        QCOMPARE(ask(HttpClient::shared(), {.url = server.url()})->value->body, "shared");
    }

private:
    std::unique_ptr<QtHttpClient> m_client;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::QtHttpClientTest)
#include "QtHttpClientTest.moc"
