#pragma once

#include "Core/Persistence/SwiftDataCheckInRepository.h"
#include "Platform/Files/Xdg/XdgFileManager.h"

#include <QTemporaryDir>

#include <memory>

namespace quorvel::benchmarks {

/// A data folder on a disk. It is removed with this object.
struct DataFolder
{
    static constexpr int cafeCount = 500;
    /// The seed of the visits that fill a store: each identifier appears once.
    static constexpr quint32 fillSeed = 1;

    // This folder survives restarts, so it is not in memory.
    QTemporaryDir folder{QStringLiteral("/var/tmp/quorvel-benchmark-XXXXXX")};
    XdgFileManager files{{.dataHome = folder.path()}};

    [[nodiscard]] QString store() const;
    [[nodiscard]] std::unique_ptr<ModelContainer> open() const;
    [[nodiscard]] SwiftDataCheckInRepository repository() const;

    /// Runs once in a separate process. Otherwise this process's heap would have holes that loaded
    /// objects fill unnoticed.
    void fill(int visitCount) const;
    void copyStore(const DataFolder &from) const;
};

} // namespace quorvel::benchmarks
