#pragma once

class QGuiApplication;

/// What the program has to say when the session manager of an X desktop asks everybody to save.
namespace quorvel::LogOut {

/// Never holds a log-out up, and asks nobody: whatever was saved is on the disk already. Has the
/// next login not start the program either: that is for the autostart entry alone, which the user
/// can take back.
void agree(const QGuiApplication &application);

} // namespace quorvel::LogOut
