#pragma once

#include "Core/DI/Scenes.h"
#include "Features/MenuBar/Loop/MenuBarFacilities.h"

#include <QObject>
#include <QQmlEngine>
#include <QVariantMap>

#include <map>
#include <memory>

class QQuickWindow;

namespace quorvel {

class HistoryScreen;
class MenuBarPanel;
class MenuBarServices;
class ProbeServices;
class ProbeViewModel;

/// The three scenes in Qt Quick: the panel and the two windows, on one engine.
class QuickScenes final : public QObject, public Scenes
{
    Q_OBJECT

public:
    /// Everything that the facilities point to outlives this.
    QuickScenes(SceneContext context, MenuBarFacilities facilities);
    ~QuickScenes() override;

    void toggleMenuBarPanel(const QRect &anchor) override;
    void openMenuBarPanel(const QRect &anchor) override;
    [[nodiscard]] bool openWindow(const QString &identifier) override;

    /// Built on first use, as the windows are. Throws ViewError.
    [[nodiscard]] MenuBarPanel &menuBarPanel();
    /// Null when no window has this identifier. Throws ViewError.
    [[nodiscard]] QQuickWindow *window(const QString &identifier);

    /// The same for whoever cannot hear that it failed: the log does.
    void openRequestedWindow(const QString &identifier);

private:
    /// What the window's view requires.
    [[nodiscard]] QVariantMap propertiesOf(const QString &identifier);
    [[nodiscard]] QVariant makeHistory();
    [[nodiscard]] QVariant makeProbe();
    void followAppearance();

    SceneContext m_context;
    MenuBarFacilities m_facilities;
    QQmlEngine m_engine;
    std::unique_ptr<MenuBarServices> m_menuBarServices;
    std::unique_ptr<MenuBarPanel> m_menuBarPanel;
    // Order: what a window is bound to outlives it.
    std::unique_ptr<HistoryScreen> m_history;
    std::unique_ptr<ProbeServices> m_probeServices;
    std::unique_ptr<ProbeViewModel> m_probe;
    std::map<QString, std::unique_ptr<QQuickWindow>> m_windows;
};

} // namespace quorvel
