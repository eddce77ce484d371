#pragma once

#include <QObject>
#include <QString>

namespace quorvel {

/// One café in the picker.
struct CafeRow
{
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString distanceText MEMBER distanceText)

public:
    QString candidateId = {};
    QString name = {};
    QString distanceText = {}; ///< "42m"

    [[nodiscard]] const QString &id() const { return candidateId; }

    friend bool operator==(const CafeRow &, const CafeRow &) = default;
};

} // namespace quorvel
