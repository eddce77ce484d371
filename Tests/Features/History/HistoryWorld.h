#pragma once

#include "Core/Keychain/SecItemKeychainStore.h"
#include "Core/Persistence/FakeCheckInRepository.h"
#include "Features/History/HistoryRoles.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Support/Instants.h"
#include "Tests/Support/RunTask.h"

#include <QDir>
#include <QTemporaryDir>
#include <QThreadPool>

namespace quorvel::tests {

/// Everything that the history asks, as fakes, for tests of its screens. Photos are files in a
/// folder of its own. Outlives the history.
struct HistoryWorld
{
    [[nodiscard]] HistoryRoles roles()
    {
        return {.checkInRepository = &repository,
                .photoStore = CheckInPhotoStore(fileManager),
                .makeKeychain = [this] { return std::make_unique<FakeKeychain>(keychain); },
                .clock = clock,
                .pasteboard = pasteboard,
                .fileManager = fileManager,
                .renderCard = renderCard};
    }

    void savePassword(const QString &password, const QString &ssid)
    {
        SecItemKeychainStore(SecItemKeychainStore::wifiService, keychain)
            .savePassword(password, ssid);
    }
    void putPhoto(const QImage &photo, const QString &name)
    {
        const QString path = CheckInPhotoStore(fileManager).url(name).toLocalFile();
        if (!QDir().mkpath(QFileInfo(path).path()) || !photo.save(path))
            qFatal("the photo could not be written");
    }
    /// Has what is read in the background arrive.
    static void finishLoading()
    {
        QThreadPool::globalInstance()->waitForDone();
        turnEventLoop();
    }

    FakeCheckInRepository repository;
    FakeClock clock{instant(QStringLiteral("2026-11-21T12:00:00Z"))};
    NotificationCenter center;
    FakePasteboard pasteboard;
    CardRenderer renderCard = [](VisitDetail &) { return QImage(1, 1, QImage::Format_RGB32); };
    /// Each thread is given a copy.
    FakeKeychain keychain;
    QTemporaryDir folder;
    FakeFileManager fileManager{{folder.path()}};
};

} // namespace quorvel::tests
