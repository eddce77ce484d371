#pragma once

class QDir;
class QQmlEngine;

namespace quorvel::tests {

/// Pictures of the gallery's states, in light and dark, the same each time. For a look at all
/// states, and for the documents.
namespace GalleryPictures {

/// Writes one picture per state. Returns false if one cannot be written.
[[nodiscard]] bool writeAll(QQmlEngine &engine, const QDir &folder);

/// Writes the pictures of the documents: the panel, the history and a shared card. Returns false if
/// one cannot be written.
[[nodiscard]] bool writeIllustrations(QQmlEngine &engine, const QDir &folder);

} // namespace GalleryPictures
} // namespace quorvel::tests
