#pragma once

#include "Features/CheckIn/LocatedScreen.h"
#include "Features/MenuBar/Loop/MenuBarRoles.h"
#include "Features/MenuBar/Loop/SecondLook.h"
#include "Features/MenuBar/Panel/MenuBarScreen.h"

#include <memory>

namespace quorvel {

/// What `MenuBarRootView` is made of but for its looks: the view models of the panel, and the
/// screens that show them. Serves the panel; as long-lived as it.
class MenuBarScene final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the panel")
    Q_PROPERTY(quorvel::MenuBarScreen *screen READ screen CONSTANT)
    Q_PROPERTY(quorvel::LocatedScreen *located READ located NOTIFY locatedChanged)
    Q_PROPERTY(bool lacksSettings READ lacksSettings NOTIFY lacksSettingsChanged)

public:
    explicit MenuBarScene(const MenuBarRoles &roles, QObject *parent = nullptr);
    ~MenuBarScene() override;

    /// The panel opens: locates, and on the first time makes the form, if there is a store for it.
    void appear();
    /// It closes: nobody waits for anything any more.
    void disappear();

    Q_INVOKABLE void openSystemSettings();

    [[nodiscard]] MenuBarScreen *screen() { return &m_screen; }
    /// Null without a store, and before the first appearance.
    [[nodiscard]] LocatedScreen *located() { return m_located.get(); }
    /// Whether the settings could not be opened since the panel was.
    [[nodiscard]] bool lacksSettings() const { return m_lacksSettings; }

signals:
    void locatedChanged();
    void lacksSettingsChanged();

private:
    void makeForm();
    [[nodiscard]] bool mayInterrupt() const;
    void setLacksSettings(bool lacksSettings);

    MenuBarRoles m_roles;
    MenuBarViewModel m_menuBarVM;
    MenuBarScreen m_screen;
    std::unique_ptr<CheckInViewModel> m_checkInVM;
    std::unique_ptr<LocatedScreen> m_located;
    bool m_lacksSettings = false;
    SecondLook m_secondLook;
};

} // namespace quorvel
