#pragma once

#include <QEvent>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QWindow;

namespace quorvel {

/// Tells `MenuBarPanel` when its window has lost the focus for good. If the focus follows the
/// pointer, it falls on any window between the icon and the panel. So a user on the way gets some
/// time to come back, and even more time to arrive at all.
class PanelFocusWatch final : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds defaultPatience{3000};

    /// `window` must live as long as its events are wanted.
    PanelFocusWatch(QWindow &window, std::function<bool()> isOnTheWay,
                    std::chrono::milliseconds patience = defaultPatience,
                    QObject *parent = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void lost();

private:
    void followFocus();

    QWindow &m_window;
    std::function<bool()> m_isOnTheWay;
    std::chrono::milliseconds m_limit;
    bool m_isReached = false;
    QTimer *m_patience; ///< The child "patience".
};

} // namespace quorvel
