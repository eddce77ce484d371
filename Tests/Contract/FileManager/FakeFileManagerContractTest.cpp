#include "Platform/Files/FakeFileManager.h"
#include "Tests/Contract/FileManager/FileManagerContract.h"

#include <QTest>

#include <memory>

namespace quorvel::tests {

class FakeFileManagerContractTest final : public FileManagerContract
{
    Q_OBJECT

    std::unique_ptr<FileManager> make() override
    {
        auto manager = std::make_unique<FakeFileManager>(QStringList{root()});
        m_manager = manager.get();
        return manager;
    }
    void putFile(const QString &path) override
    {
        m_manager->failures.insert(path, {FileError::Operation::CreateFolder, path, EEXIST});
    }
    void loseFolderOf(const QString &path) override
    {
        m_manager->failures.insert(path, {FileError::Operation::WriteFile, path, ENOENT});
    }
    QByteArray content(const QString &path) override { return m_manager->files.value(path); }

    FakeFileManager *m_manager = nullptr;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeFileManagerContractTest)
#include "FakeFileManagerContractTest.moc"
