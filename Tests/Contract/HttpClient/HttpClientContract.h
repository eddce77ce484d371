#pragma once

#include "Platform/Http/HttpClient.h"
#include "Platform/Http/HttpError.h"

#include <QObject>
#include <QUrl>

#include <memory>

namespace quorvel::tests {

/// The promises of every HTTP client.
class HttpClientContract : public QObject
{
    Q_OBJECT

public:
    /// The moment in which a connection breaks.
    enum class Break { BeforeItStands, BeforeTheAnswer, InTheAnswer };
    Q_ENUM(Break)

protected:
    [[nodiscard]] static HttpError errorOf(Break when);

    [[nodiscard]] virtual std::unique_ptr<HttpClient> make() = 0;
    [[nodiscard]] virtual QUrl url() const = 0;

    /// Scripts the outcome of the next request.
    virtual void willAnswer(const HttpResponse &response) = 0;
    virtual void willBreak(Break when) = 0;
    virtual void willHold() = 0;
    /// Returns when the request is held.
    [[nodiscard]] virtual bool isHeld() const = 0;
    virtual void release(const HttpResponse &response) = 0;
    /// Ends the time of the held request.
    virtual void expire() {}

private slots:
    void init() { m_client = make(); }
    void cleanup() { m_client.reset(); }

    void everyStatusIsAnAnswer_data();
    void everyStatusIsAnAnswer();
    void aConnectionThatBreaksFailsInTheWordsOfTheTransport_data();
    void aConnectionThatBreaksFailsInTheWordsOfTheTransport();
    void aServerThatNeverAnswersTimesOut();
    void callsRunSideBySide();
    void openCallsEndAsCancelledWithTheClient();
    void whoWaitsMayDestroyTheClient();

private:
    std::unique_ptr<HttpClient> m_client;
};

} // namespace quorvel::tests
