#pragma once

#include "Models/CheckIn.h"
#include "Tests/Support/Instants.h"

#include <QUuid>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::tests {

using Visits = std::vector<std::shared_ptr<CheckIn>>;

inline std::shared_ptr<Cafe> cafe(const QString &name)
{
    return std::make_shared<Cafe>(QUuid::createUuid(), name, 1, 2, std::nullopt, std::nullopt);
}

inline std::shared_ptr<CheckIn> visit(const QString &date, std::shared_ptr<Cafe> at = nullptr)
{
    return std::make_shared<CheckIn>(QUuid::createUuid(), instant(date), QString(), std::nullopt,
                                     std::nullopt, WorkRatings(), std::nullopt, std::move(at));
}

inline Visits visits(const QStringList &dates)
{
    Visits result;
    for (const QString &date : dates)
        result.push_back(visit(date));
    return result;
}

} // namespace quorvel::tests
