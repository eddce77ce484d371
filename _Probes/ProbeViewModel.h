#pragma once

#include "Core/DI/Facilities.h"
#include "Core/DI/Services.h"
#include "Core/Support/RecordListModel.h"
#include "Core/Support/Tasks/Task.h"
#include "Models/PlaceCandidate.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Platform/Location/LocationManager.h"
#include "_Probes/Log/LogLine.h"
#include "_Probes/Loop/MenuBarViewModelProbe.h"

#include <QPointer>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

class CheckIn;
class CheckInRepository;
class Pasteboard;

/// The diagnostics for their window: what the services know at the start, and their answers to each
/// action, as lines of a log. It continues after its window closes, and ends silently when it is
/// destroyed.
class ProbeViewModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made for the window")
    Q_PROPERTY(quorvel::MenuBarViewModelProbe *loop READ loop CONSTANT)
    Q_PROPERTY(bool isLocating READ isLocating NOTIFY changed)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY changed)
    Q_PROPERTY(QObject *log READ log CONSTANT)

public:
    /// A café of the last search.
    struct Row
    {
        QString id;
        QString name;
        QString distance; ///< "42 m"
        QString category;

        friend bool operator==(const Row &, const Row &) = default;
    };

    /// Reads the network's name before anything asks for the position, so that `ssidAfter` can show
    /// a difference. The loop has its own services, since it and an action may ask for the position
    /// at the same time. The repository is null if the store could not be opened; the error then
    /// says why. All of these must outlive the view model.
    ProbeViewModel(const Services &actions, const Services &loop, CheckInRepository *repository,
                   const QString &setupError, const Facilities &facilities, Pasteboard &pasteboard,
                   QObject *parent = nullptr);

    /// Asks for one position, then for the network's name again. Ignored while it runs.
    Q_INVOKABLE void locate();
    /// Lists the cafés around the last position, in the service's order. Ignored while it runs.
    Q_INVOKABLE void searchCafes();
    Q_INVOKABLE void readCheckIns();
    /// Copies the log without private data.
    Q_INVOKABLE void copyLog();

    /// The daily loop under manual control.
    [[nodiscard]] MenuBarViewModelProbe *loop() { return &m_loop; }
    [[nodiscard]] AuthorizationStatus authStatus() const { return m_authStatus; }
    [[nodiscard]] const QString &coordinates() const { return m_coordinates; }
    [[nodiscard]] const QString &accuracy() const { return m_accuracy; }
    [[nodiscard]] const QString &ssidBefore() const { return m_ssidBefore; }
    [[nodiscard]] const QString &ssidAfter() const { return m_ssidAfter; }
    [[nodiscard]] const QList<Row> &cafes() const { return m_cafes; }
    [[nodiscard]] bool isLocating() const { return m_isLocating; }
    [[nodiscard]] bool isSearching() const { return m_isSearching; }
    /// Whether locating changed the network's name; empty before.
    [[nodiscard]] const QString &verdict() const { return m_verdict; }
    [[nodiscard]] const QList<LogLine> &logLines() const { return m_log.records(); }
    [[nodiscard]] RecordListModel<LogLine> *log() { return &m_log; }
    [[nodiscard]] int checkInCount() const { return m_checkInCount; }
    /// Newest first: time and café.
    [[nodiscard]] const QStringList &recentCheckIns() const { return m_recentCheckIns; }

signals:
    void changed();

private:
    using Kind = LogLine::Kind;

    [[nodiscard]] static Task<> locate(QPointer<ProbeViewModel> self);
    [[nodiscard]] static Task<> search(QPointer<ProbeViewModel> self, Coordinate around);
    [[nodiscard]] QString readSSID(const QString &when);
    void note(const Location &location);
    void note(const std::vector<PlaceCandidate> &cafes);
    void note(const std::vector<std::shared_ptr<CheckIn>> &visits);
    void judge();
    void append(const QString &text, Kind kind);
    void append(const QString &text, Kind kind, const QString &shareableText);

    Services m_actions;
    CheckInRepository *m_repository;
    QString m_setupError;
    const Facilities &m_facilities;
    Pasteboard &m_pasteboard;
    MenuBarViewModelProbe m_loop;
    AuthorizationStatus m_authStatus;
    QString m_coordinates;
    QString m_accuracy;
    QString m_ssidBefore = QStringLiteral("(not checked)");
    QString m_ssidAfter = QStringLiteral("(not checked)");
    QList<Row> m_cafes;
    bool m_isLocating = false;
    QString m_verdict;
    RecordListModel<LogLine> m_log;
    int m_checkInCount = 0;
    QStringList m_recentCheckIns;

    bool m_isSearching = false;
    std::optional<Coordinate> m_position;
    /// Names of networks and cafés, which no stranger may read.
    QStringList m_names;
};

} // namespace quorvel
