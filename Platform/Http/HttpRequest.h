#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>

namespace quorvel {

/// A request to a server, with its time limit.
struct HttpRequest
{
    enum class Method { Get, Post };

    QUrl url = {};
    Method method = Method::Get;
    /// The body of a POST: a percent-encoded form.
    QByteArray body = {};
    /// From sending to the last byte of the answer, redirects included.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);

    friend bool operator==(const HttpRequest &, const HttpRequest &) = default;
};

} // namespace quorvel
