#include "Platform/Http/QtHttpClient.h"

#include "Platform/Http/HttpCall.h"

#include <QCoreApplication>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr auto userAgent = "Quorvel/" QUORVEL_VERSION " (Linux desktop; cafe check-ins)";
constexpr auto formType = "application/x-www-form-urlencoded";

/// Calls share no state, and nothing reaches the disk.
void forgetCalls(QNetworkRequest &request)
{
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
}

} // namespace

QtHttpClient::QtHttpClient(qint64 bodyLimitBytes, QObject *parent)
    : QObject(parent)
    , m_bodyLimitBytes(bodyLimitBytes)
{
    m_manager.setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);
}

QtHttpClient::~QtHttpClient()
{
    // Order: the calls release their replies before the manager destroys them.
    qDeleteAll(findChildren<HttpCall *>());
}

void QtHttpClient::send(const HttpRequest &request, Completion<HttpResponse> completion)
{
    new HttpCall(start(request), request.timeout, m_bodyLimitBytes, std::move(completion), this);
}

QNetworkReply *QtHttpClient::start(const HttpRequest &request)
{
    QNetworkRequest message(request.url);
    message.setMaximumRedirectsAllowed(redirectLimit);
    message.setHeader(QNetworkRequest::UserAgentHeader, QLatin1StringView(userAgent));
    forgetCalls(message);
    switch (request.method) {
    case HttpRequest::Method::Get:
        return m_manager.get(message);
    case HttpRequest::Method::Post:
        message.setHeader(QNetworkRequest::ContentTypeHeader, QLatin1StringView(formType));
        return m_manager.post(message, request.body);
    }
    Q_UNREACHABLE();
}

HttpClient &HttpClient::shared()
{
    // Lifetime: connections must not outlive the application object.
    static QPointer<QtHttpClient> client;
    if (!client)
        client = new QtHttpClient(QtHttpClient::defaultBodyLimitBytes, qApp);
    return *client;
}

} // namespace quorvel
