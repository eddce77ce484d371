#include "Services/Share/ClipboardImageWriter.h"

#include "Platform/Files/FakeFileManager.h"
#include "Platform/Files/Xdg/XdgFileManager.h"

#include <QColor>
#include <QDir>
#include <QSize>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

const QString path = u"/downloads/checkin-blue-2025-03-03.png"_s;
const QString slug = u"blue-2025-03-03"_s;

QImage picture(Qt::GlobalColor color)
{
    QImage image(4, 3, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

QImage decoded(const QByteArray &bytes)
{
    return QImage::fromData(bytes, "PNG");
}

} // namespace

class ClipboardImageWriterTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_files.downloads = {u"/downloads"_s, u"/second"_s};
        m_files.files.clear();
        m_files.failures.clear();
    }

    void aPictureGoesToTheFirstDownloadsFolder()
    {
        const auto url = save(picture(Qt::red));
        QCOMPARE(url, QUrl::fromLocalFile(path));
        QCOMPARE(m_files.files.keys(), QStringList{path});
        const QImage read = decoded(m_files.files.value(path));
        QCOMPARE(read.size(), QSize(4, 3));
        QCOMPARE(read.pixelColor(3, 2), QColor(Qt::red));
    }

    void theLaterOfTwoStays()
    {
        (void)save(picture(Qt::red));
        (void)save(picture(Qt::blue));
        QCOMPARE(m_files.files.size(), 1);
        QCOMPARE(decoded(m_files.files.value(path)).pixelColor(0, 0), QColor(Qt::blue));
    }

    void withoutADownloadsFolderItGoesToTheOneAtHome()
    {
        m_files.downloads.clear();
        m_files.home = u"/home/ana"_s;
        QCOMPARE(save(picture(Qt::red)),
                 QUrl::fromLocalFile(u"/home/ana/Downloads/checkin-blue-2025-03-03.png"_s));
    }

    void noPictureIsNotWritten()
    {
        QCOMPARE(save(QImage()), std::nullopt);
        QVERIFY(m_files.files.isEmpty());
    }

    void aWriteThatFailsIsSilent()
    {
        m_files.failures.insert(path, {FileError::Operation::WriteFile, path, ENOSPC});
        QCOMPARE(save(picture(Qt::red)), std::nullopt);
    }

    void aMissingFolderIsNotMade()
    {
        const QTemporaryDir home;
        const XdgFileManager files({.home = home.path(), .configHome = home.path()});
        const auto write = [&] {
            return ClipboardImageWriter::saveToDownloads(picture(Qt::red), slug, files);
        };
        QCOMPARE(write(), std::nullopt);
        QVERIFY(QDir(home.path()).isEmpty());
        QVERIFY(QDir(home.path()).mkdir(u"Downloads"_s));
        QVERIFY(write());
        QCOMPARE(QDir(home.filePath(u"Downloads"_s)).entryList(QDir::Files | QDir::Hidden),
                 QStringList{u"checkin-blue-2025-03-03.png"_s});
    }

private:
    [[nodiscard]] std::optional<QUrl> save(const QImage &image) const
    {
        return ClipboardImageWriter::saveToDownloads(image, slug, m_files);
    }

    FakeFileManager m_files{QStringList()};
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ClipboardImageWriterTest)
#include "ClipboardImageWriterTest.moc"
