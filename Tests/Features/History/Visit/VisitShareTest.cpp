#include "Features/History/Share/VisitShare.h"

#include "Platform/Errors/Outcome.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Files/Xdg/XdgFileManager.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/RunTask.h"
#include "Tests/Support/Services/PrivateMounts.h"

#include <QColor>
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QSize>
#include <QTemporaryDir>
#include <sys/stat.h>

#include <chrono>
#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

namespace {

using States = QList<ShareState>;

const QString fileName = u"checkin-blue-2025-03-03.png"_s;
bool hasPrivateMounts = false;

QImage picture(QSize size = {4, 3})
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    return image;
}

/// Larger than a small disk, however well it is compressed.
QImage noise()
{
    QRandomGenerator random(1);
    QImage image(200, 200, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, 0xFF000000 | random.generate());
    return image;
}

/// A visit whose card is a red rectangle, and the states of its sharing.
class World
{
public:
    explicit World(const FileManager &files, std::chrono::milliseconds telling = 10ms)
        : m_share(source(), pasteboard, files, telling)
    {
        QObject::connect(&m_share, &VisitShare::stateChanged, &m_share, [this] {
            states.append(m_share.state());
            pasteboard.calls.append(ShareTexts::label(m_share.state()));
        });
    }
    explicit World(std::chrono::milliseconds telling = 10ms)
        : World(m_fakeFiles, telling)
    {}

    [[nodiscard]] VisitShare &share() { return m_share; }
    [[nodiscard]] VisitShare::Source source()
    {
        return {.slug = [this] { return slug(); }, .picture = [this] { return draw(); }};
    }
    [[nodiscard]] const FileManager &fileManager() const { return m_fakeFiles; }
    [[nodiscard]] const QHash<QString, QByteArray> &files() const { return m_fakeFiles.files; }
    [[nodiscard]] int drawings() const { return int(pasteboard.calls.count(u"picture"_s)); }

    /// Runs the sharing to its end.
    void shareOnce()
    {
        m_share.shareCard();
        QTRY_COMPARE(m_share.state(), ShareState::Idle);
    }

    FakePasteboard pasteboard;
    States states;
    QImage image = picture();
    Secrecy secrecy = Secrecy::Open;

private:
    [[nodiscard]] QString slug()
    {
        pasteboard.calls.append(u"slug"_s);
        return u"blue-2025-03-03"_s;
    }
    [[nodiscard]] VisitShare::Picture draw()
    {
        pasteboard.calls.append(u"picture"_s);
        return {.image = image, .secrecy = secrecy};
    }

    FakeFileManager m_fakeFiles = [] {
        FakeFileManager files{QStringList()};
        files.downloads = {u"/downloads"_s};
        return files;
    }();
    VisitShare m_share;
};

} // namespace

class VisitShareTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.emplace(); }

    void aPictureGoesOntoTheClipboardAndNowhereElse()
    {
        World world;
        world.pasteboard.acceptances.willSucceed(Acceptance::Accepted);
        QCOMPARE(world.share().state(), ShareState::Idle);
        world.shareOnce();
        QCOMPARE(world.pasteboard.calls,
                 QStringList({u"Sharing…"_s, u"slug"_s, u"picture"_s, u"clear"_s, u"image"_s,
                              u"Copied!"_s, u"Share"_s}));
        QCOMPARE(world.pasteboard.image, picture());
        QVERIFY(world.files().isEmpty());
    }

    void aRefusedPictureGoesToTheDownloads()
    {
        World world;
        world.pasteboard.acceptances.willSucceed(Acceptance::Refused);
        world.shareOnce();
        QCOMPARE(world.pasteboard.calls,
                 QStringList({u"Sharing…"_s, u"slug"_s, u"picture"_s, u"clear"_s, u"image"_s,
                              u"Saved to Downloads"_s, u"Share"_s}));
        QCOMPARE(world.files().keys(), QStringList{u"/downloads/"_s + fileName});
        const auto read = QImage::fromData(world.files().constBegin().value(), "png");
        QCOMPARE(read.convertedTo(picture().format()), picture());
    }

    void aPictureWithAPasswordIsASecret()
    {
        World world;
        world.secrecy = Secrecy::Secret;
        world.pasteboard.acceptances.willSucceed(Acceptance::Accepted);
        world.shareOnce();
        QVERIFY(world.pasteboard.calls.contains(u"secret image"_s));
    }

    void withoutAPictureTheClipboardStaysAsItIs()
    {
        World world;
        world.image = QImage();
        world.shareOnce();
        QCOMPARE(world.states, States({ShareState::Working, ShareState::Idle}));
        QVERIFY(!world.pasteboard.calls.contains(u"clear"_s));
        QVERIFY(world.files().isEmpty());
    }

    void theButtonAnswersBeforeThePictureIsDrawn()
    {
        World world;
        world.pasteboard.acceptances.willSucceed(Acceptance::Accepted);
        world.share().shareCard();
        QCOMPARE(world.pasteboard.calls, QStringList({u"Sharing…"_s, u"slug"_s}));
        QTRY_COMPARE(world.share().state(), ShareState::Idle);
    }

    void aSecondPressIsIgnoredUntilTheOutcomeIsTold()
    {
        World world;
        world.pasteboard.acceptances.willHold();
        world.share().shareCard();
        world.share().shareCard();
        QTRY_COMPARE(world.drawings(), 1);
        world.share().shareCard();
        world.pasteboard.acceptances.release(Outcome<Acceptance>::success(Acceptance::Accepted));
        QTRY_COMPARE(world.share().state(), ShareState::Copied);
        world.share().shareCard();
        QTRY_COMPARE(world.share().state(), ShareState::Idle);
        QCOMPARE(world.pasteboard.calls.count(u"slug"_s), 1);
        QCOMPARE(world.drawings(), 1);
    }

    void anotherPressAfterItSharesAgain()
    {
        World world;
        world.pasteboard.acceptances.willSucceed(Acceptance::Refused);
        world.pasteboard.acceptances.willSucceed(Acceptance::Refused);
        world.shareOnce();
        world.image.fill(Qt::blue);
        world.shareOnce();
        QCOMPARE(world.drawings(), 2);
        QCOMPARE(world.files().size(), 1);
        const auto read = QImage::fromData(world.files().constBegin().value(), "png");
        QCOMPARE(read.pixelColor(0, 0), QColor(Qt::blue));
    }

    void anOutcomeIsToldForTwoSecondsAndAFifth()
    {
        World world(VisitShare::tellingInterval);
        const auto *telling = world.share().findChild<QTimer *>(u"telling"_s);
        QVERIFY(telling);
        QCOMPARE(telling->intervalAsDuration(), 2200ms);
        QCOMPARE(telling->timerType(), Qt::PreciseTimer);
        world.pasteboard.acceptances.willSucceed(Acceptance::Accepted);
        world.share().shareCard();
        QVERIFY(!telling->isActive());
        QTRY_COMPARE(world.share().state(), ShareState::Copied);
        QVERIFY(telling->isActive());
    }

    void aFailureIsOverAtOnce()
    {
        World world(24h);
        world.image = QImage();
        world.shareOnce();
        const XdgFileManager missing({.home = m_folder->path(), .configHome = m_folder->path()});
        World downloads(missing, 24h);
        downloads.pasteboard.acceptances.willSucceed(Acceptance::Refused);
        downloads.shareOnce();
        QCOMPARE(downloads.states, States({ShareState::Working, ShareState::Idle}));
        QVERIFY(!downloads.share().findChild<QTimer *>(u"telling"_s)->isActive());
    }

    void withoutADownloadsFolderNothingIsLeft()
    {
        saveInto(*m_folder, {ShareState::Working, ShareState::Idle});
        QVERIFY(QDir(m_folder->path()).isEmpty());
    }

    void theDownloadsFolderAtHomeStandsIn()
    {
        QVERIFY(QDir(m_folder->path()).mkdir(u"Downloads"_s));
        saveInto(*m_folder, {ShareState::Working, ShareState::Saved, ShareState::Idle});
        const QString path = m_folder->filePath(u"Downloads/"_s + fileName);
        QCOMPARE(QImage(path).convertedTo(noise().format()), noise());
        struct stat entry = {};
        QCOMPARE(stat(QFile::encodeName(path).constData(), &entry), 0);
        QCOMPARE(entry.st_mode & 07777, mode_t(0600));
    }

    void aDiskThatTakesNothingEndsInSilence_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<QByteArray>("options");
        QTest::newRow("full") << 0 << "size=16k"_ba;
        QTest::newRow("read-only") << int(MS_RDONLY) << "size=16k"_ba;
    }

    void aDiskThatTakesNothingEndsInSilence()
    {
        if (!hasPrivateMounts)
            QSKIP("the kernel allows this user no private mounts");
        QFETCH(const int, flags);
        QFETCH(const QByteArray, options);
        QVERIFY(QDir(m_folder->path()).mkdir(u"Downloads"_s));
        const QByteArray downloads = QFile::encodeName(m_folder->filePath(u"Downloads"_s));
        QCOMPARE(mount("tmpfs", downloads.constData(), "tmpfs", ulong(flags), options.constData()),
                 0);
        const auto unmount = qScopeGuard([&downloads] { umount(downloads.constData()); });
        saveInto(*m_folder, {ShareState::Working, ShareState::Idle});
        QCOMPARE(
            QDir(QFile::decodeName(downloads)).entryList(QDir::Files | QDir::Hidden | QDir::System),
            QStringList());
    }

    void aVisitThatIsClosedBeforeItIsDrawnIsNotShared()
    {
        World world;
        {
            VisitShare share(world.source(), world.pasteboard, world.fileManager());
            share.shareCard();
        }
        turnEventLoop();
        QCOMPARE(world.pasteboard.calls, QStringList{u"slug"_s});
    }

    void aPictureThatIsDrawnIsSavedThoughTheVisitIsClosed()
    {
        World world;
        world.pasteboard.acceptances.willHold();
        {
            VisitShare share(world.source(), world.pasteboard, world.fileManager());
            share.shareCard();
            QTRY_VERIFY(world.pasteboard.calls.contains(u"image"_s));
        }
        world.pasteboard.acceptances.release(Outcome<Acceptance>::success(Acceptance::Refused));
        QTRY_COMPARE(world.files().size(), 1);
    }

    void everyStateHasItsLabelAndSymbol_data()
    {
        QTest::addColumn<ShareState>("state");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("symbol");
        const auto row = [](ShareState state, const QString &label, const QString &symbol) {
            QTest::newRow(qPrintable(label)) << state << label << symbol;
        };
        row(ShareState::Idle, u"Share"_s, u"square.and.arrow.up"_s);
        row(ShareState::Working, u"Sharing…"_s, QString());
        row(ShareState::Copied, u"Copied!"_s, u"checkmark"_s);
        row(ShareState::Saved, u"Saved to Downloads"_s, u"checkmark"_s);
    }

    void everyStateHasItsLabelAndSymbol()
    {
        QFETCH(const ShareState, state);
        QTEST(ShareTexts::label(state), "label");
        QTEST(ShareTexts::symbol(state), "symbol");
    }

private:
    /// The clipboard refuses, and the folder is the user's home.
    static void saveInto(const QTemporaryDir &home, const States &states)
    {
        const XdgFileManager files({.home = home.path(), .configHome = home.path()});
        World world(files);
        world.image = noise();
        world.pasteboard.acceptances.willSucceed(Acceptance::Refused);
        world.shareOnce();
        QCOMPARE(world.states, states);
    }

    std::optional<QTemporaryDir> m_folder;
};

} // namespace quorvel::tests

int main(int argc, char *argv[])
{
    quorvel::tests::hasPrivateMounts = quorvel::tests::enterPrivateMounts();
    QCoreApplication application(argc, argv);
    quorvel::tests::VisitShareTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "VisitShareTest.moc"
