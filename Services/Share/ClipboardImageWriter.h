#pragma once

#include "Platform/Files/FileManager.h"

#include <QImage>
#include <QUrl>

#include <optional>

/// Leaves a shared picture where the user finds it when the clipboard does not take it.
namespace quorvel::ClipboardImageWriter {

/// Writes the picture as "checkin-", the slug and ".png" into the user's Downloads folder, or into
/// "Downloads" in their home when the system names none; an earlier one of that name is replaced.
/// Answers where it is; nothing when there is no picture or folder, or it cannot be written.
[[nodiscard]] std::optional<QUrl>
saveToDownloads(const QImage &image, const QString &slug,
                const FileManager &fileManager = FileManager::standard());

} // namespace quorvel::ClipboardImageWriter
