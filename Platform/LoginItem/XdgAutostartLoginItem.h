#pragma once

#include "Platform/Files/Xdg/XdgBaseDirectories.h"
#include "Platform/LoginItem/LoginItem.h"

namespace quorvel {

/// A login item on Linux desktops: a desktop entry in an autostart folder. The user's file hides a
/// file of the same name that the machine has for all users.
class XdgAutostartLoginItem final : public LoginItem
{
public:
    /// `executable` is the absolute path of the program to start.
    XdgAutostartLoginItem(XdgBaseDirectories directories, QString executable);

    [[nodiscard]] Status status() const override;
    void registerItem() override;
    void unregisterItem() override;

private:
    [[nodiscard]] QString userFile() const;
    /// The machine's files of that name, the most important first. They need not exist.
    [[nodiscard]] QStringList machineFiles() const;
    [[nodiscard]] Status statusOf(const QString &file) const;

    XdgBaseDirectories m_directories;
    QString m_executable;
};

} // namespace quorvel
