#pragma once

#include "Platform/Files/Xdg/XdgBaseDirectories.h"

/// The folders that a desktop user names in "user-dirs.dirs", a file in the syntax of the shell.
namespace quorvel::XdgUserDirectories {

/// Where downloads go: one folder, or none when the file, as it is now, names none or only the home
/// folder itself, which is how the user says that there is none.
[[nodiscard]] QStringList downloads(const XdgBaseDirectories &directories);

} // namespace quorvel::XdgUserDirectories
