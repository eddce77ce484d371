#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Platform/SystemEvents/SystemEvents.h"

#include <QTimer>

#include <functional>

namespace quorvel {

/// Has the daily loop look again, when its result shows that something was missing and that comes
/// back: once for each return, however often it is told. A closed panel needs none of it, since
/// each opening looks anew.
class SecondLook final : public QObject
{
    Q_OBJECT

public:
    /// Whether the screen may give way to another, without taking from the user what they do in it.
    using MayInterrupt = std::function<bool()>;

    /// Both outlive this.
    SecondLook(MenuBarViewModel &viewModel, SystemEvents &systemEvents, MayInterrupt mayInterrupt,
               QObject *parent = nullptr);

    /// The panel opens, and closes.
    void appear();
    void disappear();
    /// What kept it from interrupting may have ended.
    void reconsider();

private:
    void noteReturn(Returning what);
    void followWhileItMatters();
    void look();
    /// Whether a return would change anything.
    [[nodiscard]] bool matters() const;
    [[nodiscard]] bool isLacking() const;

    MenuBarViewModel &m_viewModel;
    SystemEvents &m_systemEvents;
    MayInterrupt m_mayInterrupt;
    bool m_isShown = false;
    /// Something came back that no look has been for.
    bool m_isDue = false;
    QTimer *m_settling; ///< The child "settling": from the last that was told until the look.
};

} // namespace quorvel
