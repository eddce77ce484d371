#pragma once

#include "Platform/Appearance/Appearance.h"

namespace quorvel {

/// An appearance that a test sets.
class FakeAppearance final : public Appearance
{
public:
    explicit FakeAppearance(AppearanceStyle style = AppearanceStyle::Light)
        : m_style(style)
    {}

    [[nodiscard]] AppearanceStyle style() const override { return m_style; }

    void setStyle(AppearanceStyle style)
    {
        m_style = style;
        emit styleChanged();
    }

private:
    AppearanceStyle m_style;
};

} // namespace quorvel
