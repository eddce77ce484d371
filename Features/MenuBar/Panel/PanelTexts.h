#pragma once

#include <QString>

namespace quorvel {

class LocalizedError;

/// The panel's texts outside the check-in screen.
namespace PanelTexts {

/// Why there is nothing to show; empty without an error.
[[nodiscard]] QString error(const LocalizedError *error);

} // namespace PanelTexts
} // namespace quorvel
