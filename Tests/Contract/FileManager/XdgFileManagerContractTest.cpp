#include "Platform/Files/Xdg/XdgFileManager.h"
#include "Tests/Contract/FileManager/FileManagerContract.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QTest>

#include <memory>

namespace quorvel::tests {

class XdgFileManagerContractTest final : public FileManagerContract
{
    Q_OBJECT

    std::unique_ptr<FileManager> make() override
    {
        return std::make_unique<XdgFileManager>(XdgBaseDirectories{.dataHome = root()});
    }
    void putFile(const QString &path) override
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    }
    void loseFolderOf(const QString &path) override
    {
        QVERIFY(!QFileInfo::exists(QFileInfo(path).path()));
    }
    QByteArray content(const QString &path) override
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::XdgFileManagerContractTest)
#include "XdgFileManagerContractTest.moc"
