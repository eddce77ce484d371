#pragma once

#include "Platform/Pasteboard/Pasteboard.h"

#include <QObject>

namespace quorvel {

/// The desktop's clipboard. Main thread only, and only while there is an application with a
/// display.
class QtPasteboard final : public Pasteboard
{
public:
    void clearContents() override;
    void setText(const QString &text) override;
    void setSecret(const QString &text) override;
    void setImage(const QImage &image, Secrecy secrecy, Completion<Acceptance> completion) override;

private:
    /// When it is destroyed, open calls end without an answer.
    QObject m_open;
};

} // namespace quorvel
