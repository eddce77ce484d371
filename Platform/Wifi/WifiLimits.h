#pragma once

#include <chrono>

namespace quorvel {

/// How long a client of the network service waits for what; tests shorten them.
struct WifiLimits
{
    /// An ordinary call.
    std::chrono::milliseconds reply = std::chrono::seconds(5);
    /// After which a service that could not describe itself is asked again.
    std::chrono::milliseconds retry = std::chrono::seconds(10);
    /// A whole scan. The service puts a second one off for up to eight seconds.
    std::chrono::milliseconds scan = std::chrono::seconds(12);
    /// An administrator may have to give a password first.
    std::chrono::milliseconds permission = std::chrono::seconds(120);
    /// The way from the permission to the address: the radio takes up to 25 seconds, the address
    /// up to 45.
    std::chrono::milliseconds join = std::chrono::seconds(75);
    /// For the radio to say why a connection has ended, which it may do a little later.
    std::chrono::milliseconds lastWord = std::chrono::milliseconds(300);
};

} // namespace quorvel
