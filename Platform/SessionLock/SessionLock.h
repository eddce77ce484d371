#pragma once

#include <QObject>

namespace quorvel {

/// Whether the session's screen is locked or blanked, so that nobody sees it.
class SessionLock : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isLocked() const = 0;

signals:
    void isLockedChanged();
};

} // namespace quorvel
