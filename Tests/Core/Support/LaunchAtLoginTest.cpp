#include "Core/Support/LaunchAtLogin.h"

#include "Platform/LoginItem/FakeLoginItem.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

using Status = LoginItem::Status;

Q_DECLARE_METATYPE(quorvel::LoginItem::Status)

class LaunchAtLoginTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyStatusHasItsEffect_data()
    {
        QTest::addColumn<Status>("status");
        QTest::addColumn<bool>("isEnabled");
        QTest::newRow("not registered") << Status::NotRegistered << false;
        QTest::newRow("enabled") << Status::Enabled << true;
        QTest::newRow("requires approval") << Status::RequiresApproval << false;
        QTest::newRow("not found") << Status::NotFound << false;
    }

    void everyStatusHasItsEffect()
    {
        QFETCH(const Status, status);
        QFETCH(const bool, isEnabled);

        FakeLoginItem enabling;
        enabling.scriptedStatus = status;
        QCOMPARE(LaunchAtLogin::isEnabled(enabling), isEnabled);
        LaunchAtLogin::setEnabled(true, enabling);
        QCOMPARE(enabling.registrations, isEnabled ? 0 : 1);
        QCOMPARE(enabling.unregistrations, 0);

        FakeLoginItem disabling;
        disabling.scriptedStatus = status;
        LaunchAtLogin::setEnabled(false, disabling);
        QCOMPARE(disabling.registrations, 0);
        QCOMPARE(disabling.unregistrations, isEnabled ? 1 : 0);
    }

    void enablingTwiceRegistersOnce()
    {
        FakeLoginItem item;
        LaunchAtLogin::setEnabled(true, item);
        LaunchAtLogin::setEnabled(true, item);
        QCOMPARE(item.registrations, 1);
        QVERIFY(LaunchAtLogin::isEnabled(item));
    }

    void disablingWhileApprovalIsMissingDoesNothingAndDoesNotThrow()
    {
        FakeLoginItem item;
        item.scriptedStatus = Status::RequiresApproval;
        item.failure.emplace(LoginItemError::Operation::Unregister, u"Read-only file system"_s);
        LaunchAtLogin::setEnabled(false, item);
        QCOMPARE(item.unregistrations, 0);
    }

    void errorsReachTheCallerUnchanged_data()
    {
        QTest::addColumn<bool>("enabling");
        QTest::addColumn<QString>("sentence");
        QTest::newRow("register")
            << true
            << u"Quorvel could not be added to the programs that start at login: Disk full"_s;
        QTest::newRow("unregister")
            << false
            << u"Quorvel could not be removed from the programs that start at login: Disk full"_s;
    }

    void errorsReachTheCallerUnchanged()
    {
        QFETCH(const bool, enabling);
        QFETCH(const QString, sentence);
        using Operation = LoginItemError::Operation;

        FakeLoginItem item;
        item.scriptedStatus = enabling ? Status::NotRegistered : Status::Enabled;
        item.failure.emplace(enabling ? Operation::Register : Operation::Unregister,
                             u"Disk full"_s);
        try {
            LaunchAtLogin::setEnabled(enabling, item);
        } catch (const LoginItemError &error) {
            QCOMPARE(error.errorDescription(), sentence);
            QCOMPARE(LaunchAtLogin::isEnabled(item), !enabling);
            return;
        }
        QFAIL("the error did not arrive");
    }

    void theItemOfThisProcessIsSwitchedToo()
    {
        const QTemporaryDir config;
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(config.path()));
        auto &item = LoginItem::mainApp();
        QVERIFY(!LaunchAtLogin::isEnabled(item));
        LaunchAtLogin::setEnabled(true, item);
        QVERIFY(LaunchAtLogin::isEnabled(item));
        QVERIFY(QFile::exists(config.filePath(u"autostart/com.zantho.quorvel.desktop"_s)));
        LaunchAtLogin::setEnabled(false, item);
        QVERIFY(!LaunchAtLogin::isEnabled(item));
    }
};

QTEST_GUILESS_MAIN(LaunchAtLoginTest)
#include "LaunchAtLoginTest.moc"
