#include "Quorvel/ScenesModule/QuickScenesPlugin.h"

#include "Quorvel/ScenesModule/QuickScenes.h"

namespace quorvel {

std::unique_ptr<Scenes> QuickScenesPlugin::makeScenes(SceneContext context)
{
    return std::make_unique<QuickScenes>(std::move(context));
}

} // namespace quorvel
