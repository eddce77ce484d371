#pragma once

#include "Platform/Files/FileManager.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace quorvel::tests {

/// The promises of every file manager.
class FileManagerContract : public QObject
{
    Q_OBJECT

protected:
    /// The expected location of the application's own files.
    [[nodiscard]] QString root() const;
    [[nodiscard]] virtual std::unique_ptr<FileManager> make() = 0;
    /// Creates a plain file at the path.
    virtual void putFile(const QString &path) = 0;
    /// Leaves nothing at the folder's path and forbids creating anything in it.
    virtual void loseFolderOf(const QString &path) = 0;
    [[nodiscard]] virtual QByteArray content(const QString &path) = 0;

private slots:
    void init();

    void theFirstUrlIsTheUrl();
    void aFolderMayBeMadeTwice();
    void aFileInTheFoldersPlaceIsAnError();
    void aFileInTheRootsPlaceIsAnErrorOnlyWhenItHasToBeMade();
    void aFileTakesThePlaceOfTheOneBefore();
    void aFileInAMissingFolderIsAnError();

private:
    std::optional<QTemporaryDir> m_folder;
    std::unique_ptr<FileManager> m_manager;
};

} // namespace quorvel::tests
