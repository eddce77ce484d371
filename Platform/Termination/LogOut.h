#pragma once

class QGuiApplication;

/// Answers the session manager of an X desktop when it asks programs to save.
namespace quorvel::LogOut {

/// Never delays a log-out and asks nobody: everything saved is on the disk already. It also keeps
/// the next login from starting the program again; only the autostart entry does that, and the user
/// controls it.
void agree(const QGuiApplication &application);

} // namespace quorvel::LogOut
