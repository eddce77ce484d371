#pragma once

#include "Core/DI/Services.h"
#include "Core/Support/Tasks/Task.h"
#include "Core/Support/ViewState.h"
#include "Features/MenuBar/Loop/LocatedSnapshot.h"
#include "Features/MenuBar/Loop/MenuBarInput.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Location/Location.h"

#include <QObject>

#include <optional>
#include <stop_token>
#include <vector>

namespace quorvel {

/// The daily loop behind the panel: the user's position, café, weather and network. It reuses a
/// result for ten minutes and a hundred metres, and falls back to a snapshot without a café. Main
/// thread only.
class MenuBarViewModel final : public QObject
{
    Q_OBJECT

public:
    /// The clock must outlive the view model.
    MenuBarViewModel(const Services &services, const Clock &clock, QObject *parent = nullptr);
    ~MenuBarViewModel() override;

    /// Ends the running load, and acts in its own turn of the event loop. The newest input wins.
    void send(const MenuBarInput &input);

    [[nodiscard]] const ViewState<LocatedSnapshot> &state() const { return m_state; }
    /// Whether a load runs, even while an older result is shown.
    [[nodiscard]] bool isLocating() const { return m_isLocating; }

signals:
    void stateChanged();
    void isLocatingChanged();

private:
    enum class ForceRefresh : bool { No, Yes };
    struct Load;

    void run(const MenuBarInput &input, const std::stop_token &stop);
    void locateAndLoad(ForceRefresh forceRefresh, const std::stop_token &stop);
    [[nodiscard]] static Task<> locateToEnd(Load load);
    [[nodiscard]] static Task<> locate(Load load);
    [[nodiscard]] static Task<> search(Load load, Location location);
    [[nodiscard]] static Task<> loadDetails(Load load, std::vector<PlaceCandidate> candidates,
                                            Location location);
    void selectCafe(const PlaceCandidate &candidate);

    [[nodiscard]] bool needsFresh(ForceRefresh forceRefresh) const;
    [[nodiscard]] bool isReusable(const Load &load, const Location &location) const;
    [[nodiscard]] LocatedSnapshot degradedSnapshot();
    [[nodiscard]] LocatedSnapshot snapshotOn(const std::optional<QString> &ssid);
    [[nodiscard]] bool hasRememberedPassword(const std::optional<QString> &ssid);
    void setState(ViewState<LocatedSnapshot> state);
    void setLocating(bool isLocating);

    Services m_services;
    const Clock &m_clock;
    ViewState<LocatedSnapshot> m_state = ViewState<LocatedSnapshot>::idle();
    std::stop_source m_loadTask;
    bool m_isLocating = false;

    /// The last state with a full snapshot, with its position and time; idle before.
    ViewState<LocatedSnapshot> m_lastSnapshot = ViewState<LocatedSnapshot>::idle();
    std::optional<Location> m_lastLocation;
    std::optional<Instant> m_lastSnapshotAt;
};

} // namespace quorvel
