#pragma once

#include "Core/Persistence/CheckInRepository.h"

#include <QString>

#include <memory>
#include <optional>

namespace quorvel {

class Clock;
class FileManager;

/// Opens the object store once per process; every scene is built from it. Main thread only.
///
/// The constructor sets exactly one of the two fields. Neither changes later, so readers have
/// nothing to observe. If the store cannot be opened, the program runs on without one: nothing is
/// retried, and no store in memory replaces it.
class AppEnvironment final
{
public:
    /// Both must outlive the environment.
    AppEnvironment(const FileManager &fileManager, const Clock &clock);
    AppEnvironment(const AppEnvironment &) = delete;
    AppEnvironment &operator=(const AppEnvironment &) = delete;
    ~AppEnvironment();

    /// Null if the store could not be opened.
    [[nodiscard]] CheckInRepository *checkInRepository() const { return m_checkInRepository.get(); }
    /// Why the store could not be opened, for the diagnostics.
    [[nodiscard]] const std::optional<QString> &setupError() const { return m_setupError; }

private:
    void setUp(const FileManager &fileManager, const Clock &clock);

    std::unique_ptr<CheckInRepository> m_checkInRepository;
    std::optional<QString> m_setupError;
};

} // namespace quorvel
