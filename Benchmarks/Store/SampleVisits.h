#pragma once

#include "Models/CheckIn.h"

#include <QRandomGenerator>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel::benchmarks {

/// The visits of a user who has been to a hundred cafés for years: notes of every length, and
/// weather for nine of ten. The same seed gives the same visits.
class SampleVisits
{
public:
    SampleVisits(int cafeCount, quint32 seed);

    [[nodiscard]] static QString mapItemIdentifier(int cafe);

    /// The next visit, some hours after the last one. The cafés take turns.
    [[nodiscard]] std::shared_ptr<CheckIn> next();
    /// A visit at this stored café.
    [[nodiscard]] std::shared_ptr<CheckIn> nextAt(std::shared_ptr<Cafe> cafe);

private:
    [[nodiscard]] QUuid uuid();
    [[nodiscard]] QString note();
    [[nodiscard]] std::optional<WeatherSnapshot> weather();

    QRandomGenerator m_random;
    std::vector<std::shared_ptr<Cafe>> m_cafes;
    int m_count = 0;
};

} // namespace quorvel::benchmarks
