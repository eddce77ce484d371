#pragma once

#include <QString>

namespace quorvel {

/// How far the sharing of a visit has come, and what the Share button says then.
enum class ShareState { Idle, Working, Copied, Saved };

namespace ShareTexts {

[[nodiscard]] QString label(ShareState state);
/// Empty while working: a spinner turns in its place.
[[nodiscard]] QString symbol(ShareState state);

} // namespace ShareTexts
} // namespace quorvel
