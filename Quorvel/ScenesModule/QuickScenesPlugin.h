#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Platform/Appearance/Appearance.h"

#include <QObject>

#include <memory>

namespace quorvel {

/// The plugin object of the scenes' module.
class QuickScenesPlugin final : public QObject, public ScenesPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVEL_SCENES_PLUGIN_IID)
    Q_INTERFACES(quorvel::ScenesPlugin)

public:
    [[nodiscard]] std::unique_ptr<Scenes> makeScenes(AppEnvironment &environment,
                                                     Appearance &appearance) override;
};

} // namespace quorvel
