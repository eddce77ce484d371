#include "Platform/Http/HttpResponse.h"
#include "Platform/Http/QtHttpClient.h"
#include "Tests/Contract/HttpClient/HttpClientContract.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <QPointer>
#include <QTest>

#include <memory>

namespace quorvel::tests {

/// Uses real connections to a server on this machine.
class QtHttpClientContractTest final : public HttpClientContract
{
    Q_OBJECT

    std::unique_ptr<HttpClient> make() override { return std::make_unique<QtHttpClient>(); }
    QUrl url() const override { return m_isServing ? m_server.url() : urlWhereNobodyListens(); }

    void willAnswer(const HttpResponse &response) override
    {
        m_isServing = true;
        m_next = whole(response);
    }
    void willBreak(Break when) override
    {
        m_isServing = when != Break::BeforeItStands;
        m_next = ScriptedHttpServer::raw(when == Break::InTheAnswer
                                             ? ScriptedHttpServer::text(200, "whole").chopped(1)
                                             : QByteArray());
    }
    void willHold() override
    {
        m_isServing = true;
        m_held.clear();
        m_next = [this](const auto &, QTcpSocket &socket) { m_held = &socket; };
    }
    bool isHeld() const override { return !m_held.isNull(); }
    void release(const HttpResponse &response) override { whole(response)({}, *m_held); }

    static ScriptedHttpServer::Answer whole(const HttpResponse &response)
    {
        return ScriptedHttpServer::whole(response.statusCode.value(), response.body);
    }

    static QUrl urlWhereNobodyListens()
    {
        const ScriptedHttpServer gone{ScriptedHttpServer::raw({})};
        return gone.url();
    }

    bool m_isServing = true;
    ScriptedHttpServer::Answer m_next;
    QPointer<QTcpSocket> m_held;
    ScriptedHttpServer m_server{
        [this](const auto &request, QTcpSocket &socket) { m_next(request, socket); }};
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::QtHttpClientContractTest)
#include "QtHttpClientContractTest.moc"
