#pragma once

#include <algorithm>
#include <chrono>

namespace quorvel {

/// The state of the session bus's status notifier watcher: the broker between icons and the panel
/// (their host) that shows them.
enum class NotifierWatcher {
    Unknown,     ///< Asked for the first time, or just started: the answer is still to come.
    Absent,      ///< Nobody owns its name, or there is no bus.
    Silent,      ///< Owned, but the last question was not answered in time.
    WithoutHost, ///< Owned and answering, with no host registered.
    WithHost,    ///< Owned and answering, with a host registered.
};

/// Who shows the icon: a status notifier host on the session bus, or the X server's tray manager.
enum class StatusHost { None, Notifier, XEmbed };

/// Whether a watcher has been `WithoutHost` for as long as we wait for its host.
enum class HostGrace { Running, Over };

struct StatusHostFacts
{
    NotifierWatcher watcher = NotifierWatcher::Unknown;
    bool hasXEmbedManager = false;
    HostGrace grace = HostGrace::Running;

    friend bool operator==(const StatusHostFacts &, const StatusHostFacts &) = default;
};

struct StatusHostLimits
{
    /// A watcher that takes longer to answer counts as hung.
    std::chrono::milliseconds reply{2000};
    /// A panel owns the watcher's name some time before it registers as the host.
    std::chrono::milliseconds hostGrace{3000};
    /// A hung watcher does not announce its recovery: we ask again, less and less often.
    std::chrono::milliseconds firstRetry{2000};
    std::chrono::milliseconds longestRetry{30000};
};

/// Decides when the tray may be touched, for `StatusHostWatcher`. At its first use, the toolkit
/// chooses the kind of host for the whole process, and it blocks for 25 s if the watcher hangs at
/// that moment. So the first use has to wait until we know.
namespace StatusHostGate {

/// The host to make the icon for now. `None` means wait.
[[nodiscard]] constexpr StatusHost decide(const StatusHostFacts &facts)
{
    const StatusHost xEmbed = facts.hasXEmbedManager ? StatusHost::XEmbed : StatusHost::None;
    switch (facts.watcher) {
    case NotifierWatcher::WithHost:
        return StatusHost::Notifier;
    case NotifierWatcher::Absent:
        return xEmbed;
    case NotifierWatcher::WithoutHost:
        return facts.grace == HostGrace::Over ? xEmbed : StatusHost::None;
    case NotifierWatcher::Unknown:
    case NotifierWatcher::Silent:
        break;
    }
    return StatusHost::None;
}

/// Whether a host of this kind is there now, so that its icon is visible.
[[nodiscard]] constexpr bool isThere(StatusHost host, const StatusHostFacts &facts)
{
    switch (host) {
    case StatusHost::Notifier:
        return facts.watcher == NotifierWatcher::WithHost;
    case StatusHost::XEmbed:
        return facts.hasXEmbedManager;
    case StatusHost::None:
        break;
    }
    return false;
}

/// How long to wait before asking a watcher that left the last `unanswered` (at least 1) questions
/// open.
[[nodiscard]] constexpr std::chrono::milliseconds retryDelay(const StatusHostLimits &limits,
                                                             int unanswered)
{
    std::chrono::milliseconds delay = limits.firstRetry;
    for (int doubled = 1; doubled < unanswered && delay < limits.longestRetry; ++doubled)
        delay *= 2;
    return std::min(delay, limits.longestRetry);
}

} // namespace StatusHostGate
} // namespace quorvel
