#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Features/MenuBar/Icon/MenuBarLabel.h"
#include "Features/MenuBar/Icon/TraylessOpening.h"
#include "Platform/SessionLock/ScreenSaverSessionLock.h"
#include "Platform/SingleInstance/SingleInstance.h"
#include "Platform/StatusItem/TrayStatusItem.h"
#include "Quorvel/ScenesModule/ScenesLoader.h"

#include <QObject>

#include <memory>

namespace quorvel {

class Appearance;

/// The program: its one environment, the icon, and the three scenes that open from it. Only
/// `Quorvel/` picks live backends.
class QuorvelApp final : public QObject
{
    Q_OBJECT

public:
    QuorvelApp();
    ~QuorvelApp() override;

    /// Never opens the panel by itself, even if no status area shows the icon.
    void waitUntilAsked();

    /// Shows what the desktop, or a start of the program, asked for.
    void open(const Activation &activation);

private:
    void openPanel();
    void openWindow(const QString &identifier);
    void togglePanel();
    template <class Action>
    void withScenes(Action action);
    [[nodiscard]] Scenes &scenes();
    Appearance &appearance();

    // Order: the icon looks for its host while the store opens.
    TrayStatusItem m_statusItem;
    AppEnvironment m_environment;
    ScreenSaverSessionLock m_sessionLock;
    MenuBarLabel m_label;
    TraylessOpening m_traylessOpening;
    ScenesLoader m_loader;
    std::unique_ptr<Appearance> m_appearance;
    std::unique_ptr<Scenes> m_scenes;
};

} // namespace quorvel
