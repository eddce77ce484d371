#include "Quorvel/QuorvelApp.h"

#include "Platform/Appearance/PortalAppearance.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/Files/FileManager.h"

#include <QCoreApplication>

#include <memory>

namespace quorvel {

using namespace Qt::StringLiterals;

QuorvelApp::QuorvelApp()
    : m_environment(FileManager::standard(), Clock::system())
    , m_sessionLock(SessionBus::connection())
    , m_label(m_statusItem, m_sessionLock)
    , m_traylessOpening(m_statusItem)
{
    if (const auto &error = m_environment.setupError())
        qWarning("quorvel: %s", qUtf8Printable(*error));
    connect(&m_statusItem, &StatusItem::activated, this, &QuorvelApp::togglePanel);
    connect(&m_statusItem, &StatusItem::openRequested, this, &QuorvelApp::openPanel);
    connect(&m_traylessOpening, &TraylessOpening::openRequested, this, &QuorvelApp::openPanel);
    connect(&m_statusItem, &StatusItem::quitRequested, qApp, &QCoreApplication::quit);
    // After the icon is up. By the first click the desktop has told whether it is dark.
    connect(&m_statusItem, &StatusItem::isShownChanged, this, [this] { appearance(); });
}

QuorvelApp::~QuorvelApp() = default;

void QuorvelApp::waitUntilAsked()
{
    m_traylessOpening.cancel();
}

void QuorvelApp::open(const Activation &activation)
{
    m_traylessOpening.cancel();
    // Qt reads the token from here when it next asks a Wayland desktop for focus.
    if (!activation.token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activation.token.toUtf8());
    switch (activation.request) {
    case Request::Panel:
        return openPanel();
    case Request::History:
        return openWindow(u"history"_s);
    case Request::Diagnostics:
        return openWindow(u"probe8"_s);
    }
}

void QuorvelApp::openPanel()
{
    withScenes([this](Scenes &scenes) { scenes.openMenuBarPanel(m_statusItem.geometry()); });
}

void QuorvelApp::openWindow(const QString &identifier)
{
    withScenes([&](Scenes &scenes) { static_cast<void>(scenes.openWindow(identifier)); });
}

void QuorvelApp::togglePanel()
{
    withScenes([this](Scenes &scenes) { scenes.toggleMenuBarPanel(m_statusItem.geometry()); });
}

/// If the scenes cannot be shown, the program says why and goes on: its store and icon still work.
template <class Action>
void QuorvelApp::withScenes(Action action)
{
    try {
        action(scenes());
    } catch (const LocalizedError &error) {
        qCritical("quorvel: %s", error.what());
    }
}

Scenes &QuorvelApp::scenes()
{
    if (!m_scenes)
        m_scenes = m_loader.makeScenes(m_environment, appearance());
    return *m_scenes;
}

Appearance &QuorvelApp::appearance()
{
    if (!m_appearance)
        m_appearance = std::make_unique<PortalAppearance>(SessionBus::connection());
    return *m_appearance;
}

} // namespace quorvel
