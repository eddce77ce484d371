#pragma once

#include "Core/DesignSystem/Theme/DynamicColor.h"

#include <QObject>
#include <qqmlintegration.h>

namespace quorvel {

/// The warm coffee palette by token: `Theme.color.accent` in a view. Each colour fits the current
/// appearance. When the appearance changes, the views that read a colour repaint.
class ThemeColor final : public QObject
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QColor background READ background NOTIFY changed)
    Q_PROPERTY(QColor surface READ surface NOTIFY changed)
    Q_PROPERTY(QColor card READ card NOTIFY changed)
    Q_PROPERTY(QColor accent READ accent NOTIFY changed)
    Q_PROPERTY(QColor accentDeep READ accentDeep NOTIFY changed)
    Q_PROPERTY(QColor accentSoft READ accentSoft NOTIFY changed)
    Q_PROPERTY(QColor textPrimary READ textPrimary NOTIFY changed)
    Q_PROPERTY(QColor textSecondary READ textSecondary NOTIFY changed)
    Q_PROPERTY(QColor textTertiary READ textTertiary NOTIFY changed)
    Q_PROPERTY(QColor success READ success NOTIFY changed)
    Q_PROPERTY(QColor successSoft READ successSoft NOTIFY changed)
    Q_PROPERTY(QColor error READ error NOTIFY changed)
    Q_PROPERTY(QColor border READ border NOTIFY changed)
    Q_PROPERTY(QColor borderStrong READ borderStrong NOTIFY changed)
    Q_PROPERTY(QColor hover READ hover NOTIFY changed)
    Q_PROPERTY(QColor field READ field NOTIFY changed)
    Q_PROPERTY(QColor starOn READ starOn NOTIFY changed)
    Q_PROPERTY(QColor starOff READ starOff NOTIFY changed)

public:
    explicit ThemeColor(QObject *theme)
        : QObject(theme)
    {}

    void setStyle(AppearanceStyle style)
    {
        if (style != m_style) {
            m_style = style;
            emit changed();
        }
    }

    [[nodiscard]] QColor background() const { return m_background.resolved(m_style); }
    [[nodiscard]] QColor surface() const { return m_surface.resolved(m_style); }
    [[nodiscard]] QColor card() const { return m_card.resolved(m_style); }
    [[nodiscard]] QColor accent() const { return m_accent.resolved(m_style); }
    [[nodiscard]] QColor accentDeep() const { return m_accentDeep.resolved(m_style); }
    [[nodiscard]] QColor accentSoft() const { return m_accentSoft.resolved(m_style); }
    [[nodiscard]] QColor textPrimary() const { return m_textPrimary.resolved(m_style); }
    [[nodiscard]] QColor textSecondary() const { return m_textSecondary.resolved(m_style); }
    [[nodiscard]] QColor textTertiary() const { return m_textTertiary.resolved(m_style); }
    [[nodiscard]] QColor success() const { return m_success.resolved(m_style); }
    [[nodiscard]] QColor successSoft() const { return m_successSoft.resolved(m_style); }
    [[nodiscard]] QColor error() const { return m_error.resolved(m_style); }
    [[nodiscard]] QColor border() const { return m_border.resolved(m_style); }
    [[nodiscard]] QColor borderStrong() const { return m_borderStrong.resolved(m_style); }
    [[nodiscard]] QColor hover() const { return m_hover.resolved(m_style); }
    [[nodiscard]] QColor field() const { return m_field.resolved(m_style); }
    [[nodiscard]] QColor starOn() const { return m_starOn.resolved(m_style); }
    [[nodiscard]] QColor starOff() const { return m_starOff.resolved(m_style); }

signals:
    void changed();

private:
    AppearanceStyle m_style = AppearanceStyle::Light;

    // Translucent tokens are given as bytes over 255. Deliberate: in soft tokens and borders, light
    // and dark differ in alpha too.
    DynamicColor m_background{0xFBF6EF, 0x1A1410};
    DynamicColor m_surface{0xFFFFFF, 0x241C16};
    DynamicColor m_card{0xF4ECE0, 0x2C231C};
    DynamicColor m_accent{0xE08A3C, 0xE0A45C};
    DynamicColor m_accentDeep{0xC8772E, 0xC8893E};
    DynamicColor m_accentSoft{224 / 255.f, 138 / 255.f, 60 / 255.f, 0.12f,
                              224 / 255.f, 164 / 255.f, 92 / 255.f, 0.16f};
    DynamicColor m_textPrimary{0x2B211A, 0xF3E9DC};
    DynamicColor m_textSecondary{107 / 255.f, 93 / 255.f,  80 / 255.f,  1.f,
                                 243 / 255.f, 233 / 255.f, 220 / 255.f, 0.70f};
    DynamicColor m_textTertiary{156 / 255.f, 140 / 255.f, 124 / 255.f, 1.f,
                                243 / 255.f, 233 / 255.f, 220 / 255.f, 0.45f};
    DynamicColor m_success{0x4E8D6E, 0x6FB48F};
    DynamicColor m_successSoft{78 / 255.f,  141 / 255.f, 110 / 255.f, 0.13f,
                               111 / 255.f, 180 / 255.f, 143 / 255.f, 0.16f};
    DynamicColor m_error{0xC0492F, 0xE06A4F};
    DynamicColor m_border{43 / 255.f,  33 / 255.f,  26 / 255.f,  0.10f,
                          243 / 255.f, 233 / 255.f, 220 / 255.f, 0.10f};
    DynamicColor m_borderStrong{43 / 255.f,  33 / 255.f,  26 / 255.f,  0.16f,
                                243 / 255.f, 233 / 255.f, 220 / 255.f, 0.16f};
    DynamicColor m_hover{43 / 255.f,  33 / 255.f,  26 / 255.f,  0.05f,
                         243 / 255.f, 233 / 255.f, 220 / 255.f, 0.06f};
    DynamicColor m_field{0xFFFFFF, 0x1E1711};
    DynamicColor m_starOn{0xE0A53C, 0xE8B564};
    DynamicColor m_starOff{43 / 255.f,  33 / 255.f,  26 / 255.f,  0.18f,
                           243 / 255.f, 233 / 255.f, 220 / 255.f, 0.20f};
};

} // namespace quorvel
