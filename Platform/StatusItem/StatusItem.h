#pragma once

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QRect>

namespace quorvel {

/// The program's place in the desktop's status area: shows a picture, reports clicks. It appears
/// whenever a host for it does, and never holds up the program while there is none, or one hangs.
class StatusItem : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Shows the picture. Give ready-made icons: this is called with every pulse.
    virtual void setIcon(const QIcon &icon) = 0;

    /// Whether a host shows the item now.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// Where the item is, in logical screen coordinates; empty where the host keeps that to itself.
    [[nodiscard]] virtual QRect geometry() const = 0;

signals:
    void isShownChanged();
    /// A click on the item.
    void activated();
    /// "Open Quorvel" in the item's menu, the only way in on hosts that show nothing but menus.
    void openRequested();
    /// "Quit Quorvel" in the item's menu.
    void quitRequested();
};

} // namespace quorvel
