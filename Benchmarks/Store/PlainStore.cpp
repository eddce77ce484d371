#include "Benchmarks/Store/PlainStore.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace quorvel::benchmarks {

namespace {

void bindText(sqlite3_stmt *statement, int index, const std::string &text)
{
    sqlite3_bind_text(statement, index, text.data(), int(text.size()), SQLITE_STATIC);
}

std::string textOf(sqlite3_stmt *row, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(row, column));
    return {text, size_t(sqlite3_column_bytes(row, column))};
}

std::optional<std::string> optionalTextOf(sqlite3_stmt *row, int column)
{
    if (sqlite3_column_type(row, column) == SQLITE_NULL)
        return std::nullopt;
    return textOf(row, column);
}

void bindVisit(sqlite3_stmt *statement, const PlainVisit &visit)
{
    sqlite3_clear_bindings(statement);
    sqlite3_bind_blob(statement, 1, visit.id.data(), int(visit.id.size()), SQLITE_STATIC);
    sqlite3_bind_int64(statement, 2, visit.date);
    bindText(statement, 3, visit.note);
    if (visit.address)
        bindText(statement, 4, *visit.address);
    if (visit.photoFilename)
        bindText(statement, 5, *visit.photoFilename);
    for (int i = 0; i < 4; ++i)
        sqlite3_bind_int64(statement, 6 + i, visit.ratings[size_t(i)]);
    if (const auto &weather = visit.weather) {
        sqlite3_bind_double(statement, 10, weather->temperatureC);
        sqlite3_bind_double(statement, 11, weather->apparentTemperatureC);
        sqlite3_bind_int64(statement, 12, weather->weatherCode);
        sqlite3_bind_int64(statement, 13, weather->isDay ? 1 : 0);
        sqlite3_bind_int64(statement, 14, weather->capturedAt);
    }
    if (visit.cafe)
        sqlite3_bind_int64(statement, 15, *visit.cafe);
}

PlainVisit visitOf(sqlite3_stmt *row)
{
    PlainVisit visit;
    const auto *id = static_cast<const unsigned char *>(sqlite3_column_blob(row, 0));
    std::copy_n(id, visit.id.size(), visit.id.begin());
    visit.date = sqlite3_column_int64(row, 1);
    visit.note = textOf(row, 2);
    visit.address = optionalTextOf(row, 3);
    visit.photoFilename = optionalTextOf(row, 4);
    for (int i = 0; i < 4; ++i)
        visit.ratings[size_t(i)] = sqlite3_column_int64(row, 5 + i);
    if (sqlite3_column_type(row, 9) != SQLITE_NULL) {
        visit.weather = PlainVisit::Weather{.temperatureC = sqlite3_column_double(row, 9),
                                            .apparentTemperatureC = sqlite3_column_double(row, 10),
                                            .weatherCode = sqlite3_column_int64(row, 11),
                                            .isDay = sqlite3_column_int64(row, 12) != 0,
                                            .capturedAt = sqlite3_column_int64(row, 13)};
    }
    if (sqlite3_column_type(row, 14) != SQLITE_NULL)
        visit.cafe = sqlite3_column_int64(row, 14);
    return visit;
}

} // namespace

PlainStore::PlainStore(const std::string &path)
{
    check(sqlite3_open_v2(path.c_str(), &m_database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                          nullptr));
    for (const char *pragma :
         {"PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL", "PRAGMA foreign_keys = ON"})
        check(sqlite3_exec(m_database, pragma, nullptr, nullptr, nullptr));
    m_begin = prepare("BEGIN IMMEDIATE");
    m_commit = prepare("COMMIT");
    m_insert = prepare("INSERT INTO CheckIn(id, date, note, address, photoFilename, wifiSpeed, "
                       "outlets, noise, quietForCalls, temperatureC, apparentTemperatureC, "
                       "weatherCode, isDay, capturedAt, cafe) "
                       "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    m_selectAll = prepare("SELECT id, date, note, address, photoFilename, wifiSpeed, outlets, "
                          "noise, quietForCalls, temperatureC, apparentTemperatureC, weatherCode, "
                          "isDay, capturedAt, cafe FROM CheckIn");
    m_findCafe = prepare("SELECT pk FROM Cafe WHERE mapItemIdentifier = ? LIMIT 1");
    m_datesAt = prepare("SELECT date FROM CheckIn WHERE cafe = ?");
}

PlainStore::~PlainStore()
{
    for (sqlite3_stmt *statement :
         {m_begin, m_commit, m_insert, m_selectAll, m_findCafe, m_datesAt})
        sqlite3_finalize(statement);
    sqlite3_close(m_database);
}

void PlainStore::save(const PlainVisit &visit)
{
    run(m_begin);
    bindVisit(m_insert, visit);
    run(m_insert);
    run(m_commit);
}

std::vector<PlainVisit> PlainStore::allVisits()
{
    std::vector<PlainVisit> visits;
    while (sqlite3_step(m_selectAll) == SQLITE_ROW)
        visits.push_back(visitOf(m_selectAll));
    check(sqlite3_reset(m_selectAll));
    return visits;
}

bool PlainStore::hasVisit(const std::string &mapItemIdentifier, std::int64_t from,
                          std::int64_t until)
{
    bindText(m_findCafe, 1, mapItemIdentifier);
    bool found = false;
    if (sqlite3_step(m_findCafe) == SQLITE_ROW) {
        sqlite3_bind_int64(m_datesAt, 1, sqlite3_column_int64(m_findCafe, 0));
        while (!found && sqlite3_step(m_datesAt) == SQLITE_ROW) {
            const auto date = sqlite3_column_int64(m_datesAt, 0);
            found = date >= from && date < until;
        }
        check(sqlite3_reset(m_datesAt));
    }
    check(sqlite3_reset(m_findCafe));
    return found;
}

sqlite3_stmt *PlainStore::prepare(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    check(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr));
    return statement;
}

void PlainStore::run(sqlite3_stmt *statement)
{
    if (sqlite3_step(statement) != SQLITE_DONE)
        check(sqlite3_errcode(m_database));
    check(sqlite3_reset(statement));
}

void PlainStore::check(int result)
{
    if (result == SQLITE_OK)
        return;
    std::fprintf(stderr, "the plain store failed: %s\n", sqlite3_errmsg(m_database));
    std::abort();
}

} // namespace quorvel::benchmarks
