#include "Features/History/Visit/VisitPhoto.h"

#include "Platform/Files/FakeFileManager.h"
#include "Tests/Support/RunTask.h"

#include <QBuffer>
#include <QColor>
#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QIODevice>
#include <QImageWriter>
#include <QPointF>
#include <QSemaphore>
#include <QSize>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QtEndian>
#include <sys/stat.h>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr qint64 largestFileBytes = 64 * 1024 * 1024;
constexpr QSize banner(720, 320);

QImage colored(QSize size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QByteArray encoded(const QImage &image, const QByteArray &format)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    return writer.write(image) ? buffer.data() : QByteArray();
}

template <class Number>
QByteArray bigEndian(Number number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// A note after the first two bytes of a JPEG that gives the orientation of the camera.
QByteArray held(QByteArray jpeg, quint16 orientation)
{
    const QByteArray entry = bigEndian<quint16>(0x0112) + bigEndian<quint16>(3) +
                             bigEndian<quint32>(1) + bigEndian(orientation) + bigEndian<quint16>(0);
    const QByteArray note = QByteArrayLiteral("Exif\0\0MM\0*") + bigEndian<quint32>(8) +
                            bigEndian<quint16>(1) + entry + bigEndian<quint32>(0);
    return jpeg.insert(2, "\xFF\xE1" + bigEndian(quint16(note.size() + 2)) + note);
}

/// The same JPEG with another size in its header. Missing parts read as grey.
QByteArray claiming(QByteArray jpeg, QSize size)
{
    const qsizetype frame = jpeg.indexOf(QByteArrayLiteral("\xFF\xC0"));
    return jpeg.replace(frame + 5, 4,
                        bigEndian(quint16(size.height())) + bigEndian(quint16(size.width())));
}

/// Red, with a green quarter at the lower right.
QImage quartered()
{
    QImage image = colored({400, 200}, Qt::red);
    for (int y = 100; y < 200; ++y)
        for (int x = 200; x < 400; ++x)
            image.setPixelColor(x, y, Qt::green);
    return image;
}

bool isGreen(const QImage &image, double x, double y)
{
    const QColor color = image.pixelColor(int(x * image.width()), int(y * image.height()));
    return color.green() > 200 && color.red() < 50;
}

/// The memory of the whole program, in kilobytes.
qint64 statusValue(const QByteArray &key)
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray status = file.readAll();
    return status.mid(status.indexOf(key) + key.size()).trimmed().split(' ').value(0).toLongLong();
}

bool forgetPeakMemory()
{
    QFile file(u"/proc/self/clear_refs"_s);
    return file.open(QIODevice::WriteOnly) && file.write("5") == 1;
}

} // namespace

class VisitPhotoTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root.emplace();
        m_files.roots = {m_root->path()};
        QVERIFY(QDir().mkpath(photo(QString())));
    }

    void cleanup() { QThreadPool::globalInstance()->waitForDone(); }

    void withoutANameThereIsNoPhoto() { QCOMPARE(load(std::nullopt), std::nullopt); }

    void everyCommonFormatIsRead_data()
    {
        QTest::addColumn<QByteArray>("content");
        for (const char *format : {"jpg", "png", "webp", "tiff", "bmp"})
            QTest::newRow(format) << encoded(colored({1, 1}, Qt::red), format);
        QTest::newRow("gif") << QByteArray::fromBase64(
            "R0lGODdhAQABAIAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=");
    }

    void everyCommonFormatIsRead()
    {
        QFETCH(const QByteArray, content);
        QVERIFY(!content.isEmpty());
        write(u"visit"_s, content);
        const auto image = load(u"visit"_s);
        QVERIFY(image);
        const QColor color = image->pixelColor(0, 0);
        QVERIFY(color.red() > 240 && color.green() < 15 && color.blue() < 15);
    }

    void theContentCountsNotTheName()
    {
        write(u"visit.jpg"_s, encoded(colored({4, 3}, Qt::red), "png"));
        QVERIFY(load(u"visit.jpg"_s));
    }

    void aNameIsTakenAsGiven()
    {
        write(u"50%25 #1? é.png"_s, encoded(colored({4, 3}, Qt::red), "png"));
        QVERIFY(load(u"50%25 #1? é.png"_s));
        QVERIFY(!load(u"50%25 #1? é"_s));
    }

    void aPhotoStandsUpright_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPointF>("green");
        const QPointF belowRight(0.75, 0.75);
        const QPointF belowLeft(0.25, 0.75);
        const QPointF aboveLeft(0.25, 0.25);
        const QPointF aboveRight(0.75, 0.25);
        const QSize wide(100, 50);
        const QSize tall(40, 80);
        const auto row = [](int orientation, QSize size, QPointF green) {
            QTest::newRow(qPrintable(QString::number(orientation))) << orientation << size << green;
        };
        row(1, wide, belowRight);
        row(2, wide, belowLeft);
        row(3, wide, aboveLeft);
        row(4, wide, aboveRight);
        row(5, tall, belowRight);
        row(6, tall, belowLeft);
        row(7, tall, aboveLeft);
        row(8, tall, aboveRight);
    }

    void aPhotoStandsUpright()
    {
        QFETCH(const int, orientation);
        QFETCH(const QPointF, green);
        write(u"visit.jpg"_s, held(encoded(quartered(), "jpg"), quint16(orientation)));
        const auto image = load(u"visit.jpg"_s, {40, 50});
        QVERIFY(image);
        QTEST(image->size(), "size");
        for (const double x : {0.25, 0.75})
            for (const double y : {0.25, 0.75})
                QCOMPARE(isGreen(*image, x, y), QPointF(x, y) == green);
    }

    void aPhotoIsReducedToWhatCoversTheArea_data()
    {
        QTest::addColumn<QSize>("photo");
        QTest::addColumn<QSize>("size");
        QTest::newRow("wide") << QSize(2000, 400) << QSize(1600, 320);
        QTest::newRow("tall") << QSize(1440, 2000) << QSize(720, 1000);
        QTest::newRow("one wider") << QSize(722, 321) << QSize(720, 320);
        QTest::newRow("as large") << banner << banner;
        QTest::newRow("smaller") << QSize(719, 319) << QSize(719, 319);
        QTest::newRow("wide, but low") << QSize(2000, 319) << QSize(2000, 319);
        QTest::newRow("tall, but narrow") << QSize(719, 2000) << QSize(719, 2000);
        QTest::newRow("a point") << QSize(1, 1) << QSize(1, 1);
    }

    void aPhotoIsReducedToWhatCoversTheArea()
    {
        QFETCH(const QSize, photo);
        write(u"visit.png"_s, encoded(colored(photo, Qt::red), "png"));
        const auto image = load(u"visit.png"_s);
        QVERIFY(image);
        QTEST(image->size(), "size");
    }

    void anAreaOfNothingIsAPoint()
    {
        write(u"visit.png"_s, encoded(colored({40, 20}, Qt::red), "png"));
        const auto image = load(u"visit.png"_s, QSize());
        QVERIFY(image);
        QCOMPARE(image->size(), QSize(2, 1));
    }

    void coloursBecomeThoseOfTheScreen()
    {
        QImage wide = colored({4, 3}, QColor(200, 100, 100));
        wide.setColorSpace(QColorSpace::DisplayP3);
        write(u"visit.png"_s, encoded(wide, "png"));
        const auto image = load(u"visit.png"_s);
        QVERIFY(image);
        const QColor color = image->pixelColor(0, 0);
        QVERIFY2(color.red() > 208 && color.green() < 98, qPrintable(color.name()));
    }

    void transparencyStays()
    {
        QImage clear(4, 3, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        write(u"visit.png"_s, encoded(clear, "png"));
        const auto image = load(u"visit.png"_s);
        QVERIFY(image);
        QCOMPARE(image->pixelColor(0, 0).alpha(), 0);
    }

    void onlyAFileOfTheFolderItselfIsAPhoto_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("none of that name") << u"gone.png"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("the folder") << u"."_s;
        QTest::newRow("the folder above") << u".."_s;
        QTest::newRow("above") << u"../outside.png"_s;
        QTest::newRow("above and back") << u"../photos/inside.png"_s;
        QTest::newRow("below") << u"below/inside.png"_s;
        QTest::newRow("below and back") << u"below/../inside.png"_s;
        QTest::newRow("absolute") << u"ABSOLUTE"_s;
        QTest::newRow("trailing slash") << u"inside.png/"_s;
        QTest::newRow("link out") << u"out.png"_s;
        QTest::newRow("link within") << u"in.png"_s;
        QTest::newRow("link to nothing") << u"nowhere.png"_s;
        QTest::newRow("link to zeros") << u"zeros.png"_s;
        QTest::newRow("folder") << u"below"_s;
        QTest::newRow("pipe") << u"pipe.png"_s;
        QTest::newRow("with an end inside") << u"inside.png"_s + QChar(0) + u"x"_s;
        QTest::newRow("too long") << QString(300, u'a');
    }

    void onlyAFileOfTheFolderItselfIsAPhoto()
    {
        QFETCH(QString, name);
        const QByteArray picture = encoded(colored({4, 3}, Qt::red), "png");
        QVERIFY(QDir().mkpath(photo(u"below"_s)));
        for (const QString &place : {u"inside.png"_s, u"../outside.png"_s, u"below/inside.png"_s})
            write(place, picture);
        QVERIFY(QFile::link(photo(u"../outside.png"_s), photo(u"out.png"_s)));
        QVERIFY(QFile::link(photo(u"inside.png"_s), photo(u"in.png"_s)));
        QVERIFY(QFile::link(photo(u"gone.png"_s), photo(u"nowhere.png"_s)));
        QVERIFY(QFile::link(u"/dev/zero"_s, photo(u"zeros.png"_s)));
        QCOMPARE(mkfifo(QFile::encodeName(photo(u"pipe.png"_s)).constData(), S_IRWXU), 0);
        QVERIFY(load(u"inside.png"_s));
        QCOMPARE(load(name == u"ABSOLUTE"_s ? photo(u"inside.png"_s) : name), std::nullopt);
    }

    void aFolderThatIsALinkHoldsPhotos()
    {
        const QTemporaryDir other;
        QVERIFY(QDir().rmdir(photo(QString())));
        QVERIFY(QFile::link(other.path(), m_root->filePath(u"Quorvel/photos"_s)));
        write(u"visit.png"_s, encoded(colored({4, 3}, Qt::red), "png"));
        QVERIFY(load(u"visit.png"_s));
    }

    void whatIsNoPhotoIsNone_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray png = encoded(quartered(), "png");
        const QByteArray jpeg = encoded(quartered(), "jpg");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << "not a picture"_ba;
        QTest::newRow("zeros") << QByteArray(1000, '\0');
        QTest::newRow("half a PNG") << png.first(png.size() / 2);
        QTest::newRow("PNG's first bytes") << png.first(8);
        QTest::newRow("JPEG's first bytes") << jpeg.first(20);
        QTest::newRow("broken PNG") << QByteArray(png).replace(png.size() / 2, 4, "\0\1\2\3");
        QTest::newRow("JPEG of no width") << claiming(jpeg, {0, 10});
        QTest::newRow("drawing") << "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
                                    "<rect width='9' height='9'/></svg>"_ba;
        QTest::newRow("source code") << encoded(quartered(), "xpm");
    }

    void whatIsNoPhotoIsNone()
    {
        QFETCH(const QByteArray, content);
        write(u"visit.png"_s, content);
        QCOMPARE(load(u"visit.png"_s), std::nullopt);
    }

    void anUnreadableFileIsNone()
    {
        if (geteuid() == 0)
            QSKIP("nothing is closed to the superuser");
        write(u"visit.png"_s, encoded(colored({4, 3}, Qt::red), "png"));
        QVERIFY(QFile::setPermissions(photo(u"visit.png"_s), {}));
        QCOMPARE(load(u"visit.png"_s), std::nullopt);
    }

    void aFileOfOneByteTooManyIsNone()
    {
        write(u"visit.png"_s, encoded(colored({4, 3}, Qt::red), "png"));
        QVERIFY(QFile::resize(photo(u"visit.png"_s), largestFileBytes));
        QVERIFY(load(u"visit.png"_s));
        QVERIFY(QFile::resize(photo(u"visit.png"_s), largestFileBytes + 1));
        QCOMPARE(load(u"visit.png"_s), std::nullopt);
    }

    void aPhotoOfTooManyPixelsIsNone()
    {
        const QByteArray jpeg = encoded(colored({16, 16}, Qt::red), "jpg");
        write(u"fits.jpg"_s, claiming(jpeg, {12'800, 10'000}));
        QVERIFY(load(u"fits.jpg"_s));
        write(u"larger.jpg"_s, claiming(jpeg, {12'800, 10'001}));
        QCOMPARE(load(u"larger.jpg"_s), std::nullopt);
    }

    void aHundredMegapixelsTakeNoMoreMemoryThanTheyShow()
    {
        QImage large(10'000, 10'000, QImage::Format_Grayscale8);
        large.fill(Qt::gray);
        write(u"visit.jpg"_s, encoded(std::exchange(large, {}), "jpg"));
        if (!forgetPeakMemory())
            QSKIP("this system does not tell how much memory was used");
        const qint64 before = statusValue("VmRSS:");
        const auto image = load(u"visit.jpg"_s);
        QVERIFY(image);
        QCOMPARE(image->size(), QSize(720, 720));
        const qint64 kilobytes = statusValue("VmHWM:") - before;
        QVERIFY2(kilobytes < 40'000, qPrintable(QString::number(kilobytes)));
    }

    void nothingIsReadBeforeAnotherThreadDoes()
    {
        QSemaphore gate;
        QThreadPool &pool = *QThreadPool::globalInstance();
        const int threads = pool.maxThreadCount();
        for (int thread = 0; thread < threads; ++thread)
            pool.start([&gate] { gate.acquire(); });
        auto task = VisitPhoto::load(CheckInPhotoStore(m_files), u"visit.png"_s, banner);
        turnEventLoop();
        write(u"visit.png"_s, encoded(colored({4, 3}, Qt::red), "png"));
        gate.release(threads);
        QVERIFY(runTask(std::move(task)));
    }

private:
    [[nodiscard]] QString photo(const QString &name) const
    {
        return m_root->filePath(u"Quorvel/photos/"_s + name);
    }
    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(photo(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    [[nodiscard]] std::optional<QImage> load(const std::optional<QString> &name,
                                             QSize area = banner) const
    {
        return runTask(VisitPhoto::load(CheckInPhotoStore(m_files), name, area));
    }

    std::optional<QTemporaryDir> m_root;
    FakeFileManager m_files{QStringList()};
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::VisitPhotoTest)
#include "VisitPhotoTest.moc"
