#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QUrl>

#include <optional>

class QProcessEnvironment;

namespace quorvel {

/// A variable names an address that must not get the user's position.
class EndpointError final : public LocalizedError
{
public:
    EndpointError(const QString &variable, const QString &address);

    [[nodiscard]] QString errorDescription() const override;

private:
    QString m_variable;
    QString m_address;
};

/// The addresses of the web services. The environment may name a mirror or a server on this
/// machine. Only https is accepted, and http that stays on this machine.
struct Endpoints
{
    /// The address where an Overpass server answers queries. Absent: the public servers.
    std::optional<QUrl> places;
    /// An Open-Meteo server, without the path of the forecast. Absent: the public server.
    std::optional<QUrl> weather;

    /// Reads QUORVEL_PLACES_ENDPOINT and QUORVEL_WEATHER_ENDPOINT. An empty variable counts as
    /// unset. Throws EndpointError for a refused address: a user with their own server does not
    /// want the public one to be asked instead.
    [[nodiscard]] static Endpoints read(const QProcessEnvironment &environment);

    friend bool operator==(const Endpoints &, const Endpoints &) = default;
};

} // namespace quorvel
