#pragma once

#include "Features/CheckIn/Wifi/WifiScanSection.h"
#include "Features/History/HistoryScreen.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelWorld.h"
#include "Tests/Probes/ProbeWorld.h"
#include "_Probes/ProbeViewModel.h"

#include <QImage>
#include <QMarginsF>
#include <QObject>
#include <QQuickItem>
#include <QSizeF>
#include <QVariant>

#include <memory>
#include <optional>

class QQmlEngine;

namespace quorvel::tests {

/// The place where one view is shown in one state, over its own world of fakes. The gallery's
/// states script the world, show a view and use it.
class GalleryStage final
{
public:
    /// The view is put into `place`. The place and the engine must outlive the stage.
    GalleryStage(QQmlEngine &engine, QQuickItem &place);
    ~GalleryStage();

    /// Opens the panel's scene and runs what the script says.
    void openPanel();
    void showPanel();
    /// The panel's content between header and footer, in its real size.
    void showContent();
    void showWifi();
    /// The content of the history's window.
    void showHistory();
    /// The same with its newest visit open and loaded.
    void showVisit();
    /// The shared picture of the open visit. Null if it cannot be drawn.
    [[nodiscard]] QImage cardPicture();
    /// The content of the diagnostics window.
    void showProbe();
    void show(const QString &module, const QString &view, const QVariantMap &properties);
    void showSheet();
    /// The view's button with this label.
    void press(const QString &label);
    void scrollToEnd();
    /// Waits until everything has its place and size.
    void layOut();
    /// From now on every request is answered, so that a person can press anything.
    void keepAnswering();

    [[nodiscard]] PanelWorld &world() { return m_world; }
    [[nodiscard]] HistoryWorld &historyWorld() { return m_historyWorld; }
    [[nodiscard]] ProbeWorld &probeWorld() { return m_probeWorld; }
    [[nodiscard]] MenuBarScene &scene() { return *m_scene; }
    [[nodiscard]] LocatedScreen &located() { return *m_scene->located(); }
    [[nodiscard]] WifiScanSection &wifi() { return *m_scene->located()->wifi(); }
    [[nodiscard]] QQuickItem &view() { return *m_view; }
    /// Names that come from outside. A view may cut them off.
    [[nodiscard]] QStringList names();
    /// With the margin around the view.
    [[nodiscard]] QSizeF size() const;

private:
    void put(std::unique_ptr<QObject> view, const QSizeF &size, qreal margin);

    QQmlEngine &m_engine;
    QQuickItem &m_place;
    // Order: the view is destroyed before the objects that it is bound to.
    PanelWorld m_world;
    HistoryWorld m_historyWorld;
    ProbeWorld m_probeWorld;
    std::unique_ptr<MenuBarScene> m_scene;
    std::optional<HistoryScreen> m_history;
    std::unique_ptr<ProbeViewModel> m_probe;
    std::unique_ptr<QQuickItem> m_view;
    qreal m_margin = 0;
};

} // namespace quorvel::tests
