#pragma once

#include <QByteArray>

#include <optional>

namespace quorvel {

/// A server's answer.
struct HttpResponse
{
    /// Absent if the answer did not come over HTTP.
    std::optional<int> statusCode;
    QByteArray body;

    [[nodiscard]] bool isSuccess() const { return statusCode >= 200 && statusCode <= 299; }

    friend bool operator==(const HttpResponse &, const HttpResponse &) = default;
};

} // namespace quorvel
