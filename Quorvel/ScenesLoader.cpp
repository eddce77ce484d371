#include "Quorvel/ScenesLoader.h"

namespace quorvel {

ScenesLoader::ScenesLoader()
    : m_module(QStringLiteral(QUORVEL_SCENES_MODULE))
{}

std::unique_ptr<Scenes> ScenesLoader::makeScenes(SceneContext context)
{
    return m_module.plugin<ScenesPlugin>().makeScenes(std::move(context));
}

} // namespace quorvel
