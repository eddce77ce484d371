#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QUrl>

#include <optional>

class QProcessEnvironment;

namespace quorvel {

/// An address that a variable names and that the program does not send the user's position to.
class EndpointError final : public LocalizedError
{
public:
    EndpointError(const QString &variable, const QString &address);

    [[nodiscard]] QString errorDescription() const override;

private:
    QString m_variable;
    QString m_address;
};

/// Where the services of the web are reached, for whoever builds the program: a mirror, or a server
/// on this machine, that the environment names. Only https is accepted, and http that does not
/// leave the machine.
struct Endpoints
{
    /// Where an Overpass server answers queries. Absent: the public servers.
    std::optional<QUrl> places;
    /// An Open-Meteo server, without the path of the forecast. Absent: the public server.
    std::optional<QUrl> weather;

    /// As QUORVEL_PLACES_ENDPOINT and QUORVEL_WEATHER_ENDPOINT say; a variable that is empty says
    /// nothing. Throws an EndpointError for an address that is not accepted: whoever names a server
    /// of their own does not want the public one to be asked instead.
    [[nodiscard]] static Endpoints read(const QProcessEnvironment &environment);

    friend bool operator==(const Endpoints &, const Endpoints &) = default;
};

} // namespace quorvel
