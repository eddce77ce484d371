#pragma once

class QDir;
class QQmlEngine;

namespace quorvel::tests {

/// Pictures of the gallery's states, in both looks and the same each time. Serves whoever wants to
/// see them all at once, and the documents that show the program.
namespace GalleryPictures {

/// One of each state. False when one cannot be written.
[[nodiscard]] bool writeAll(QQmlEngine &engine, const QDir &folder);

/// What the documents show: the panel, the history, and the card that is shared of a visit. False
/// when one cannot be written.
[[nodiscard]] bool writeIllustrations(QQmlEngine &engine, const QDir &folder);

} // namespace GalleryPictures
} // namespace quorvel::tests
