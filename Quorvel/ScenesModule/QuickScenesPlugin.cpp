#include "Quorvel/ScenesModule/QuickScenesPlugin.h"

#include "Quorvel/Endpoints.h"
#include "Quorvel/ScenesModule/LiveFacilities.h"
#include "Quorvel/ScenesModule/QuickScenes.h"

#include <QProcessEnvironment>

namespace quorvel {
namespace {

/// The scenes of the program, with the system that they run on.
class LiveScenes final : public Scenes
{
public:
    LiveScenes(SceneContext context, const Endpoints &endpoints)
        : m_facilities(endpoints)
        , m_scenes(std::move(context), m_facilities.menuBar())
    {}

    void toggleMenuBarPanel(const QRect &anchor) override { m_scenes.toggleMenuBarPanel(anchor); }
    void openMenuBarPanel(const QRect &anchor) override { m_scenes.openMenuBarPanel(anchor); }
    [[nodiscard]] bool openWindow(const QString &identifier) override
    {
        return m_scenes.openWindow(identifier);
    }

private:
    LiveFacilities m_facilities;
    QuickScenes m_scenes;
};

} // namespace

std::unique_ptr<Scenes> QuickScenesPlugin::makeScenes(SceneContext context)
{
    const auto endpoints = Endpoints::read(QProcessEnvironment::systemEnvironment());
    return std::make_unique<LiveScenes>(std::move(context), endpoints);
}

} // namespace quorvel
