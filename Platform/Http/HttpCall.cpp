#include "Platform/Http/HttpCall.h"

#include <QNetworkRequest>
#include <QObject>
#include <QVariant>

#include <chrono>
#include <utility>

namespace quorvel {

namespace {

/// Absent if the answer is not HTTP.
std::optional<int> statusCode(const QNetworkReply &reply)
{
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? std::optional(status.toInt()) : std::nullopt;
}

/// Whether the answer arrived completely. Qt reports HTTP 4xx and 5xx as errors too. Below 400, an
/// error means that the transfer itself failed.
bool isAnswer(const QNetworkReply &reply)
{
    constexpr int firstStatusThatRefuses = 400;
    const bool isStatusError = reply.error() >= QNetworkReply::ContentAccessDenied &&
                               statusCode(reply) >= firstStatusThatRefuses;
    return reply.error() == QNetworkReply::NoError || isStatusError;
}

HttpError errorOf(const QNetworkReply &reply)
{
    switch (reply.error()) {
    case QNetworkReply::TooManyRedirectsError:
        return HttpError(HttpError::Case::TooManyRedirects);
    case QNetworkReply::InsecureRedirectError:
        return HttpError(HttpError::Case::InsecureRedirect);
    default:
        return HttpError::transport(reply.errorString());
    }
}

} // namespace

HttpCall::HttpCall(QNetworkReply *reply, std::chrono::milliseconds timeout, qint64 bodyLimitBytes,
                   Completion<HttpResponse> completion, QObject *parent)
    : QObject(parent)
    , m_reply(reply)
    , m_bodyLimitBytes(bodyLimitBytes)
    , m_completion(std::move(completion))
{
    // Qt's own transfer time-out measures silence. A server that sends a byte now and then would
    // never reach it.
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { abort(HttpError::Case::TimedOut); });
    connect(reply, &QNetworkReply::finished, &m_limit, &QTimer::stop);
    connect(reply, &QNetworkReply::readyRead, this, &HttpCall::gather);
    // Lifetime: the caller may destroy the client in its completion, and the reply must not be
    // destroyed while it reports that it has finished.
    connect(reply, &QNetworkReply::finished, this, &HttpCall::finish, Qt::QueuedConnection);
    m_limit.start(timeout);
}

HttpCall::~HttpCall()
{
    m_reply->disconnect(this);
    m_reply->abort();
    complete(Outcome<HttpResponse>::failure(HttpError(HttpError::Case::Cancelled)));
}

void HttpCall::gather()
{
    m_body += m_reply->readAll();
    if (m_body.size() > m_bodyLimitBytes)
        abort(HttpError::Case::BodyTooLarge);
}

void HttpCall::abort(HttpError::Case reason)
{
    m_reason = reason;
    m_body.clear();
    m_reply->abort();
}

void HttpCall::finish()
{
    if (m_reply->isOpen())
        gather();
    deleteLater();
    complete(outcome());
}

Outcome<HttpResponse> HttpCall::outcome() const
{
    if (m_reason)
        return Outcome<HttpResponse>::failure(HttpError(*m_reason));
    if (!isAnswer(*m_reply))
        return Outcome<HttpResponse>::failure(errorOf(*m_reply));
    return Outcome<HttpResponse>::success({.statusCode = statusCode(*m_reply), .body = m_body});
}

void HttpCall::complete(Outcome<HttpResponse> outcome)
{
    if (const auto completion = std::exchange(m_completion, nullptr))
        completion(std::move(outcome));
}

} // namespace quorvel
