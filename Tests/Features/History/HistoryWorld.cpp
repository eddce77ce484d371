#include "Tests/Features/History/HistoryWorld.h"

#include "Core/Keychain/SecItemKeychainStore.h"
#include "Core/Persistence/CheckInPhotoStore.h"
#include "Models/CheckIn.h"
#include "Tests/Support/RunTask.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace quorvel::tests {

HistoryWorld::HistoryWorld()
{
    fileManager.roots = {folder.path()};
}

HistoryWorld::~HistoryWorld() = default;

VisitDetail HistoryWorld::makeDetail(std::shared_ptr<CheckIn> visit)
{
    return VisitDetail(std::move(visit), facilities, pasteboard, renderCard);
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
