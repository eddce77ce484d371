#pragma once

#include "Platform/StatusItem/StatusItem.h"

#include <QList>

namespace quorvel {

/// A status item without a desktop: keeps every picture it was given, and plays the host's and the
/// user's part when a test says so.
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
