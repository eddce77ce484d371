#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Platform/Appearance/Appearance.h"
#include "Quorvel/ProgramModule.h"

#include <memory>

namespace quorvel {

/// Loads the module of the scenes with the first scene. Without it, the icon alone saves the QML
/// engine and its libraries: 8 MB and a quarter of the start time.
class ScenesLoader final
{
public:
    ScenesLoader();

    /// Throws LocalizedError if the module is missing or does not fit.
    [[nodiscard]] std::unique_ptr<Scenes> makeScenes(AppEnvironment &environment,
                                                     Appearance &appearance);

private:
    ProgramModule m_module;
};

} // namespace quorvel
