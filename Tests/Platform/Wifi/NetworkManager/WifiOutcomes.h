#pragma once

#include "Platform/Wifi/WifiClient.h"
#include "Platform/Wifi/WifiError.h"
#include "Tests/Support/Patience.h"

#include <QTest>

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <variant>

namespace quorvel::tests {

/// The outcome of a call, once it has ended.
template <class Value>
class Call final
{
public:
    Completion<Value> completion()
    {
        return [place = m_place](Outcome<Value> outcome) {
            if (place->has_value())
                qFatal("a call was completed twice");
            place->emplace(std::move(outcome));
        };
    }

    [[nodiscard]] bool hasEnded() const { return m_place->has_value(); }

    /// Waits for the end. Returns the value or throws the error.
    Value take()
    {
        if (!comes([this] { return hasEnded(); }))
            throw std::runtime_error("the call did not end");
        return (*m_place)->take();
    }

    /// Waits for the end. Returns the error; nothing on success.
    std::optional<WifiError> error()
    {
        try {
            static_cast<void>(take());
        } catch (const WifiError &error) {
            return error;
        }
        return std::nullopt;
    }

private:
    std::shared_ptr<std::optional<Outcome<Value>>> m_place =
        std::make_shared<std::optional<Outcome<Value>>>();
};

using ScanCall = Call<QList<ScannedNetwork>>;
using JoinCall = Call<std::monostate>;
using PasswordCall = Call<std::optional<QString>>;

inline ScanCall scanOf(WifiClient &client)
{
    ScanCall call;
    client.scan(call.completion());
    return call;
}

inline JoinCall joinOf(WifiClient &client, const QByteArray &ssid, const QString &password)
{
    JoinCall call;
    client.associate(WifiName::fromBytes(ssid).value(), password, call.completion());
    return call;
}

inline PasswordCall passwordOf(WifiClient &client, const QString &ssid)
{
    PasswordCall call;
    client.storedPassword(ssid, call.completion());
    return call;
}

} // namespace quorvel::tests
