#pragma once

#include <QRect>
#include <QString>
#include <QtPlugin>

#include <memory>

namespace quorvel {

class AppEnvironment;
class Appearance;

/// Everything that the program can show. A scene is built when it first opens, and then kept. Main
/// thread only.
class Scenes
{
public:
    virtual ~Scenes() = default;

    /// A click on the status item: opens or closes the panel. `anchor` is the item's place, empty
    /// if its host does not tell it.
    virtual void toggleMenuBarPanel(const QRect &anchor) = 0;

    /// For every other way in. An open panel comes to the front.
    virtual void openMenuBarPanel(const QRect &anchor) = 0;

    /// Opens the window or brings it to the front. Returns false if no window has this identifier.
    [[nodiscard]] virtual bool openWindow(const QString &identifier) = 0;
};

/// The entry of the module with the scenes. The program loads it with the first scene, so an icon
/// that nobody clicks does without Qt Quick.
class ScenesPlugin
{
public:
    virtual ~ScenesPlugin() = default;

    /// Both must outlive the scenes. Throws LocalizedError if this system cannot show them.
    [[nodiscard]] virtual std::unique_ptr<Scenes> makeScenes(AppEnvironment &environment,
                                                             Appearance &appearance) = 0;
};

} // namespace quorvel

#define QUORVEL_SCENES_PLUGIN_IID "com.zantho.quorvel.ScenesPlugin"
Q_DECLARE_INTERFACE(quorvel::ScenesPlugin, QUORVEL_SCENES_PLUGIN_IID)
