#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace quorvel::benchmarks {

/// One visit as plain values of its row.
struct PlainVisit
{
    struct Weather
    {
        double temperatureC = 0;
        double apparentTemperatureC = 0;
        std::int64_t weatherCode = 0;
        bool isDay = false;
        std::int64_t capturedAt = 0;
    };

    std::array<unsigned char, 16> id{};
    std::int64_t date = 0;
    std::string note;
    std::optional<std::string> address;
    std::optional<std::string> photoFilename;
    std::array<std::int64_t, 4> ratings{};
    std::optional<Weather> weather;
    std::optional<std::int64_t> cafe;
};

/// The reference: the same file and durability through SQLite's C interface alone. Any failure ends
/// the program.
class PlainStore
{
public:
    explicit PlainStore(const std::string &path);
    PlainStore(const PlainStore &) = delete;
    PlainStore &operator=(const PlainStore &) = delete;
    ~PlainStore();

    void save(const PlainVisit &visit);
    [[nodiscard]] std::vector<PlainVisit> allVisits();
    [[nodiscard]] bool hasVisit(const std::string &mapItemIdentifier, std::int64_t from,
                                std::int64_t until);

private:
    sqlite3_stmt *prepare(const char *sql);
    void run(sqlite3_stmt *statement);
    void check(int result);

    sqlite3 *m_database = nullptr;
    sqlite3_stmt *m_begin = nullptr;
    sqlite3_stmt *m_commit = nullptr;
    sqlite3_stmt *m_insert = nullptr;
    sqlite3_stmt *m_selectAll = nullptr;
    sqlite3_stmt *m_findCafe = nullptr;
    sqlite3_stmt *m_datesAt = nullptr;
};

} // namespace quorvel::benchmarks
