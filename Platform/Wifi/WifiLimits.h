#pragma once

#include <chrono>

namespace quorvel {

/// The time limits for calls to NetworkManager. Tests shorten them.
struct WifiLimits
{
    /// An ordinary call.
    std::chrono::milliseconds reply = std::chrono::seconds(5);
    /// The wait before asking again after the service failed to describe itself.
    std::chrono::milliseconds retry = std::chrono::seconds(10);
    /// A whole scan. NetworkManager may delay a second scan by up to eight seconds.
    std::chrono::milliseconds scan = std::chrono::seconds(12);
    /// An administrator may have to type a password first.
    std::chrono::milliseconds permission = std::chrono::seconds(120);
    /// From the permission to the address. The radio takes up to 25 seconds, the address up to 45.
    std::chrono::milliseconds join = std::chrono::seconds(75);
    /// For the radio to report why a connection ended, which may come slightly later.
    std::chrono::milliseconds lastWord = std::chrono::milliseconds(300);
};

} // namespace quorvel
