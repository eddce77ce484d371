#pragma once

#include <QString>

#include <optional>

/// The status numbers of a keychain, for code that acts on one or shows it to the user.
namespace quorvel::KeychainStatus {

using Code = qint32;

inline constexpr Code success = 0;
inline constexpr Code invalidParameter = -50;
inline constexpr Code userCanceled = -128;
inline constexpr Code notAvailable = -25291;
inline constexpr Code authenticationFailed = -25293;
inline constexpr Code duplicateItem = -25299;
inline constexpr Code itemNotFound = -25300;
inline constexpr Code noDefaultKeychain = -25307;
inline constexpr Code interactionNotAllowed = -25308;

/// The sentence for a failure; nothing for a number without one.
[[nodiscard]] std::optional<QString> message(Code status);

} // namespace quorvel::KeychainStatus
