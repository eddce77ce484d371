#include "Core/Persistence/CheckInPhotoStore.h"

#include "Platform/Files/FileManager.h"

namespace quorvel {

using namespace Qt::StringLiterals;

CheckInPhotoStore::CheckInPhotoStore(const FileManager &fileManager)
    : m_fileManager(&fileManager)
{}

QUrl CheckInPhotoStore::directoryURL() const
{
    const QStringList roots = m_fileManager->urls(UserDirectory::ApplicationSupport);
    if (roots.isEmpty())
        qFatal("There is no Application Support folder for the photos to lie in");
    return QUrl::fromLocalFile(roots.constFirst() + u"/Quorvel/photos/"_s);
}

QUrl CheckInPhotoStore::url(const QString &fileName) const
{
    return QUrl::fromLocalFile(directoryURL().toLocalFile() + fileName);
}

} // namespace quorvel
