#pragma once

#include "Core/Persistence/CheckInRepository.h"
#include "Models/Cafe.h"
#include "Platform/Errors/LocalizedError.h"

#include <QStringList>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel {

/// Visits in memory. Records its calls, and fails when a test says so.
class FakeCheckInRepository final : public CheckInRepository
{
public:
    /// The error of the operations that a test lets fail.
    class Failure final : public LocalizedError
    {
    public:
        explicit Failure(QString sentence)
            : m_sentence(std::move(sentence))
        {}
        [[nodiscard]] QString errorDescription() const override { return m_sentence; }

    private:
        QString m_sentence;
    };

    void inTurn(const std::function<void()> &action) override
    {
        note(QStringLiteral("inTurn"));
        action();
    }

    [[nodiscard]] std::vector<std::shared_ptr<CheckIn>> allCheckIns() override
    {
        note(QStringLiteral("allCheckIns"));
        return {visits.rbegin(), visits.rend()};
    }

    [[nodiscard]] std::shared_ptr<Cafe> findOrCreateCafe(const PlaceCandidate &from) override
    {
        note(QStringLiteral("findOrCreateCafe"));
        for (const auto &cafe : cafes)
            if (from.mapItemIdentifier && cafe->mapItemIdentifier() == from.mapItemIdentifier)
                return cafe;
        cafes.push_back(std::make_shared<Cafe>(QUuid::createUuid(), from.name, from.latitude,
                                               from.longitude, std::nullopt,
                                               from.mapItemIdentifier));
        return cafes.back();
    }

    [[nodiscard]] bool hasCheckedInToday(const std::optional<QString> &mapItemIdentifier) override
    {
        note(QStringLiteral("hasCheckedInToday"));
        return mapItemIdentifier && checkedInToday.contains(*mapItemIdentifier);
    }

    void save(const std::shared_ptr<CheckIn> &checkIn) override
    {
        note(QStringLiteral("save"));
        visits.push_back(checkIn);
    }

    /// The cafés, by map identifier.
    QStringList checkedInToday;
    std::vector<std::shared_ptr<Cafe>> cafes;
    /// In the order of saving.
    std::vector<std::shared_ptr<CheckIn>> visits;

    /// The operations that throw, with the description of the error.
    QStringList failing;
    QString failure;

    QStringList calls;

private:
    void note(const QString &operation)
    {
        calls.append(operation);
        if (failing.contains(operation))
            throw Failure(failure);
    }
};

} // namespace quorvel
