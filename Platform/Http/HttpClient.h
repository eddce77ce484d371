#pragma once

#include "Platform/Errors/Outcome.h"
#include "Platform/Http/HttpRequest.h"
#include "Platform/Http/HttpResponse.h"

namespace quorvel {

/// The program's access to the web, for every facility and service that asks a server. It keeps no
/// cookies and no cache, and adds only its own headers.
class HttpClient
{
public:
    virtual ~HttpClient() = default;

    /// Sends a request and returns the whole answer, whatever its status. Fails with HttpError if
    /// there is no answer, or none that can be trusted or kept.
    virtual void send(const HttpRequest &request, Completion<HttpResponse> completion) = 0;

    /// The one session of this process. It needs an application object and ends with it.
    [[nodiscard]] static HttpClient &shared();
};

} // namespace quorvel
