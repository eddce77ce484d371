#pragma once

#include <QRect>
#include <QString>
#include <QtPlugin>

#include <memory>

namespace quorvel {

class AppEnvironment;
class Appearance;

/// All that the program can show, by its entry's words. Each scene is built when it is first
/// opened and then kept. Main thread only.
class Scenes
{
public:
    virtual ~Scenes() = default;

    /// A click on the status item: opens the panel, or closes it. `anchor` is where the item is,
    /// empty when its host does not tell.
    virtual void toggleMenuBarPanel(const QRect &anchor) = 0;

    /// Every other way in. A panel that is open comes to the front.
    virtual void openMenuBarPanel(const QRect &anchor) = 0;

    /// Opens the window or brings it to the front; false when no window has this identifier.
    [[nodiscard]] virtual bool openWindow(const QString &identifier) = 0;
};

/// The way into the module that holds the scenes. The program loads it with the first of them, so
/// that an icon that nobody clicks does without Qt Quick.
class ScenesPlugin
{
public:
    virtual ~ScenesPlugin() = default;

    /// Both outlive the scenes. Throws LocalizedError when this system cannot show them.
    [[nodiscard]] virtual std::unique_ptr<Scenes> makeScenes(AppEnvironment &environment,
                                                             Appearance &appearance) = 0;
};

} // namespace quorvel

#define QUORVEL_SCENES_PLUGIN_IID "com.zantho.quorvel.ScenesPlugin"
Q_DECLARE_INTERFACE(quorvel::ScenesPlugin, QUORVEL_SCENES_PLUGIN_IID)
