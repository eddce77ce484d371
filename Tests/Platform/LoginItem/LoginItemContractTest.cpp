#include "Platform/LoginItem/FakeLoginItem.h"
#include "Platform/LoginItem/XdgAutostartLoginItem.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;

using Status = LoginItem::Status;

namespace {

/// What the same cases need of either login item.
struct Subject
{
    QTemporaryDir folder;
    std::unique_ptr<LoginItem> item;
    /// Has the next change fail.
    std::function<void()> breakIt;
    /// Has the user switch the item off in the desktop's own tool.
    std::function<void()> switchOff;
};

std::unique_ptr<Subject> live()
{
    auto subject = std::make_unique<Subject>();
    const QString config = subject->folder.filePath(u"config"_s);
    subject->item = std::make_unique<XdgAutostartLoginItem>(
        XdgBaseDirectories{.configHome = config}, QCoreApplication::applicationFilePath());
    subject->breakIt = [config] { QVERIFY(QFile(config).open(QIODevice::WriteOnly)); };
    subject->switchOff = [config] {
        QFile file(config + u"/autostart/com.zantho.quorvel.desktop"_s);
        QVERIFY(file.open(QIODevice::Append) && file.write("Hidden=true\n") > 0);
    };
    return subject;
}

std::unique_ptr<Subject> fake()
{
    auto subject = std::make_unique<Subject>();
    auto item = std::make_unique<FakeLoginItem>();
    subject->breakIt = [item = item.get()] {
        item->failure.emplace(LoginItemError::Operation::Register, u"No."_s);
    };
    subject->switchOff = [item = item.get()] { item->scriptedStatus = Status::RequiresApproval; };
    subject->item = std::move(item);
    return subject;
}

} // namespace

/// One promise, kept by the scripted login item as by the real one.
class LoginItemContractTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("isLive");
        QTest::newRow("fake") << false;
        QTest::newRow("live") << true;
    }

    void atFirstNothingIsRegistered() { QCOMPARE(make()->item->status(), Status::NotRegistered); }

    void registeringEnables()
    {
        const auto subject = make();
        subject->item->registerItem();
        QCOMPARE(subject->item->status(), Status::Enabled);
        subject->item->registerItem();
        QCOMPARE(subject->item->status(), Status::Enabled);
    }

    void unregisteringTakesItBack()
    {
        const auto subject = make();
        subject->item->registerItem();
        subject->item->unregisterItem();
        QCOMPARE(subject->item->status(), Status::NotRegistered);
        subject->item->unregisterItem();
        QCOMPARE(subject->item->status(), Status::NotRegistered);
    }

    void registeringOverrulesAnEarlierSwitchingOff()
    {
        const auto subject = make();
        subject->item->registerItem();
        subject->switchOff();
        QCOMPARE(subject->item->status(), Status::RequiresApproval);
        subject->item->registerItem();
        QCOMPARE(subject->item->status(), Status::Enabled);
    }

    void aFailedRegistrationChangesNothing()
    {
        const auto subject = make();
        subject->breakIt();
        try {
            subject->item->registerItem();
        } catch (const LoginItemError &error) {
            QCOMPARE(error.operation(), LoginItemError::Operation::Register);
            QVERIFY(error.errorDescription().startsWith(
                u"Quorvel could not be added to the programs that start at login: "_s));
            QCOMPARE(subject->item->status(), Status::NotRegistered);
            return;
        }
        QFAIL("the registration did not fail");
    }

private:
    static std::unique_ptr<Subject> make()
    {
        QFETCH_GLOBAL(const bool, isLive);
        return isLive ? live() : fake();
    }
};

QTEST_GUILESS_MAIN(LoginItemContractTest)
#include "LoginItemContractTest.moc"
