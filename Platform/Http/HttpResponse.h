#pragma once

#include <QByteArray>

#include <optional>

namespace quorvel {

/// What a server answered.
struct HttpResponse
{
    /// Absent when the answer did not come over HTTP.
    std::optional<int> statusCode;
    QByteArray body;

    friend bool operator==(const HttpResponse &, const HttpResponse &) = default;
};

} // namespace quorvel
