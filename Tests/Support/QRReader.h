#pragma once

#include "Tests/Support/Patience.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace quorvel::tests {

/// Reads codes as a camera does. Serves every test of a picture that may show one.
namespace QRReader {

/// What the code in the picture says; nothing when none is seen there.
inline QByteArray read(const QImage &image)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("code.png"));
    if (!image.save(file))
        qFatal("the picture was not written");
    QProcess reader;
    reader.start(QStringLiteral("zbarimg"),
                 {QStringLiteral("--raw"), QStringLiteral("--quiet"), QStringLiteral("--nodbus"),
                  QStringLiteral("-Sbinary"), QStringLiteral("--oneshot"), file});
    if (!reader.waitForFinished(patienceMilliseconds))
        qFatal("zbarimg did not end");
    return reader.readAllStandardOutput();
}

} // namespace QRReader
} // namespace quorvel::tests
