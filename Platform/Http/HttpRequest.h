#pragma once

#include <QByteArray>
#include <QUrl>

#include <chrono>

namespace quorvel {

/// What a server is asked, and for how long.
struct HttpRequest
{
    enum class Method { Get, Post };

    QUrl url = {};
    Method method = Method::Get;
    /// Of a POST: a form, percent-encoded.
    QByteArray body = {};
    /// From sending to the last byte of the answer, redirects included.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);

    friend bool operator==(const HttpRequest &, const HttpRequest &) = default;
};

} // namespace quorvel
