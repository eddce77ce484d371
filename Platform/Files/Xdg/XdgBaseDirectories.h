#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace quorvel {

/// The desktop's base directories for a user's files, for the live backends that use them.
struct XdgBaseDirectories
{
    QString home = {};
    QString dataHome = {};
    QString configHome = {};
    /// The machine's configuration folders, the most important first, without the user's.
    QStringList configDirs = {};

    /// Reads the environment variables. A variable that is unset, empty or a relative path counts
    /// as unset, as the base directory rules say. Does not touch the disk.
    [[nodiscard]] static XdgBaseDirectories of(const QProcessEnvironment &environment);

    friend bool operator==(const XdgBaseDirectories &, const XdgBaseDirectories &) = default;
};

} // namespace quorvel
