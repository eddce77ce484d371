#pragma once

#include "Core/Persistence/CheckInRepository.h"
#include "Platform/Files/FileManager.h"

#include <QObject>

#include <memory>
#include <optional>

namespace quorvel {

/// What every scene is built from: opens the object store, once per process. Main thread only.
///
/// Exactly one of its two fields is set after construction. A store that cannot be opened does not
/// stop the program; nothing is retried, and no store in memory stands in for it.
class AppEnvironment final : public QObject
{
    Q_OBJECT

public:
    explicit AppEnvironment(const FileManager &fileManager = FileManager::standard());
    ~AppEnvironment() override;

    /// Null when the store could not be opened.
    [[nodiscard]] CheckInRepository *checkInRepository() const { return m_checkInRepository.get(); }
    /// The description of what kept the store from opening; kept for diagnosis.
    [[nodiscard]] const std::optional<QString> &setupError() const { return m_setupError; }

signals:
    void checkInRepositoryChanged();
    void setupErrorChanged();

private:
    void setUp(const FileManager &fileManager);

    std::unique_ptr<CheckInRepository> m_checkInRepository;
    std::optional<QString> m_setupError;
};

} // namespace quorvel
