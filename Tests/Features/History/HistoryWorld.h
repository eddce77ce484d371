#pragma once

#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/History/HistoryRoles.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Support/Instants.h"

#include <QTemporaryDir>

namespace quorvel::tests {

/// Fakes of everything that the history uses, for tests of its screens. Photos are files in its own
/// folder. It outlives the history.
struct HistoryWorld
{
    HistoryWorld();
    ~HistoryWorld();
    Q_DISABLE_COPY_MOVE(HistoryWorld)

    [[nodiscard]] HistoryRoles roles();

    void savePassword(const QString &password, const QString &ssid);
    void putPhoto(const QImage &photo, const QString &name);
    /// Waits until background reads have arrived.
    static void finishLoading();

    FakeCheckInRepository repository;
    FakeClock clock{instant(QStringLiteral("2026-11-21T12:00:00Z"))};
    NotificationCenter center;
    FakePasteboard pasteboard;
    CardRenderer renderCard = [](VisitDetail &) { return QImage(1, 1, QImage::Format_RGB32); };
    /// Every thread gets a copy.
    FakeKeychain keychain;
    QTemporaryDir folder;
    FakeFileManager fileManager{{folder.path()}};
};

} // namespace quorvel::tests
