#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

class QWindow;

namespace quorvel {

/// Tells `MenuBarPanel` that its window has lost the focus for good. That is at once where it hangs
/// under its icon. Where the desktop puts it elsewhere there is a way to go, and a focus that
/// follows the pointer falls on whatever lies between: until somebody has been in the window, it
/// has some time to come back.
class PanelFocusWatch final : public QObject
{
    Q_OBJECT

public:
    enum class Way { None, Across };
    static constexpr std::chrono::milliseconds defaultPatience{3000};

    /// `window` lives as long as its events are wanted.
    PanelFocusWatch(QWindow &window, Way way, std::chrono::milliseconds patience = defaultPatience,
                    QObject *parent = nullptr);

    /// Wayland lets no program choose the place of its windows.
    [[nodiscard]] static Way wayOnThisDesktop();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void lost();

private:
    void followFocus();

    QWindow &m_window;
    Way m_way;
    bool m_isReached = false;
    QTimer *m_patience; ///< The child "patience".
};

} // namespace quorvel
