#pragma once

#include "Core/Support/AppError.h"
#include "Core/Support/Tasks/OneShotSlot.h"
#include "Platform/Errors/Outcome.h"
#include "Platform/Location/Location.h"
#include "Services/Location/LocationService.h"

#include <QStringList>

#include <deque>
#include <optional>
#include <utility>

namespace quorvel {

/// A location service that answers from a test's script, one entry per call. An empty entry holds
/// the call open until the test finishes the waiter.
class FakeLocationService final : public LocationService
{
public:
    [[nodiscard]] Task<AuthorizationStatus> requestAuthorization() override
    {
        calls.append(QStringLiteral("requestAuthorization"));
        return answer(authorizations, authorizationWaiter);
    }
    [[nodiscard]] Task<Location> currentLocation() override
    {
        calls.append(QStringLiteral("currentLocation"));
        return answer(locations, locationWaiter);
    }

    template <class Value>
    using Script = std::deque<std::optional<Outcome<Value>>>;

    void authorize(AuthorizationStatus status)
    {
        authorizations.push_back(Outcome<AuthorizationStatus>::success(status));
    }
    void locate(const Location &location)
    {
        locations.push_back(Outcome<Location>::success(location));
    }
    void refuseLocation(const AppError &error)
    {
        locations.push_back(Outcome<Location>::failure(error));
    }
    void holdAuthorization() { authorizations.push_back(std::nullopt); }
    void holdLocation() { locations.push_back(std::nullopt); }

    QStringList calls;
    Script<AuthorizationStatus> authorizations;
    Script<Location> locations;
    OneShotSlot<AuthorizationStatus> authorizationWaiter;
    OneShotSlot<Location> locationWaiter;

private:
    template <class Value>
    [[nodiscard]] Task<Value> answer(Script<Value> &script, OneShotSlot<Value> &waiter)
    {
        if (script.empty())
            qFatal("%s is not in the script", qPrintable(calls.last()));
        auto entry = std::move(script.front());
        script.pop_front();
        auto wait = waiter.wait();
        if (entry)
            waiter.end(std::move(*entry));
        const auto value = co_await wait;
        co_return value;
    }
};

} // namespace quorvel
