#pragma once

#include "Features/Scenes/Scenes.h"

#include <QObject>
#include <QQmlEngine>

#include <map>
#include <memory>

class QQuickWindow;

namespace quorvel {

class MenuBarPanel;

/// The three scenes in Qt Quick: the panel and the two windows, on one engine.
class QuickScenes final : public QObject, public Scenes
{
    Q_OBJECT

public:
    explicit QuickScenes(SceneContext context);
    ~QuickScenes() override;

    void toggleMenuBarPanel(const QRect &anchor) override;
    void openMenuBarPanel(const QRect &anchor) override;
    [[nodiscard]] bool openWindow(const QString &identifier) override;

    /// Built on first use, as the windows are. Throws ViewError.
    [[nodiscard]] MenuBarPanel &menuBarPanel();
    /// Null when no window has this identifier. Throws ViewError.
    [[nodiscard]] QQuickWindow *window(const QString &identifier);

private:
    void openRequestedWindow(const QString &identifier);
    void followAppearance();

    SceneContext m_context;
    QQmlEngine m_engine;
    std::unique_ptr<MenuBarPanel> m_menuBarPanel;
    std::map<QString, std::unique_ptr<QQuickWindow>> m_windows;
};

} // namespace quorvel
