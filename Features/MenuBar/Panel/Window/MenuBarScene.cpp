#include "Features/MenuBar/Panel/Window/MenuBarScene.h"

#include "Core/DI/Services.h"
#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/LaunchAtLogin.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/SystemSettings/SystemSettings.h"

#include <QObject>
#include <QUrl>

namespace quorvel {

MenuBarScene::MenuBarScene(CheckInRepository *checkInRepository, const Services &services,
                           const WindowFacilities &window, const Clock &clock,
                           NotificationCenter &notificationCenter, QObject *parent)
    : QObject(parent)
    , m_checkInRepository(checkInRepository)
    , m_services(services)
    , m_window(window)
    , m_clock(clock)
    , m_notificationCenter(notificationCenter)
    , m_menuBarVM(services, clock)
    , m_screen(m_menuBarVM, checkInRepository ? MenuBarScreen::CheckInForm::Present
                                              : MenuBarScreen::CheckInForm::Absent)
    , m_secondLook(
          m_menuBarVM, window.systemEvents, [this] { return mayInterrupt(); }, this)
{}

MenuBarScene::~MenuBarScene() = default;

void MenuBarScene::appear()
{
    readLoginItem();
    setLacksSettings(false);
    m_menuBarVM.send(MenuBarInput::start());
    if (!m_located && m_checkInRepository)
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
    setLacksSettings(!m_window.systemSettings.open(address));
}

void MenuBarScene::setLaunchAtLogin(bool enabled)
{
    try {
        LaunchAtLogin::setEnabled(enabled, m_window.loginItem);
    } catch (const LocalizedError &) {
        // Silent: the switch stays where it was, which tells the user enough.
    }
    readLoginItem();
}

void MenuBarScene::makeForm()
{
    m_checkInVM = std::make_unique<CheckInViewModel>(*m_checkInRepository, m_services.keychain,
                                                     m_clock, m_notificationCenter);
    m_located =
        std::make_unique<LocatedScreen>(m_menuBarVM, *m_checkInVM, m_services, m_window.pasteboard);
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

void MenuBarScene::readLoginItem()
{
    const bool enabled = LaunchAtLogin::isEnabled(m_window.loginItem);
    if (enabled == m_launchAtLoginEnabled)
        return;
    m_launchAtLoginEnabled = enabled;
    emit launchAtLoginEnabledChanged();
}

} // namespace quorvel
