#pragma once

#include "Platform/StatusItem/StatusItem.h"

#include <QList>

namespace quorvel {

/// A status item without a desktop. It keeps every picture; a test plays the host and the user.
class FakeStatusItem final : public StatusItem
{
public:
    void setIcon(const QIcon &icon) override { icons.append(icon); }
    [[nodiscard]] bool isShown() const override { return shown; }
    [[nodiscard]] QRect geometry() const override { return place; }

    void setShown(bool isShown)
    {
        if (shown == isShown)
            return;
        shown = isShown;
        emit isShownChanged();
    }
    void click() { emit activated(); }

    QList<QIcon> icons;
    QRect place;
    bool shown = false;
};

} // namespace quorvel
