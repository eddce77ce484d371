#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QDBusConnection>

#include <optional>

class QDBusMessage;

namespace quorvel {

/// The appearance as the desktop portal tells it, followed live. Until the portal answers, and on
/// a desktop without one, it is dark where the palette's windows are at that moment; a palette that
/// changes later is not announced. Never waits for the portal.
class PortalAppearance final : public Appearance
{
    Q_OBJECT

public:
    /// A bus that is not connected leaves the palette to decide.
    explicit PortalAppearance(const QDBusConnection &bus);

    [[nodiscard]] AppearanceStyle style() const override;

private slots:
    void settingChanged(const QDBusMessage &message);

private:
    void read();
    void follow();
    void adopt(const QVariant &colorScheme);

    QDBusConnection m_bus;
    std::optional<AppearanceStyle> m_portalStyle;
};

} // namespace quorvel
