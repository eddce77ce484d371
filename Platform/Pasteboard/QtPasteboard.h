#pragma once

#include "Platform/Pasteboard/Pasteboard.h"

namespace quorvel {

/// The desktop's clipboard. Main thread only, once there is an application with a display.
class QtPasteboard final : public Pasteboard
{
public:
    void clearContents() override;
    void setSecret(const QString &text) override;
};

} // namespace quorvel
