#pragma once

#include "Features/History/HistoryScreen.h"
#include "Features/MenuBar/Panel/LaunchAtLoginToggle.h"
#include "Features/MenuBar/Panel/Window/MenuBarScene.h"
#include "Tests/Features/History/HistoryWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelWorld.h"
#include "Tests/Probes/ProbeWorld.h"
#include "_Probes/ProbeScreen.h"

#include <QImage>
#include <QMarginsF>
#include <QQuickItem>

#include <memory>
#include <optional>

class QQmlEngine;

namespace quorvel::tests {

/// Where one view is put up in one state, with a world of its own behind it. Serves the states of
/// the gallery: they script the world, show a view and use it.
class GalleryStage final
{
public:
    /// The view is put into `place`. Both outlive the stage.
    GalleryStage(QQmlEngine &engine, QQuickItem &place);
    ~GalleryStage();

    /// The panel's scene, opened; whatever has been scripted happens.
    void openPanel();
    void showPanel();
    /// What the panel has between its header and its footer, as large as there.
    void showContent();
    void showWifi();
    /// The content of the history's window.
    void showHistory();
    /// The same with its newest visit open, and all of that loaded.
    void showVisit();
    /// What is shared of the visit that is open. Null when it cannot be drawn.
    [[nodiscard]] QImage cardPicture();
    /// The content of the diagnostics' window.
    void showProbe();
    void show(const QString &module, const QString &view, const QVariantMap &properties);
    void showSheet();
    /// The button of this label, in the view.
    void press(const QString &label);
    void scrollToEnd();
    /// Has everything take its place and its size.
    void layOut();
    /// From now on every question is answered, so that a person may press what they like.
    void keepAnswering();

    [[nodiscard]] PanelWorld &world() { return m_world; }
    [[nodiscard]] HistoryWorld &historyWorld() { return m_historyWorld; }
    [[nodiscard]] ProbeWorld &probeWorld() { return m_probeWorld; }
    [[nodiscard]] ProbeScreen &probe() { return *m_probe; }
    [[nodiscard]] MenuBarScene &scene() { return *m_scene; }
    [[nodiscard]] LocatedScreen &located() { return *m_scene->located(); }
    [[nodiscard]] WifiScreen &wifi() { return *m_scene->located()->wifi(); }
    [[nodiscard]] QQuickItem &view() { return *m_view; }
    /// What somebody else has named, and what a view may therefore cut.
    [[nodiscard]] QStringList names();
    /// With what is left free around the view.
    [[nodiscard]] QSizeF size() const;

private:
    void put(std::unique_ptr<QObject> view, const QSizeF &size, qreal margin);

    QQmlEngine &m_engine;
    QQuickItem &m_place;
    // Order: what the view is bound to outlives it.
    PanelWorld m_world;
    HistoryWorld m_historyWorld;
    ProbeWorld m_probeWorld;
    std::optional<MenuBarScene> m_scene;
    std::optional<HistoryScreen> m_history;
    std::optional<ProbeScreen> m_probe;
    LaunchAtLoginToggle m_launchAtLogin;
    std::unique_ptr<QQuickItem> m_view;
    qreal m_margin = 0;
};

} // namespace quorvel::tests
