#pragma once

#include "Core/Persistence/CheckInRepository.h"
#include "Platform/Files/FileManager.h"

#include <memory>
#include <optional>

namespace quorvel {

/// What every scene is built from: opens the object store, once per process. Main thread only.
///
/// Exactly one of its two fields is set by the constructor, and neither changes after it, so that
/// whoever reads them has nothing to observe. A store that cannot be opened does not
/// stop the program; nothing is retried, and no store in memory stands in for it.
class AppEnvironment final
{
public:
    explicit AppEnvironment(const FileManager &fileManager = FileManager::standard());
    AppEnvironment(const AppEnvironment &) = delete;
    AppEnvironment &operator=(const AppEnvironment &) = delete;
    ~AppEnvironment();

    /// Null when the store could not be opened.
    [[nodiscard]] CheckInRepository *checkInRepository() const { return m_checkInRepository.get(); }
    /// The description of what kept the store from opening; kept for diagnosis.
    [[nodiscard]] const std::optional<QString> &setupError() const { return m_setupError; }

private:
    void setUp(const FileManager &fileManager);

    std::unique_ptr<CheckInRepository> m_checkInRepository;
    std::optional<QString> m_setupError;
};

} // namespace quorvel
