// Checks in at a few cafés until it is killed, and prints the id of each visit after it is saved.
// CrashTest kills it.

#include "Core/Persistence/ModelContainer+App.h"
#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Models/CheckIn.h"
#include "Models/PlaceCandidate.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Platform/Files/Xdg/XdgFileManager.h"

#include <QFile>
#include <QUuid>

#include <chrono>
#include <memory>
#include <optional>
#include <unistd.h>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

constexpr int cafeCount = 5;
constexpr Instant firstVisit{std::chrono::seconds(1'792'368'000)};

PlaceCandidate place(int number)
{
    return {.id = QString::number(number),
            .name = u"Cà phê %1"_s.arg(number),
            .latitude = 10.77,
            .longitude = 106.7,
            .distanceMeters = 12,
            .category = u"Cafe"_s,
            .address = u"%1 Lê Lợi"_s.arg(number),
            .mapItemIdentifier = u"node/%1"_s.arg(number)};
}

/// Writes without any buffer, so that the text is in the pipe even if this process is killed.
bool report(const QUuid &id)
{
    const QByteArray line = id.toByteArray(QUuid::WithoutBraces) + '\n';
    return ::write(STDOUT_FILENO, line.constData(), size_t(line.size())) == line.size();
}

bool checkIn(SwiftDataCheckInRepository &repository, int number)
{
    const PlaceCandidate candidate = place(number % cafeCount);
    const auto cafe = repository.findOrCreateCafe(candidate);
    const auto visit = std::make_shared<CheckIn>(
        QUuid::createUuid(), firstVisit + std::chrono::seconds(number), u"Ghi chú"_s.repeated(9),
        candidate.address, std::nullopt, WorkRatings{3, 3, 3, 3}, WeatherSnapshot{}, cafe);
    repository.save(visit);
    return report(visit->id());
}

} // namespace

int main(int argumentCount, char **arguments)
{
    if (argumentCount != 2)
        return 2;
    const XdgFileManager files({.dataHome = QFile::decodeName(arguments[1])});
    SwiftDataCheckInRepository repository(AppModelContainer::make(InMemory::No, files),
                                          CheckInPhotoStore(files), Clock::system());
    int number = 0;
    while (checkIn(repository, number))
        ++number;
    return 1;
}
