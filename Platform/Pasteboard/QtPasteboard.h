#pragma once

#include "Platform/Pasteboard/Pasteboard.h"

#include <QObject>

namespace quorvel {

/// The desktop's clipboard. Main thread only, once there is an application with a display.
class QtPasteboard final : public Pasteboard
{
public:
    void clearContents() override;
    void setText(const QString &text) override;
    void setSecret(const QString &text) override;
    void setImage(const QImage &image, Secrecy secrecy, Completion<Acceptance> completion) override;

private:
    /// Calls end unheard with it.
    QObject m_open;
};

} // namespace quorvel
