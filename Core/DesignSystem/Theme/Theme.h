#pragma once

#include "Core/DesignSystem/Theme/ThemeColor.h"
#include "Core/DesignSystem/Theme/ThemeFont.h"

class QJSEngine;
class QQmlEngine;

namespace quorvel {

/// The colours and fonts of every view: `Theme.color.<token>` and `Theme.font.<token>`. There is
/// one per process; all QML engines share it.
class Theme final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(quorvel::ThemeColor *color READ color CONSTANT)
    Q_PROPERTY(quorvel::ThemeColor *lightColor READ lightColor CONSTANT)
    Q_PROPERTY(quorvel::ThemeFont *font READ font CONSTANT)

public:
    [[nodiscard]] static Theme &shared();
    static Theme *create(QQmlEngine *engine, QJSEngine *scriptEngine);

    /// Sets the appearance and repaints everything that shows a colour of the theme.
    void setStyle(AppearanceStyle style) { m_color.setStyle(style); }

    [[nodiscard]] ThemeColor *color() { return &m_color; }
    /// The light colours, for items that stand on white in light and in dark.
    [[nodiscard]] ThemeColor *lightColor() { return &m_lightColor; }
    [[nodiscard]] ThemeFont *font() { return &m_font; }

private:
    Theme() = default;

    ThemeColor m_color{this};
    ThemeColor m_lightColor{this};
    ThemeFont m_font{this};
};

} // namespace quorvel
