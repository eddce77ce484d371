#pragma once

#include <QEvent>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

class QWindow;

namespace quorvel {

/// Tells `MenuBarPanel` that its window has lost the focus for good. A focus that follows the
/// pointer falls on whatever lies between the icon and the panel; so as long as somebody is on the
/// way there, and has not been in it, it has some time to come back, and even more to come at all.
class PanelFocusWatch final : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds defaultPatience{3000};

    /// `window` lives as long as its events are wanted.
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
