#pragma once

#include "Platform/Files/Xdg/XdgBaseDirectories.h"
#include "Platform/LoginItem/LoginItem.h"

namespace quorvel {

/// A login item as Linux desktops know it: a desktop entry in an autostart folder. A file of the
/// user's hides one of the same name that the machine has for everybody.
class XdgAutostartLoginItem final : public LoginItem
{
public:
    /// The executable is the absolute path of the program to start.
    XdgAutostartLoginItem(XdgBaseDirectories directories, QString executable);

    [[nodiscard]] Status status() const override;
    void registerItem() override;
    void unregisterItem() override;

private:
    [[nodiscard]] QString userFile() const;
    /// The machine's files of that name, whether they exist or not, the most important first.
    [[nodiscard]] QStringList machineFiles() const;
    [[nodiscard]] Status statusOf(const QString &file) const;

    XdgBaseDirectories m_directories;
    QString m_executable;
};

} // namespace quorvel
