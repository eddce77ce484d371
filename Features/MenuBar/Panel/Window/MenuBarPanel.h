#pragma once

#include "Features/MenuBar/Panel/Window/PanelToggleGuard.h"

#include <QObject>
#include <QRect>

#include <memory>

class QQmlEngine;
class QQuickItem;
class QQuickView;

namespace quorvel {

class MenuBarScene;

/// The window under the status item, with the scene in it: opens, places and closes it. It stays
/// alive while hidden, so that opening it again takes one frame.
class MenuBarPanel final : public QObject
{
    Q_OBJECT

public:
    /// The scene must outlive the panel. Throws ViewError.
    MenuBarPanel(QQmlEngine &engine, MenuBarScene &scene,
                 PanelToggleGuard guard = PanelToggleGuard());
    ~MenuBarPanel() override;

    /// A click on the status item. `anchor` is the item's place, or empty.
    void toggle(const QRect &anchor);
    /// Shows the panel or brings it to the front.
    void open(const QRect &anchor);
    Q_SLOT void close();

    [[nodiscard]] QQuickView &window() { return *m_window; }

signals:
    void windowRequested(const QString &identifier);
    void quitRequested();

private:
    void setUpWindow();
    void followView();
    void fitToView();
    void focusNoControl();
    void limitHeight();
    void place();
    void placeAnew();
    [[nodiscard]] bool isOnTheWay() const;
    void closeOnFocusLoss();

    MenuBarScene &m_scene;
    PanelToggleGuard m_guard;
    QRect m_anchor;
    std::unique_ptr<QQuickView> m_window;
    QQuickItem *m_view = nullptr;
};

} // namespace quorvel
