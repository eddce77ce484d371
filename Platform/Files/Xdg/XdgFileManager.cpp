#include "Platform/Files/Xdg/XdgFileManager.h"

#include "Platform/Files/Folders.h"
#include "Platform/Files/PrivateFile.h"
#include "Platform/Files/Xdg/XdgUserDirectories.h"

#include <utility>

namespace quorvel {

XdgFileManager::XdgFileManager(XdgBaseDirectories directories)
    : m_directories(std::move(directories))
{}

QStringList XdgFileManager::urls(UserDirectory directory) const
{
    switch (directory) {
    case UserDirectory::ApplicationSupport:
        return {m_directories.dataHome};
    case UserDirectory::Downloads:
        return XdgUserDirectories::downloads(m_directories);
    }
    Q_UNREACHABLE();
}

QString XdgFileManager::url(UserDirectory directory, CreateIfMissing create) const
{
    QString path = urls(directory).constFirst();
    if (create == CreateIfMissing::Yes)
        Folders::create(path);
    return path;
}

void XdgFileManager::createPrivateDirectory(const QString &path) const
{
    Folders::create(path);
    Folders::closeToOthers(path);
}

void XdgFileManager::writePrivateFile(const QString &path, const QByteArray &content) const
{
    PrivateFile::write(path, content);
}

const FileManager &FileManager::standard()
{
    static const XdgFileManager manager(
        XdgBaseDirectories::of(QProcessEnvironment::systemEnvironment()));
    return manager;
}

} // namespace quorvel
