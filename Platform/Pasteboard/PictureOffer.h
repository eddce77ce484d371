#pragma once

#include "Platform/Pasteboard/Pasteboard.h"

#include <QLatin1String>
#include <QMetaType>
#include <QMimeData>
#include <QVariant>

namespace quorvel {

/// A picture on the clipboard, in the formats that every program reads. It is encoded only when
/// somebody pastes: most copies are pasted once, but clipboard managers ask for every format.
class PictureOffer final : public QMimeData
{
    Q_OBJECT

public:
    /// The format and the value that mark a password for clipboard managers on any desktop.
    static constexpr QLatin1String secretMark{"x-kde-passwordManagerHint"};
    static constexpr auto secret = "secret";

    PictureOffer(QImage image, Secrecy secrecy);

    [[nodiscard]] QStringList formats() const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType,
                                        QMetaType preferred) const override;

private:
    QImage m_image;
    Secrecy m_secrecy;
};

} // namespace quorvel
