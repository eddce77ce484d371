#pragma once

#include "Platform/Files/Xdg/XdgBaseDirectories.h"

/// The folders that a desktop user names in "user-dirs.dirs", a file in shell syntax.
namespace quorvel::XdgUserDirectories {

/// The folder for downloads. Nothing if the file names none, or names the home folder itself, which
/// means "none". Reads the file anew.
[[nodiscard]] QStringList downloads(const XdgBaseDirectories &directories);

} // namespace quorvel::XdgUserDirectories
