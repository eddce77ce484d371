#include "Tests/Features/History/HistoryWorld.h"

#include "Core/Keychain/SecItemKeychainStore.h"
#include "Tests/Support/RunTask.h"

#include <QDir>
#include <QThreadPool>

namespace quorvel::tests {

HistoryWorld::HistoryWorld() = default;
HistoryWorld::~HistoryWorld() = default;

HistoryRoles HistoryWorld::roles()
{
    return {.checkInRepository = &repository,
            .photoStore = CheckInPhotoStore(fileManager),
            .makeKeychain = [this] { return std::make_unique<FakeKeychain>(keychain); },
            .clock = clock,
            .pasteboard = pasteboard,
            .fileManager = fileManager,
            .renderCard = renderCard};
}

void HistoryWorld::savePassword(const QString &password, const QString &ssid)
{
    SecItemKeychainStore(SecItemKeychainStore::wifiService, keychain).savePassword(password, ssid);
}

void HistoryWorld::putPhoto(const QImage &photo, const QString &name)
{
    const QString path = CheckInPhotoStore(fileManager).url(name).toLocalFile();
    if (!QDir().mkpath(QFileInfo(path).path()) || !photo.save(path))
        qFatal("the photo could not be written");
}

void HistoryWorld::finishLoading()
{
    QThreadPool::globalInstance()->waitForDone();
    turnEventLoop();
}

} // namespace quorvel::tests
