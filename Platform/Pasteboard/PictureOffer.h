#pragma once

#include "Platform/Pasteboard/Pasteboard.h"

#include <QMimeData>

namespace quorvel {

/// A picture for the clipboard to take, in the formats that every program reads. It is put into one
/// only when somebody pastes: most copies are pasted once, and managers ask for all there are.
class PictureOffer final : public QMimeData
{
    Q_OBJECT

public:
    /// The format, and what it holds, by which clipboard managers know a password on any desktop.
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
