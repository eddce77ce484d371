#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Services/Wifi/Passwords/SystemWifiPasswordReader.h"

#include <optional>

namespace quorvel {

/// A reader that returns the passwords of a test's script.
class FakeSystemWifiPasswordReader final : public SystemWifiPasswordReader
{
public:
    [[nodiscard]] Task<std::optional<QString>> password(QString forSSID) override
    {
        askedFor.append(forSSID);
        Pending<std::optional<QString>> pending;
        passwords.call(pending.completion());
        const auto answer = co_await pending;
        co_return answer;
    }

    FakeAnswers<std::optional<QString>> passwords{"FakeSystemWifiPasswordReader::password"};
    QStringList askedFor;
};

} // namespace quorvel
