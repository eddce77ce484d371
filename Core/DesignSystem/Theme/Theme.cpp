#include "Core/DesignSystem/Theme/Theme.h"

#include <QJSEngine>
#include <QQmlEngine>

namespace quorvel {

Theme &Theme::shared()
{
    static Theme theme;
    return theme;
}

Theme *Theme::create(QQmlEngine * /*engine*/, QJSEngine * /*scriptEngine*/)
{
    QQmlEngine::setObjectOwnership(&shared(), QQmlEngine::CppOwnership);
    return &shared();
}

} // namespace quorvel
