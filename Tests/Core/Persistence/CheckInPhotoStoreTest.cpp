#include "Core/Persistence/CheckInPhotoStore.h"

#include "Platform/Files/FakeFileManager.h"
#include "Platform/Files/Xdg/XdgFileManager.h"
#include "Tests/Support/Services/LastWords.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvel;
using namespace Qt::StringLiterals;

class CheckInPhotoStoreTest final : public QObject
{
    Q_OBJECT

private slots:
    void photosLieBesideTheStoreUnderTheFirstRoot()
    {
        const FakeFileManager files({u"/home/ana/.local/share"_s, u"/second"_s});
        QCOMPARE(CheckInPhotoStore(files).directoryURL(),
                 QUrl(u"file:///home/ana/.local/share/Quorvel/photos/"_s));
    }

    void aFileNameIsTheLastPathComponent()
    {
        const FakeFileManager files({u"/home/ana/.local/share"_s});
        QCOMPARE(CheckInPhotoStore(files).url(u"visit.jpg"_s),
                 QUrl(u"file:///home/ana/.local/share/Quorvel/photos/visit.jpg"_s));
    }

    void aFileNameIsUsedAsGiven_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("no extension") << u"visit"_s;
        QTest::newRow("blanks and accents") << u"quán cà phê 1.png"_s;
        QTest::newRow("signs with a meaning in addresses") << u"50%25 #1?.jpg"_s;
        QTest::newRow("leading dot") << u".hidden"_s;
    }

    void aFileNameIsUsedAsGiven()
    {
        QFETCH(const QString, fileName);
        const FakeFileManager files({u"/home/ana/50% #1"_s});
        QCOMPARE(CheckInPhotoStore(files).url(fileName).toLocalFile(),
                 u"/home/ana/50% #1/Quorvel/photos/"_s + fileName);
    }

    void askingTouchesNoDisk()
    {
        const QTemporaryDir folder;
        const XdgFileManager files({.dataHome = folder.filePath(u"share"_s)});
        const CheckInPhotoStore store(files);
        QCOMPARE(store.directoryURL().toLocalFile(), folder.filePath(u"share/Quorvel/photos/"_s));
        QVERIFY(!store.url(u"visit.jpg"_s).isEmpty());
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void askingMakesNoFolder()
    {
        const FakeFileManager files({u"/home/ana/.local/share"_s});
        (void)CheckInPhotoStore(files).url(u"visit.jpg"_s);
        QCOMPARE(files.createdRoots + files.createdDirectories, QStringList());
    }

    void aCopyAnswersTheSame()
    {
        const FakeFileManager files({u"/home/ana"_s});
        const FakeFileManager others({u"/home/bea"_s});
        CheckInPhotoStore store(others);
        store = CheckInPhotoStore(files);
        QCOMPARE(store.directoryURL(), CheckInPhotoStore(files).directoryURL());
    }

    void noRootAtAllStopsTheProgram()
    {
        const FakeFileManager files{QStringList()};
        QCOMPARE(tests::lastWords([&files] { (void)CheckInPhotoStore(files).directoryURL(); }),
                 QByteArray("There is no Application Support folder for the photos to lie in"));
    }
};

QTEST_GUILESS_MAIN(CheckInPhotoStoreTest)
#include "CheckInPhotoStoreTest.moc"
