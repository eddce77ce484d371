#pragma once

#include "Platform/Appearance/Appearance.h"

#include <QDBusConnection>
#include <QVariant>

#include <optional>

class QDBusMessage;

namespace quorvel {

/// The appearance from the desktop portal, followed live. Until the portal answers, and without
/// one, the palette decides: a dark window colour means dark. A later change of the palette is not
/// noticed. Never blocks.
class PortalAppearance final : public Appearance
{
    Q_OBJECT

public:
    /// Without a connected bus the palette decides.
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
