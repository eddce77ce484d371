#include "Services/Share/ClipboardImageWriter.h"

#include "Platform/Files/FileError.h"
#include "Services/Share/ShareSlug.h"

#include <QBuffer>

namespace quorvel::ClipboardImageWriter {

namespace {

using namespace Qt::StringLiterals;

/// Returns an empty array for a null image.
QByteArray png(const QImage &image)
{
    QBuffer buffer;
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

QString downloads(const FileManager &fileManager)
{
    return fileManager.urls(UserDirectory::Downloads)
        .value(0, fileManager.homeDirectory() + u"/Downloads"_s);
}

} // namespace

std::optional<QUrl> saveToDownloads(const QImage &image, const QString &slug,
                                    const FileManager &fileManager)
{
    const QByteArray bytes = png(image);
    if (bytes.isEmpty())
        return std::nullopt;
    const QString path = downloads(fileManager) + u'/' + ShareSlug::fileName(slug);
    try {
        fileManager.writePrivateFile(path, bytes);
    } catch (const FileError &) {
        // Silent: the Share button returns to its first state, and the user can press it again.
        return std::nullopt;
    }
    return QUrl::fromLocalFile(path);
}

} // namespace quorvel::ClipboardImageWriter
