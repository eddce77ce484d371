#pragma once

#include "Platform/Http/HttpClient.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>

namespace quorvel {

/// The web through Qt's network access. It verifies certificates, limits redirects and the size of
/// an answer, and ends every call within the call's limit. When the client is destroyed, open calls
/// end as cancelled.
class QtHttpClient final : public QObject, public HttpClient
{
    Q_OBJECT

public:
    static constexpr int redirectLimit = 5;
    static constexpr qint64 defaultBodyLimitBytes = qint64(8) * 1024 * 1024;

    explicit QtHttpClient(qint64 bodyLimitBytes = defaultBodyLimitBytes, QObject *parent = nullptr);
    ~QtHttpClient() override;

    void send(const HttpRequest &request, Completion<HttpResponse> completion) override;

private:
    [[nodiscard]] QNetworkReply *start(const HttpRequest &request);

    qint64 m_bodyLimitBytes;
    QNetworkAccessManager m_manager;
};

} // namespace quorvel
