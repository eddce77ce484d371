#pragma once

#include "Platform/SystemSettings/SystemSettings.h"

#include <QList>
#include <QUrl>

namespace quorvel {

/// Records the requested addresses, and answers as a test says.
class FakeSystemSettings final : public SystemSettings
{
public:
    [[nodiscard]] bool open(const QUrl &address) override
    {
        opened.append(address);
        return canOpen;
    }

    bool canOpen = true;
    QList<QUrl> opened;
};

} // namespace quorvel
