#pragma once

#include <QString>
#include <QUrl>

namespace quorvel {

class FileManager;

/// Finds the photos of visits, for the visit detail. A visit itself keeps only a file name. Never
/// touches the disk; code that adds photos has to create the folder.
class CheckInPhotoStore final
{
public:
    /// The file manager must outlive the store.
    explicit CheckInPhotoStore(const FileManager &fileManager);

    /// The photo folder, beside the object store. Ends in a slash.
    [[nodiscard]] QUrl directoryURL() const;

    /// The location of the photo. The name is used as given.
    [[nodiscard]] QUrl url(const QString &fileName) const;

private:
    const FileManager *m_fileManager;
};

} // namespace quorvel
