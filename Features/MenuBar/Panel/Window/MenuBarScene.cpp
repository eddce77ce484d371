#include "Features/MenuBar/Panel/Window/MenuBarScene.h"

#include "Platform/SystemSettings/SystemSettings.h"

#include <QUrl>

namespace quorvel {

MenuBarScene::MenuBarScene(const MenuBarRoles &roles, QObject *parent)
    : QObject(parent)
    , m_roles(roles)
    , m_menuBarVM(roles.loop, roles.clock)
    , m_screen(m_menuBarVM, roles.checkInRepository ? MenuBarScreen::CheckInForm::Present
                                                    : MenuBarScreen::CheckInForm::Absent)
    , m_secondLook(
          m_menuBarVM, roles.systemEvents, [this] { return mayInterrupt(); }, this)
{}

MenuBarScene::~MenuBarScene() = default;

void MenuBarScene::appear()
{
    setLacksSettings(false);
    m_menuBarVM.send(MenuBarInput::start());
    if (!m_located && m_roles.checkInRepository)
        makeForm();
    m_secondLook.appear();
}

void MenuBarScene::disappear()
{
    m_secondLook.disappear();
}

void MenuBarScene::openSystemSettings()
{
    const QUrl address{QString(SystemSettings::locationPrivacy)};
    setLacksSettings(!m_roles.systemSettings.open(address));
}

void MenuBarScene::makeForm()
{
    m_checkInVM = std::make_unique<CheckInViewModel>(*m_roles.checkInRepository,
                                                     m_roles.loop.keychain, m_roles.clock);
    m_located = std::make_unique<LocatedScreen>(
        m_menuBarVM, *m_checkInVM,
        WifiScanSection::Inputs{.keychainStore = m_roles.loop.keychain,
                                .systemPasswordReader = m_roles.systemPasswords,
                                .wifiService = m_roles.loop.wifi,
                                .pasteboard = m_roles.pasteboard});
    connect(m_located.get(), &LocatedScreen::isInUseChanged, &m_secondLook,
            &SecondLook::reconsider);
    emit locatedChanged();
}

bool MenuBarScene::mayInterrupt() const
{
    return m_located && !m_located->isInUse();
}

void MenuBarScene::setLacksSettings(bool lacksSettings)
{
    if (lacksSettings == m_lacksSettings)
        return;
    m_lacksSettings = lacksSettings;
    emit lacksSettingsChanged();
}

} // namespace quorvel
