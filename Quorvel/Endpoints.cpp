#include "Quorvel/Endpoints.h"

#include <QProcessEnvironment>

#include <algorithm>
#include <array>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array loopbackHosts{"localhost"_L1, "127.0.0.1"_L1, "::1"_L1};

/// By name only: what a resolver answers for another name can change.
bool isOnThisMachine(const QString &host)
{
    return std::find(loopbackHosts.begin(), loopbackHosts.end(), host) != loopbackHosts.end();
}

bool isAccepted(const QUrl &url)
{
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty())
        return false;
    return url.scheme() == "https"_L1 || (url.scheme() == "http"_L1 && isOnThisMachine(url.host()));
}

std::optional<QUrl> readEndpoint(const QProcessEnvironment &environment, const QString &variable)
{
    const QString address = environment.value(variable);
    if (address.isEmpty())
        return std::nullopt;
    const QUrl url(address, QUrl::StrictMode);
    if (!isAccepted(url))
        throw EndpointError(variable, address);
    return url;
}

/// The typed address without its password, which must not appear in a log. If the password cannot
/// be told apart, everything before the last “@” counts as one.
QString withoutUser(const QString &address)
{
    const QUrl url(address);
    return url.isValid() ? url.adjusted(QUrl::RemoveUserInfo).toString()
                         : address.section(u'@', -1);
}

} // namespace

EndpointError::EndpointError(const QString &variable, const QString &address)
    : m_variable(variable)
    , m_address(address)
{}

QString EndpointError::errorDescription() const
{
    return u"%1 is “%2”: only https is accepted, or http on this machine, without a user."_s.arg(
        m_variable, withoutUser(m_address));
}

Endpoints Endpoints::read(const QProcessEnvironment &environment)
{
    return {.places = readEndpoint(environment, u"QUORVEL_PLACES_ENDPOINT"_s),
            .weather = readEndpoint(environment, u"QUORVEL_WEATHER_ENDPOINT"_s)};
}

} // namespace quorvel
