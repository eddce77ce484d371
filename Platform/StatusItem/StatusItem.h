#pragma once

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QRect>

namespace quorvel {

/// The program's place in the desktop's status area: it shows a picture and reports clicks. It
/// appears as soon as a host does, and never blocks the program, even if a host hangs.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the picture. Pass ready-made icons: every pulse calls this.
    virtual void setIcon(const QIcon &icon) = 0;

    /// Whether a host shows the item now.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// The item's place in logical screen coordinates; empty if the host does not tell it.
    [[nodiscard]] virtual QRect geometry() const = 0;

signals:
    void isShownChanged();
    /// The user clicked the item.
    void activated();
    /// "Open Quorvel" in the item's menu. On hosts that only show menus, it is the only way in.
    void openRequested();
    /// "Quit Quorvel" in the item's menu.
    void quitRequested();
};

} // namespace quorvel
