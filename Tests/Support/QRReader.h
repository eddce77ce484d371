#pragma once

#include "Tests/Support/Patience.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

namespace quorvel::tests {

/// Reads codes as a camera does, for every test of a picture with a code.
namespace QRReader {

/// The text of the code in the picture; nothing if there is none.
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
