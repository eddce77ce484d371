#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Http/HttpRequest.h"
#include "Platform/Http/HttpResponse.h"

namespace quorvel {

/// The way to the web, for every facility and service that asks a server. It keeps no cookies and
/// no cache, and sends no headers but its own.
class HttpClient
{
public:
    virtual ~HttpClient() = default;

    /// Sends a request and hears the whole answer, whatever its status. Fails with HttpError when
    /// none came, or none that may be trusted or kept.
    virtual void send(const HttpRequest &request, Completion<HttpResponse> completion) = 0;

    /// The one session of this process; needs an application object and ends with it.
    [[nodiscard]] static HttpClient &shared();
};

} // namespace quorvel
