#include "_Probes/ProbeViewModel.h"

#include "Core/Persistence/CheckInRepository.h"
#include "Core/Support/AppError.h"
#include "Features/History/List/HistoryTexts.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Pasteboard/Pasteboard.h"
#include "Services/Location/LocationService.h"
#include "Services/Places/PlacesService.h"
#include "Services/Wifi/WifiModels.h"
#include "_Probes/Log/ProbeTexts.h"
#include "_Probes/Log/ShareableText.h"

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr double radiusMeters = 100;
constexpr std::size_t listedCheckIns = 5;

} // namespace

ProbeViewModel::ProbeViewModel(const Services &actions, const Services &loop,
                               CheckInRepository *repository, const QString &setupError,
                               const Facilities &facilities, Pasteboard &pasteboard,
                               QObject *parent)
    : QObject(parent)
    , m_actions(actions)
    , m_repository(repository)
    , m_setupError(setupError)
    , m_facilities(facilities)
    , m_pasteboard(pasteboard)
    , m_loop(loop, facilities.clock)
    , m_authStatus(m_facilities.makeLocationManager()->authorizationStatus())
{
    // Order: read the name before anything about the position.
    m_ssidBefore = readSSID(u"before"_s);
    m_authStatus = m_facilities.makeLocationManager()->authorizationStatus();
    append(u"Auth status on launch: "_s + ProbeTexts::authorization(m_authStatus), Kind::Normal);
}

void ProbeViewModel::locate()
{
    if (m_isLocating)
        return;
    m_isLocating = true;
    m_position.reset();
    m_coordinates.clear();
    m_accuracy.clear();
    m_verdict.clear();
    append(u"Location"_s, Kind::Separator);
    append(u"Asking for authorization"_s, Kind::Normal);
    spawn(locate(QPointer(this)));
}

void ProbeViewModel::searchCafes()
{
    if (m_isSearching)
        return;
    append(u"Cafés"_s, Kind::Separator);
    if (!m_position)
        return append(u"There is no position to search around: locate first."_s, Kind::Error);
    m_isSearching = true;
    m_cafes.clear();
    append(u"Searching within "_s + ProbeTexts::meters(radiusMeters), Kind::Normal);
    spawn(search(QPointer(this), *m_position));
}

void ProbeViewModel::readCheckIns()
{
    append(u"Check-ins"_s, Kind::Separator);
    if (!m_repository)
        return append(u"The store is not open: "_s + m_setupError, Kind::Error);
    try {
        note(m_repository->allCheckIns());
    } catch (const LocalizedError &error) {
        append(error.errorDescription(), Kind::Error);
    }
}

void ProbeViewModel::copyLog()
{
    QStringList lines{u"Quorvel diagnostics, without names and with rounded coordinates"_s};
    for (const LogLine &line : logLines())
        lines.append(ShareableText::line(line, m_names));
    m_pasteboard.setText(lines.join(u'\n') + u'\n');
    append(u"Log copied, without names and with coordinates rounded to about a kilometre"_s,
           Kind::Success);
}

Task<> ProbeViewModel::locate(QPointer<ProbeViewModel> self)
{
    auto *service = &self->m_actions.location;
    const auto status = co_await service->requestAuthorization();
    if (!self)
        co_return;
    self->m_authStatus = status;
    self->append(u"Auth status: "_s + ProbeTexts::authorization(status),
                 status == AuthorizationStatus::AuthorizedAlways ? Kind::Success : Kind::Error);
    try {
        const auto location = co_await service->currentLocation();
        if (self)
            self->note(location);
    } catch (const AppError &error) {
        if (self)
            self->append(error.errorDescription(), Kind::Error);
    }
    if (self)
        self->judge();
}

Task<> ProbeViewModel::search(QPointer<ProbeViewModel> self, Coordinate around)
{
    auto *service = &self->m_actions.places;
    try {
        const auto cafes = co_await service->nearbyCafes(around, radiusMeters);
        if (self)
            self->note(cafes);
    } catch (const AppError &error) {
        if (self)
            self->append(error.errorDescription(), Kind::Error);
    }
    if (!self)
        co_return;
    self->m_isSearching = false;
    emit self->changed();
}

/// Also writes it to the log. "(nil)" without a network.
QString ProbeViewModel::readSSID(const QString &when)
{
    const auto ssid = m_actions.wifi.currentSSID();
    if (ssid)
        m_names.append(*ssid);
    const QString beginning = u"SSID "_s + when + u" Location: "_s;
    append(beginning + ssid.value_or(ProbeTexts::noName()), ssid ? Kind::Success : Kind::Error,
           beginning + (ssid ? ShareableText::leftOut() : ProbeTexts::noName()));
    return ssid.value_or(ProbeTexts::noName());
}

void ProbeViewModel::note(const Location &location)
{
    m_position = Coordinate{location.latitude, location.longitude};
    m_coordinates = ProbeTexts::position(*m_position);
    m_accuracy = u"±"_s + ProbeTexts::meters(location.accuracyMeters);
    append(u"Coordinates: "_s + m_coordinates, Kind::Success,
           u"Coordinates: "_s + ShareableText::position(*m_position));
    append(u"Accuracy: "_s + m_accuracy, Kind::Normal);
}

void ProbeViewModel::note(const std::vector<PlaceCandidate> &cafes)
{
    append(QString::number(cafes.size()) + u" café(s) found"_s, Kind::Success);
    for (const PlaceCandidate &cafe : cafes) {
        const Row row{cafe.id, cafe.name, ProbeTexts::meters(cafe.distanceMeters), cafe.category};
        m_cafes.append(row);
        m_names.append(row.name);
        append(row.name + u" · "_s + row.distance + u" · "_s + row.category, Kind::Normal,
               ShareableText::leftOut() + u" · "_s + row.category);
    }
}

void ProbeViewModel::note(const std::vector<std::shared_ptr<CheckIn>> &visits)
{
    m_checkInCount = int(visits.size());
    m_recentCheckIns.clear();
    append(QString::number(m_checkInCount) + u" check-in(s) stored"_s, Kind::Success);
    const Calendar calendar = m_facilities.clock.calendar();
    for (const auto &visit : std::span(visits).first(std::min(visits.size(), listedCheckIns))) {
        const auto time = calendar.localTime(visit->date()).toString(u"yyyy-MM-dd HH:mm"_s);
        m_recentCheckIns.append(time + u" · "_s + HistoryTexts::title(*visit));
        m_names.append(HistoryTexts::title(*visit));
        append(m_recentCheckIns.last(), Kind::Normal, ShareableText::leftOut());
    }
}

void ProbeViewModel::judge()
{
    m_ssidAfter = readSSID(u"after"_s);
    m_verdict = ProbeTexts::verdict(m_ssidBefore, m_ssidAfter);
    m_isLocating = false;
    append(m_verdict, Kind::Normal);
}

void ProbeViewModel::append(const QString &text, Kind kind)
{
    append(text, kind, text);
}

void ProbeViewModel::append(const QString &text, Kind kind, const QString &shareableText)
{
    auto lines = logLines();
    lines.append({.number = int(lines.size()),
                  .text = ProbeTexts::onOneLine(text),
                  .kind = kind,
                  .shareableText = ProbeTexts::onOneLine(shareableText)});
    m_log.setRecords(lines);
    emit changed();
}

} // namespace quorvel
