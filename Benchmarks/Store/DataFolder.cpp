#include "Benchmarks/Store/DataFolder.h"

#include "Benchmarks/Store/SampleVisits.h"
#include "Core/Persistence/ModelContainer+App.h"

#include <QDir>
#include <QFile>
#include <sys/wait.h>

#include <memory>
#include <unistd.h>

namespace quorvel::benchmarks {

using namespace Qt::StringLiterals;

namespace {

void fillHere(const DataFolder &folder, int visitCount)
{
    SampleVisits visits(DataFolder::cafeCount, DataFolder::fillSeed);
    const auto container = folder.open();
    for (int i = 0; i < visitCount; ++i)
        container->mainContext().insert(visits.next());
    container->mainContext().save();
}

} // namespace

QString DataFolder::store() const
{
    return folder.filePath(u"Quorvel/Quorvel.store"_s);
}

std::unique_ptr<ModelContainer> DataFolder::open() const
{
    return AppModelContainer::make(InMemory::No, files);
}

SwiftDataCheckInRepository DataFolder::repository() const
{
    return SwiftDataCheckInRepository(open(), CheckInPhotoStore(files), Clock::system());
}

void DataFolder::fill(int visitCount) const
{
    const pid_t child = fork();
    if (child == 0) {
        fillHere(*this, visitCount);
        _exit(0);
    }
    int status = -1;
    if (waitpid(child, &status, 0) != child || status != 0)
        qFatal("the store could not be filled");
}

void DataFolder::copyStore(const DataFolder &from) const
{
    if (!QDir(folder.path()).mkdir(u"Quorvel"_s) || !QFile::copy(from.store(), store()))
        qFatal("the store could not be copied");
}

} // namespace quorvel::benchmarks
