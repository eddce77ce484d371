#include "Features/MenuBar/Panel/Window/MenuBarScene.h"

#include "Platform/SystemSettings/SystemSettings.h"

#include <QUrl>

using namespace Qt::StringLiterals;

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
    setSettingsNotice({});
    m_screen.start();
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
    const bool opened = m_roles.systemSettings.open(address);
    setSettingsNotice(opened ? QString()
                             : u"No settings program was found here. Please allow location for "
                               "Quorvel in your desktop's settings."_s);
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

void MenuBarScene::setSettingsNotice(const QString &notice)
{
    if (notice == m_settingsNotice)
        return;
    m_settingsNotice = notice;
    emit settingsNoticeChanged();
}

} // namespace quorvel
