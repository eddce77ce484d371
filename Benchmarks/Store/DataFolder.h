#pragma once

#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Platform/Files/Xdg/XdgFileManager.h"

#include <QTemporaryDir>

namespace quorvel::benchmarks {

/// A data folder on a disk, gone with its owner.
struct DataFolder
{
    static constexpr int cafeCount = 500;
    /// Of the visits that fill a store: an identifier stands there once.
    static constexpr quint32 fillSeed = 1;

    // The system keeps this one across restarts, so it is not in memory.
    QTemporaryDir folder{QStringLiteral("/var/tmp/quorvel-benchmark-XXXXXX")};
    XdgFileManager files{{.dataHome = folder.path()}};

    [[nodiscard]] QString store() const;
    [[nodiscard]] std::unique_ptr<ModelContainer> open() const;
    [[nodiscard]] SwiftDataCheckInRepository repository() const;

    /// Once, in a process of its own, so that the heap of this one has no holes that loaded objects
    /// would fill unseen.
    void fill(int visitCount) const;
    void copyStore(const DataFolder &from) const;
};

} // namespace quorvel::benchmarks
