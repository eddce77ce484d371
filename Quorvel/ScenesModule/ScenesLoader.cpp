#include "Quorvel/ScenesModule/ScenesLoader.h"

#include "Core/DI/AppEnvironment.h"
#include "Platform/Appearance/Appearance.h"

#include <memory>

namespace quorvel {

ScenesLoader::ScenesLoader()
    : m_module(QStringLiteral(QUORVEL_SCENES_MODULE))
{}

std::unique_ptr<Scenes> ScenesLoader::makeScenes(AppEnvironment &environment,
                                                 Appearance &appearance)
{
    return m_module.plugin<ScenesPlugin>().makeScenes(environment, appearance);
}

} // namespace quorvel
