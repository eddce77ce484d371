#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"
#include "Platform/SystemEvents/SystemEvents.h"

#include <QTimer>

#include <functional>

namespace quorvel {

/// Makes the daily loop look again when something missing comes back: once per return, however
/// often it is reported. A closed panel needs none of it, since each opening looks again.
class SecondLook final : public QObject
{
    Q_OBJECT

public:
    /// Whether a new screen would not interrupt the user.
    using MayInterrupt = std::function<bool()>;

    /// Both must outlive this.
    SecondLook(MenuBarViewModel &viewModel, SystemEvents &systemEvents, MayInterrupt mayInterrupt,
               QObject *parent = nullptr);

    /// Call them when the panel opens and closes.
    void appear();
    void disappear();
    /// The reason not to interrupt may have ended.
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
    /// Something came back, and no look has followed yet.
    bool m_isDue = false;
    QTimer *m_settling; ///< The child "settling": from the last that was told until the look.
};

} // namespace quorvel
