#pragma once

#include "Platform/Files/FileManager.h"

#include <QImage>
#include <QUrl>

#include <optional>

/// Saves a shared picture as a file when the clipboard refuses it.
namespace quorvel::ClipboardImageWriter {

/// Writes the picture as "checkin-" + slug + ".png" into the user's Downloads folder, or into
/// "Downloads" in their home if the system names no folder. Replaces an earlier file of that name.
/// Returns the file's location, or nothing on any failure.
[[nodiscard]] std::optional<QUrl> saveToDownloads(const QImage &image, const QString &slug,
                                                  const FileManager &fileManager);

} // namespace quorvel::ClipboardImageWriter
