#pragma once

#include <QString>

namespace quorvel {

/// The progress of sharing a visit, and the Share button's text for it.
enum class ShareState { Idle, Working, Copied, Saved };

namespace ShareTexts {

[[nodiscard]] QString label(ShareState state);
/// Empty while working, when a progress indicator replaces it.
[[nodiscard]] QString symbol(ShareState state);

} // namespace ShareTexts
} // namespace quorvel
