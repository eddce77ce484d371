#include "Platform/Errors/Outcome.h"
#include "Platform/Http/FakeHttpClient.h"
#include "Platform/Http/HttpResponse.h"
#include "Tests/Contract/HttpClient/HttpClientContract.h"

#include <QTest>
#include <QUrl>

#include <memory>

namespace quorvel::tests {

class FakeHttpClientContractTest final : public HttpClientContract
{
    Q_OBJECT

    std::unique_ptr<HttpClient> make() override
    {
        auto client = std::make_unique<FakeHttpClient>();
        m_calls = &client->calls;
        return client;
    }
    QUrl url() const override { return QUrl(QStringLiteral("https://cafe.example/")); }

    void willAnswer(const HttpResponse &response) override { m_calls->willSucceed(response); }
    void willBreak(Break when) override { m_calls->willFail(errorOf(when)); }
    void willHold() override { m_calls->willHold(); }
    bool isHeld() const override { return !m_calls->requests.empty(); }
    void release(const HttpResponse &response) override
    {
        m_calls->release(Outcome<HttpResponse>::success(response));
    }
    void expire() override
    {
        m_calls->release(Outcome<HttpResponse>::failure(HttpError(HttpError::Case::TimedOut)));
    }

    decltype(FakeHttpClient::calls) *m_calls = nullptr;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeHttpClientContractTest)
#include "FakeHttpClientContractTest.moc"
