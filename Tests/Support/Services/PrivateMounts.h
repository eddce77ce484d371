#pragma once

#include <QByteArray>
#include <QFile>
#include <sys/mount.h>

#include <sched.h>
#include <unistd.h>

namespace quorvel::tests {

/// Gives this process its own view of the file systems, so that a test can mount what it needs
/// without others seeing it. Call it first in `main`, before any thread starts. Returns false if
/// the kernel refuses.
inline bool enterPrivateMounts()
{
    const uid_t user = getuid();
    const gid_t group = getgid();
    if (unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    const auto write = [](const char *file, const QByteArray &text) {
        QFile target(QFile::decodeName(file));
        return target.open(QIODevice::WriteOnly) && target.write(text) == text.size();
    };
    // The user stays the same, so that earlier files still belong to them.
    const bool mapped =
        user == 0 || (write("/proc/self/setgroups", "deny") &&
                      write("/proc/self/uid_map",
                            QByteArray::number(user) + ' ' + QByteArray::number(user) + " 1") &&
                      write("/proc/self/gid_map",
                            QByteArray::number(group) + ' ' + QByteArray::number(group) + " 1"));
    return mapped && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace quorvel::tests
