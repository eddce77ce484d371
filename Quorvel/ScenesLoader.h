#pragma once

#include "Core/DI/AppEnvironment.h"
#include "Core/DI/Scenes.h"
#include "Platform/Appearance/Appearance.h"
#include "Quorvel/ProgramModule.h"

#include <memory>

namespace quorvel {

/// Brings in the module that holds the scenes, at the first of them: a program that only shows its
/// icon is spared the QML engine and its libraries, 8 MB and a quarter of the time to start.
class ScenesLoader final
{
public:
    ScenesLoader();

    /// Throws LocalizedError when the module is missing or does not fit.
    [[nodiscard]] std::unique_ptr<Scenes> makeScenes(AppEnvironment &environment,
                                                     Appearance &appearance);

private:
    ProgramModule m_module;
};

} // namespace quorvel
