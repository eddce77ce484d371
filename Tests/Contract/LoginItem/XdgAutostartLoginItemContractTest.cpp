#include "Platform/LoginItem/XdgAutostartLoginItem.h"
#include "Tests/Contract/LoginItem/LoginItemContract.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class XdgAutostartLoginItemContractTest final : public LoginItemContract
{
    Q_OBJECT

    std::unique_ptr<LoginItem> make() override
    {
        m_folder.emplace();
        return std::make_unique<XdgAutostartLoginItem>(XdgBaseDirectories{.configHome = config()},
                                                       QCoreApplication::applicationFilePath());
    }
    void breakIt() override { QVERIFY(QFile(config()).open(QIODevice::WriteOnly)); }
    void switchOff() override
    {
        QFile file(config() + u"/autostart/com.zantho.quorvel.desktop"_s);
        QVERIFY(file.open(QIODevice::Append) && file.write("Hidden=true\n") > 0);
    }
    QString config() const { return m_folder->filePath(u"config"_s); }

    std::optional<QTemporaryDir> m_folder;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::XdgAutostartLoginItemContractTest)
#include "XdgAutostartLoginItemContractTest.moc"
