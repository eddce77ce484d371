#include "_Probes/ProbeServices.h"

#include "Core/DI/AppEnvironment.h"
#include "Platform/Files/FakeFileManager.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class ProbeServicesTest final : public QObject
{
    Q_OBJECT

private slots:
    void theLoopAndTheActionsEachHaveALocationService()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(u"Quorvel"_s));
        const FakeFileManager files({folder.path()});
        const AppEnvironment environment(files);
        QuietFacilities facilities;
        ProbeServices services(facilities.menuBar());
        const ProbeRoles roles = services.roles(environment);
        QVERIFY(&roles.locationService != &roles.loop.location);
        QCOMPARE(roles.repository, environment.checkInRepository());
        QVERIFY(roles.repository);
        QCOMPARE(roles.setupError, QString());
        QCOMPARE(&roles.pasteboard, &facilities.pasteboard);
    }

    void aStoreThatDidNotOpenIsExplained()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath(u"Quorvel"_s));
        QVERIFY(file.open(QFile::WriteOnly));
        const FakeFileManager files({folder.path()});
        const AppEnvironment environment(files);
        QuietFacilities facilities;
        ProbeServices services(facilities.menuBar());
        const ProbeRoles roles = services.roles(environment);
        QVERIFY(!roles.repository);
        QCOMPARE(roles.setupError, *environment.setupError());
    }
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::ProbeServicesTest)
#include "ProbeServicesTest.moc"
