#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace quorvel {

/// Where the desktop keeps a user's files, for the live backends that read or write there.
struct XdgBaseDirectories
{
    QString home = {};
    QString dataHome = {};
    QString configHome = {};
    /// The machine's own configuration folders, the most important first; never the user's.
    QStringList configDirs = {};

    /// Reads the variables of the environment. One that is unset, empty or holds a relative path
    /// counts as unset, as the base directory rules want. Does not touch the disk.
    [[nodiscard]] static XdgBaseDirectories of(const QProcessEnvironment &environment);

    friend bool operator==(const XdgBaseDirectories &, const XdgBaseDirectories &) = default;
};

} // namespace quorvel
