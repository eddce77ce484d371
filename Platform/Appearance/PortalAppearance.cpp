#include "Platform/Appearance/PortalAppearance.h"

#include "Platform/Bus/BusCall.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QMetaType>
#include <QPalette>
#include <QVariant>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvel {
namespace {

using namespace std::chrono_literals;

const auto portalService = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settingsInterface = u"org.freedesktop.portal.Settings"_s;
const auto appearanceNamespace = u"org.freedesktop.appearance"_s;
const auto colorSchemeKey = u"color-scheme"_s;

/// Long enough for a portal that has to start first, on a busy machine.
constexpr auto readTimeout = 3000ms;
constexpr uint preferDark = 1;
constexpr int midLightness = 128;

QVariant unwrapped(QVariant value)
{
    // Portals wrap a setting once in a signal, and once or twice in a reply.
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

AppearanceStyle paletteStyle()
{
    const bool dark = QGuiApplication::palette().color(QPalette::Window).lightness() < midLightness;
    return dark ? AppearanceStyle::Dark : AppearanceStyle::Light;
}

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection &bus)
    : m_bus(bus)
{
    if (m_bus.isConnected()) {
        follow();
        read();
    }
}

AppearanceStyle PortalAppearance::style() const
{
    return m_portalStyle.value_or(paletteStyle());
}

void PortalAppearance::settingChanged(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.size() == 3 && arguments[0] == appearanceNamespace &&
        arguments[1] == colorSchemeKey)
        adopt(arguments[2]);
}

void PortalAppearance::follow()
{
    m_bus.connect(portalService, portalPath, settingsInterface, u"SettingChanged"_s, this,
                  SLOT(settingChanged(QDBusMessage)));
    auto *watcher = new QDBusServiceWatcher(portalService, m_bus,
                                            QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &PortalAppearance::read);
}

void PortalAppearance::read()
{
    auto message =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, u"Read"_s);
    message << appearanceNamespace << colorSchemeKey;
    const auto answered = [this](const QDBusReply<QDBusVariant> &reply) {
        // Silent: many desktops have no such portal or setting.
        if (reply.isValid())
            adopt(reply.value().variant());
    };
    BusCall::start(m_bus, message, readTimeout, this, answered);
}

void PortalAppearance::adopt(const QVariant &colorScheme)
{
    const auto before = style();
    const bool dark = unwrapped(colorScheme).toUInt() == preferDark;
    m_portalStyle = dark ? AppearanceStyle::Dark : AppearanceStyle::Light;
    if (style() != before)
        emit styleChanged();
}

} // namespace quorvel
