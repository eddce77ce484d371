#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Http/HttpClient.h"
#include "Platform/Http/HttpError.h"

#include <utility>

namespace quorvel {

/// A web whose answers a test writes down.
class FakeHttpClient final : public HttpClient
{
public:
    void send(const HttpRequest &request, Completion<HttpResponse> completion) override
    {
        calls.call(std::move(completion), request);
    }

    FakeAnswers<HttpResponse, HttpRequest> calls{
        "FakeHttpClient::send",
        Outcome<HttpResponse>::failure(HttpError(HttpError::Case::Cancelled))};
};

} // namespace quorvel
