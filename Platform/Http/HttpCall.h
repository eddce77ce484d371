#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Http/HttpError.h"
#include "Platform/Http/HttpResponse.h"

#include <QNetworkReply>
#include <QObject>
#include <QScopedPointerDeleteLater>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace quorvel {

/// One open request of `QtHttpClient`. It collects the answer, ends the request when it grows too
/// large or takes too long, reports the outcome, and destroys itself. If it is destroyed earlier,
/// the call ends as cancelled.
class HttpCall final : public QObject
{
    Q_OBJECT

public:
    HttpCall(QNetworkReply *reply, std::chrono::milliseconds timeout, qint64 bodyLimitBytes,
             Completion<HttpResponse> completion, QObject *parent);
    ~HttpCall() override;

private:
    void gather();
    void abort(HttpError::Case reason);
    void finish();
    [[nodiscard]] Outcome<HttpResponse> outcome() const;
    void complete(Outcome<HttpResponse> outcome);

    std::unique_ptr<QNetworkReply, QScopedPointerDeleteLater> m_reply;
    qint64 m_bodyLimitBytes;
    Completion<HttpResponse> m_completion;
    QTimer m_limit;
    QByteArray m_body;
    std::optional<HttpError::Case> m_reason;
};

} // namespace quorvel
