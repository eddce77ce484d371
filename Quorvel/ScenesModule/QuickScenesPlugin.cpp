#include "Quorvel/ScenesModule/QuickScenesPlugin.h"

#include "Core/DI/AppEnvironment.h"
#include "Platform/Appearance/Appearance.h"
#include "Platform/ApplicationId.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Bus/SystemBus.h"
#include "Platform/LoginItem/LoginItem.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/NotificationCenter/SessionNotifications.h"
#include "Platform/Pasteboard/QtPasteboard.h"
#include "Platform/SystemEvents/DBusSystemEvents.h"
#include "Platform/SystemSettings/DesktopSystemSettings.h"
#include "Quorvel/Endpoints.h"
#include "Quorvel/LiveFacilities.h"
#include "Quorvel/ScenesModule/QuickScenes.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>
#include <QProcessEnvironment>

#include <memory>

namespace quorvel {
namespace {

/// The icon in lists of windows, in their sizes. On X11 each window carries all of them.
QIcon windowIcon()
{
    const QIcon installed = QIcon::fromTheme(applicationId);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addPixmap(installed.pixmap(size));
    return icon;
}

/// The scenes of the program, with their live facilities.
class LiveScenes final : public Scenes
{
public:
    LiveScenes(AppEnvironment &environment, Appearance &appearance, const Endpoints &endpoints)
        : m_live(endpoints)
        , m_scenes(environment, m_live.facilities(),
                   {.appearance = appearance,
                    .pasteboard = m_pasteboard,
                    .systemSettings = m_systemSettings,
                    .systemEvents = m_systemEvents,
                    .loginItem = LoginItem::mainApp()})
    {
        QGuiApplication::setWindowIcon(windowIcon());
        QObject::connect(&m_scenes, &QuickScenes::quitRequested, qApp, &QCoreApplication::quit);
    }

    void toggleMenuBarPanel(const QRect &anchor) override { m_scenes.toggleMenuBarPanel(anchor); }
    void openMenuBarPanel(const QRect &anchor) override { m_scenes.openMenuBarPanel(anchor); }
    [[nodiscard]] bool openWindow(const QString &identifier) override
    {
        if (identifier != u"probe8")
            return m_scenes.openWindow(identifier);
        // The window shows the network at once, so wait until the radio is known.
        m_live.whenRadioIsRead(&m_scenes,
                               [this, identifier] { m_scenes.openRequestedWindow(identifier); });
        return true;
    }

private:
    // The history follows what the terminal's commands store.
    SessionNotifications m_notifications{SessionBus::connection(), NotificationCenter::standard()};
    LiveFacilities m_live;
    QtPasteboard m_pasteboard;
    DesktopSystemSettings m_systemSettings{QProcessEnvironment::systemEnvironment()};
    DBusSystemEvents m_systemEvents{SystemBus::connection()};
    QuickScenes m_scenes;
};

} // namespace

std::unique_ptr<Scenes> QuickScenesPlugin::makeScenes(AppEnvironment &environment,
                                                      Appearance &appearance)
{
    const auto endpoints = Endpoints::read(QProcessEnvironment::systemEnvironment());
    return std::make_unique<LiveScenes>(environment, appearance, endpoints);
}

} // namespace quorvel
