#pragma once

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

namespace quorvel {

/// The stored password of the open row's network, as its view shows it.
struct StoredRowState
{
    Q_GADGET
    QML_VALUE_TYPE(storedRowState)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString spokenText MEMBER spokenText)
    Q_PROPERTY(bool isRevealed MEMBER isRevealed)
    Q_PROPERTY(QString revealTitle MEMBER revealTitle)
    Q_PROPERTY(bool copiedScanned MEMBER copiedScanned)
    Q_PROPERTY(QString copyTitle MEMBER copyTitle)

public:
    QString text = {};       ///< ten bullets, or the password itself
    QString spokenText = {}; ///< the same for a screen reader
    bool isRevealed = false;
    QString revealTitle = {};
    bool copiedScanned = false;
    QString copyTitle = {};

    friend bool operator==(const StoredRowState &, const StoredRowState &) = default;
};

} // namespace quorvel
