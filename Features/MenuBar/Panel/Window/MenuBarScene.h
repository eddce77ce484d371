#pragma once

#include "Core/DI/Services.h"
#include "Core/DI/WindowFacilities.h"
#include "Core/Persistence/CheckInRepository.h"
#include "Features/CheckIn/LocatedScreen.h"
#include "Features/MenuBar/Loop/SecondLook.h"
#include "Features/MenuBar/Panel/MenuBarScreen.h"
#include "Platform/Clock/Clock.h"
#include "Platform/NotificationCenter/NotificationCenter.h"

#include <QObject>

#include <memory>

namespace quorvel {

/// Everything in `MenuBarRootView` except its look: the panel's view models, and the screens that
/// show them. It lives as long as the panel.
class MenuBarScene final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the panel")
    Q_PROPERTY(quorvel::MenuBarScreen *screen READ screen CONSTANT)
    Q_PROPERTY(quorvel::LocatedScreen *located READ located NOTIFY locatedChanged)
    Q_PROPERTY(bool lacksSettings READ lacksSettings NOTIFY lacksSettingsChanged)
    Q_PROPERTY(
        bool launchAtLoginEnabled READ launchAtLoginEnabled NOTIFY launchAtLoginEnabledChanged)

public:
    /// The repository is null if the store could not be opened. All of these must outlive the
    /// scene.
    MenuBarScene(CheckInRepository *checkInRepository, const Services &services,
                 const WindowFacilities &window, const Clock &clock,
                 NotificationCenter &notificationCenter, QObject *parent = nullptr);
    ~MenuBarScene() override;

    /// The panel opens: locates and, the first time, creates the form if there is a store.
    void appear();
    /// The panel closes: nobody waits for anything any more.
    void disappear();

    Q_INVOKABLE void openSystemSettings();
    /// Asks the desktop for the change, then shows the result.
    Q_INVOKABLE void setLaunchAtLogin(bool enabled);

    [[nodiscard]] MenuBarScreen *screen() { return &m_screen; }
    /// Null without a store, and before the first appearance.
    [[nodiscard]] LocatedScreen *located() { return m_located.get(); }
    /// Whether opening the settings has failed since the panel opened.
    [[nodiscard]] bool lacksSettings() const { return m_lacksSettings; }
    /// The login item's state when it was last read: at each opening and after each change.
    [[nodiscard]] bool launchAtLoginEnabled() const { return m_launchAtLoginEnabled; }

signals:
    void locatedChanged();
    void lacksSettingsChanged();
    void launchAtLoginEnabledChanged();

private:
    void makeForm();
    [[nodiscard]] bool mayInterrupt() const;
    void setLacksSettings(bool lacksSettings);
    void readLoginItem();

    CheckInRepository *m_checkInRepository;
    Services m_services;
    WindowFacilities m_window;
    const Clock &m_clock;
    NotificationCenter &m_notificationCenter;
    MenuBarViewModel m_menuBarVM;
    MenuBarScreen m_screen;
    std::unique_ptr<CheckInViewModel> m_checkInVM;
    std::unique_ptr<LocatedScreen> m_located;
    bool m_lacksSettings = false;
    bool m_launchAtLoginEnabled = false;
    SecondLook m_secondLook;
};

} // namespace quorvel
