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

/// The three scenes in Qt Quick, on one engine: the panel and the two windows.
class QuickScenes final : public QObject, public Scenes
{
    Q_OBJECT

public:
    /// All of these must outlive the scenes.
    QuickScenes(AppEnvironment &environment, const Facilities &facilities,
                const WindowFacilities &windowFacilities);
    ~QuickScenes() override;

    void toggleMenuBarPanel(const QRect &anchor) override;
    void openMenuBarPanel(const QRect &anchor) override;
    [[nodiscard]] bool openWindow(const QString &identifier) override;

    /// Built on first use, like the windows. Throws ViewError.
    [[nodiscard]] MenuBarPanel &menuBarPanel();
    /// Null if no window has this identifier. Throws ViewError.
    [[nodiscard]] QQuickWindow *window(const QString &identifier);

    /// Like `openWindow`, but logs a failure instead of throwing it.
    void openRequestedWindow(const QString &identifier);

signals:
    void quitRequested();

private:
    /// The required properties of the window's view.
    [[nodiscard]] QVariantMap propertiesOf(const QString &identifier);
    [[nodiscard]] QVariant makeHistory();
    [[nodiscard]] QVariant makeProbe();
    void followAppearance();

    AppEnvironment &m_environment;
    const Facilities &m_facilities;
    WindowFacilities m_windowFacilities;
    QQmlEngine m_engine;
    // Order: a view is destroyed before its view model, and a view model before its services.
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
