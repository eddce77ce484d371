#pragma once

#include "Platform/Files/FileManager.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace quorvel::tests {

/// What every file manager promises.
class FileManagerContract : public QObject
{
    Q_OBJECT

protected:
    /// Where the application's own files are to lie.
    [[nodiscard]] QString root() const;
    [[nodiscard]] virtual std::unique_ptr<FileManager> make() = 0;
    /// Has a plain file stand at the path.
    virtual void putFile(const QString &path) = 0;
    /// Has nothing stand at the folder's path, nor let anything be made in it.
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
