#include "Tests/Contract/FileManager/FileManagerContract.h"

#include "Platform/Files/FileError.h"

#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

QString FileManagerContract::root() const
{
    return m_folder->path() + u"/data/share"_s;
}

void FileManagerContract::init()
{
    m_folder.emplace();
    m_manager = make();
}

void FileManagerContract::theFirstUrlIsTheUrl()
{
    const QStringList urls = m_manager->urls(UserDirectory::ApplicationSupport);
    QCOMPARE(urls, QStringList{root()});
    QCOMPARE(m_manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::No), urls.first());
    QCOMPARE(m_manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes), urls.first());
}

void FileManagerContract::aFolderMayBeMadeTwice()
{
    m_manager->createPrivateDirectory(root() + u"/Quorvel"_s);
    m_manager->createPrivateDirectory(root() + u"/Quorvel"_s);
}

void FileManagerContract::aFileInTheFoldersPlaceIsAnError()
{
    const QString path = root() + u"/Quorvel"_s;
    putFile(path);
    try {
        m_manager->createPrivateDirectory(path);
    } catch (const FileError &error) {
        QCOMPARE(error, FileError(FileError::Operation::CreateFolder, path, EEXIST));
        return;
    }
    QFAIL("a folder was made where a file stands");
}

void FileManagerContract::aFileInTheRootsPlaceIsAnErrorOnlyWhenItHasToBeMade()
{
    putFile(root());
    QCOMPARE(m_manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::No), root());
    QVERIFY_THROWS_EXCEPTION(
        FileError, (void)m_manager->url(UserDirectory::ApplicationSupport, CreateIfMissing::Yes));
}

void FileManagerContract::aFileTakesThePlaceOfTheOneBefore()
{
    m_manager->createPrivateDirectory(root());
    const QString path = root() + u"/visit.png"_s;
    m_manager->writePrivateFile(path, "a longer one");
    QCOMPARE(content(path), "a longer one"_ba);
    m_manager->writePrivateFile(path, "another");
    QCOMPARE(content(path), "another"_ba);
}

void FileManagerContract::aFileInAMissingFolderIsAnError()
{
    const QString path = root() + u"/visit.png"_s;
    loseFolderOf(path);
    try {
        m_manager->writePrivateFile(path, "a file");
    } catch (const FileError &error) {
        QCOMPARE(error, FileError(FileError::Operation::WriteFile, path, ENOENT));
        return;
    }
    QFAIL("a file was written where there is no folder");
}

} // namespace quorvel::tests
