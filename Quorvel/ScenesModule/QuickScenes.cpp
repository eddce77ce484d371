#include "Quorvel/ScenesModule/QuickScenes.h"

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Facilities.h"
#include "Core/DI/LoopServices.h"
#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Features/History/HistoryScreen.h"
#include "Features/History/Share/VisitPicture.h"
#include "Features/MenuBar/Panel/Window/MenuBarPanel.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Platform/Appearance/Appearance.h"
#include "Platform/Errors/LocalizedError.h"
#include "_Probes/ProbeViewModel.h"

#include <QHash>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

struct WindowView
{
    QString module;
    QString view;
};

const QHash<QString, WindowView> &windowViews()
{
    static const QHash<QString, WindowView> views{
        {u"history"_s, {.module = u"History"_s, .view = u"HistoryWindow"_s}},
        {u"probe8"_s, {.module = u"Probes"_s, .view = u"ProbeWindow"_s}},
    };
    return views;
}

} // namespace

QuickScenes::QuickScenes(AppEnvironment &environment, const Facilities &facilities,
                         const WindowFacilities &windowFacilities)
    : m_environment(environment)
    , m_facilities(facilities)
    , m_windowFacilities(windowFacilities)
{
    // Order: before the first window. Flat shapes and text need no graphics processor, and a
    // context on one would more than double the program's memory.
    if (QQuickWindow::sceneGraphBackend() != "software"_L1)
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    followAppearance();
}

QuickScenes::~QuickScenes() = default;

void QuickScenes::toggleMenuBarPanel(const QRect &anchor)
{
    menuBarPanel().toggle(anchor);
}

void QuickScenes::openMenuBarPanel(const QRect &anchor)
{
    menuBarPanel().open(anchor);
}

bool QuickScenes::openWindow(const QString &identifier)
{
    QQuickWindow *opened = window(identifier);
    if (!opened)
        return false;
    opened->setWindowStates(opened->windowStates() & ~Qt::WindowMinimized);
    opened->setVisible(true);
    opened->raise();
    opened->requestActivate();
    return true;
}

/// For callers such as the QML engine, which exceptions must not pass.
void QuickScenes::openRequestedWindow(const QString &identifier)
{
    try {
        if (!openWindow(identifier))
            qCritical("quorvel: there is no window “%s”", qUtf8Printable(identifier));
    } catch (const LocalizedError &error) {
        qCritical("quorvel: %s", error.what());
    }
}

MenuBarPanel &QuickScenes::menuBarPanel()
{
    if (!m_menuBarPanel) {
        m_menuBarServices = std::make_unique<LoopServices>(m_facilities);
        m_menuBarScene = std::make_unique<MenuBarScene>(
            m_environment.checkInRepository(), m_menuBarServices->roles(), m_windowFacilities,
            m_facilities.clock, m_facilities.notificationCenter);
        m_menuBarPanel = std::make_unique<MenuBarPanel>(m_engine, *m_menuBarScene);
        connect(m_menuBarPanel.get(), &MenuBarPanel::windowRequested, this,
                &QuickScenes::openRequestedWindow);
        connect(m_menuBarPanel.get(), &MenuBarPanel::quitRequested, this,
                &QuickScenes::quitRequested);
    }
    return *m_menuBarPanel;
}

QQuickWindow *QuickScenes::window(const QString &identifier)
{
    if (!windowViews().contains(identifier))
        return nullptr;
    auto &window = m_windows[identifier];
    if (!window) {
        const auto [module, view] = windowViews().value(identifier);
        auto object = ViewFactory::make(m_engine, module, view, propertiesOf(identifier));
        window.reset(qobject_cast<QQuickWindow *>(object.release()));
    }
    return window.get();
}

QVariantMap QuickScenes::propertiesOf(const QString &identifier)
{
    if (identifier == u"history"_s)
        return {{u"screen"_s, makeHistory()}};
    return {{u"probe"_s, makeProbe()}};
}

QVariant QuickScenes::makeHistory()
{
    m_history = std::make_unique<HistoryScreen>(
        m_environment.checkInRepository(), m_facilities, m_windowFacilities.pasteboard,
        [this](VisitDetail &detail) { return VisitPicture::image(m_engine, detail); });
    return QVariant::fromValue(m_history.get());
}

QVariant QuickScenes::makeProbe()
{
    m_probeServices = std::make_unique<LoopServices>(m_facilities);
    m_probeLoopServices = std::make_unique<LoopServices>(m_facilities);
    m_probe = std::make_unique<ProbeViewModel>(
        m_probeServices->roles(), m_probeLoopServices->roles(), m_environment.checkInRepository(),
        m_environment.setupError().value_or(QString()), m_facilities,
        m_windowFacilities.pasteboard);
    return QVariant::fromValue(m_probe.get());
}

void QuickScenes::followAppearance()
{
    const auto &appearance = m_windowFacilities.appearance;
    const auto adopt = [&appearance] { Theme::shared().setStyle(appearance.style()); };
    connect(&appearance, &Appearance::styleChanged, this, adopt);
    adopt();
}

} // namespace quorvel
