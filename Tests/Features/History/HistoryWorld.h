#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/History/HistoryScreen.h"
#include "Models/CheckIn.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QImage>
#include <QTemporaryDir>

#include <memory>

namespace quorvel::tests {

/// Fakes of everything that the history uses, for tests of its screens. Photos are files in its own
/// folder. It outlives the history.
struct HistoryWorld : QuietFacilities
{
    HistoryWorld();
    ~HistoryWorld();

    /// Of a visit that is open.
    [[nodiscard]] VisitDetail makeDetail(std::shared_ptr<CheckIn> visit);

    void savePassword(const QString &password, const QString &ssid);
    void putPhoto(const QImage &photo, const QString &name);
    /// Waits until background reads have arrived.
    static void finishLoading();

    FakeCheckInRepository repository;
    CardRenderer renderCard = [](VisitDetail &) { return QImage(1, 1, QImage::Format_RGB32); };
    QTemporaryDir folder;
};

} // namespace quorvel::tests
