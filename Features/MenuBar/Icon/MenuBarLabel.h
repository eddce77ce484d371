#pragma once

#include <QIcon>
#include <QObject>
#include <QTimer>

namespace quorvel {

class SessionLock;
class StatusItem;

/// The program in the status area: a cup with an orange dot that pulses while it is visible.
class MenuBarLabel final : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive the label.
    MenuBarLabel(StatusItem &item, const SessionLock &lock, QObject *parent = nullptr);

    /// Which of the two pictures is shown.
    [[nodiscard]] bool enlarged() const { return m_enlarged; }

    /// The two pictures. Each is drawn once, on first use.
    [[nodiscard]] static const QIcon &normal();
    [[nodiscard]] static const QIcon &large();

private:
    void tick();
    void showPicture();
    void restWhileUnseen();

    StatusItem &m_item;
    const SessionLock &m_lock;
    bool m_enlarged = false;
    QTimer *m_ticker; ///< The child "ticker"; it beats as long as somebody can see it.
};

} // namespace quorvel
