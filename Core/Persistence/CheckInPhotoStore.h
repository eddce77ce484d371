#pragma once

#include <QString>
#include <QUrl>

namespace quorvel {

class FileManager;

/// Knows where visit photos lie, for the visit detail: a visit itself keeps only a bare file name.
/// Never touches the disk; whoever adds photos makes the folder first.
class CheckInPhotoStore final
{
public:
    /// The file manager outlives the store.
    explicit CheckInPhotoStore(const FileManager &fileManager);

    /// The photo folder, beside the object store. Ends in a slash.
    [[nodiscard]] QUrl directoryURL() const;

    /// The photo of that name, which is taken as given.
    [[nodiscard]] QUrl url(const QString &fileName) const;

private:
    const FileManager *m_fileManager;
};

} // namespace quorvel
