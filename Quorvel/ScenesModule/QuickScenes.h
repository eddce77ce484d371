#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Core/DI/WindowFacilities.h"

#include <QObject>
#include <QQmlEngine>
#include <QVariant>
#include <QVariantMap>

#include <map>
#include <memory>

class QQuickWindow;

namespace quorvel {

class HistoryScreen;
class LoopServices;
class MenuBarPanel;
class MenuBarScene;
class ProbeViewModel;
struct Facilities;

/// The three scenes in Qt Quick: the panel and the two windows, on one engine.
class QuickScenes final : public QObject, public Scenes
{
    Q_OBJECT

public:
    /// All of these outlive the scenes.
    QuickScenes(AppEnvironment &environment, const Facilities &facilities,
                const WindowFacilities &windowFacilities);
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

signals:
    void quitRequested();

private:
    /// What the window's view requires.
    [[nodiscard]] QVariantMap propertiesOf(const QString &identifier);
    [[nodiscard]] QVariant makeHistory();
    [[nodiscard]] QVariant makeProbe();
    void followAppearance();

    AppEnvironment &m_environment;
    const Facilities &m_facilities;
    WindowFacilities m_windowFacilities;
    QQmlEngine m_engine;
    // Order: what a view is bound to outlives it, and what a view model asks outlives that.
    std::unique_ptr<LoopServices> m_menuBarServices;
    std::unique_ptr<MenuBarScene> m_menuBarScene;
    std::unique_ptr<MenuBarPanel> m_menuBarPanel;
    std::unique_ptr<HistoryScreen> m_history;
    std::unique_ptr<LoopServices> m_probeServices;
    std::unique_ptr<LoopServices> m_probeLoopServices;
    std::unique_ptr<ProbeViewModel> m_probe;
    std::map<QString, std::unique_ptr<QQuickWindow>> m_windows;
};

} // namespace quorvel
