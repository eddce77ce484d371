#pragma once

#include "Platform/Files/FileManager.h"
#include "Platform/Files/Xdg/XdgBaseDirectories.h"

namespace quorvel {

/// The file manager of a Linux desktop. It finds the user's folders by the base directory rules.
class XdgFileManager final : public FileManager
{
public:
    explicit XdgFileManager(XdgBaseDirectories directories);

    [[nodiscard]] QStringList urls(UserDirectory directory) const override;
    [[nodiscard]] QString homeDirectory() const override { return m_directories.home; }
    [[nodiscard]] QString url(UserDirectory directory, CreateIfMissing create) const override;
    void createPrivateDirectory(const QString &path) const override;
    void writePrivateFile(const QString &path, const QByteArray &content) const override;

private:
    XdgBaseDirectories m_directories;
};

} // namespace quorvel
