#pragma once

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

namespace quorvel {

/// The field for the open row's password, as its view shows it.
struct ConnectRowState
{
    Q_GADGET
    QML_VALUE_TYPE(connectRowState)
    Q_PROPERTY(QString ssid MEMBER ssid)
    Q_PROPERTY(QString prompt MEMBER prompt)
    Q_PROPERTY(QString connectPasswordDraft MEMBER connectPasswordDraft)
    Q_PROPERTY(bool revealConnectPassword MEMBER revealConnectPassword)
    Q_PROPERTY(QString revealTitle MEMBER revealTitle)
    Q_PROPERTY(bool connecting MEMBER connecting)
    Q_PROPERTY(QString connectErrorMessage MEMBER connectErrorMessage)
    Q_PROPERTY(bool canSubmit MEMBER canSubmit)
    Q_PROPERTY(QString submitTitle MEMBER submitTitle)

public:
    QString ssid = {}; ///< whose password it is; empty while no network is named
    QString prompt = {};
    QString connectPasswordDraft = {};
    bool revealConnectPassword = false;
    QString revealTitle = {};
    bool connecting = false;          ///< this network, not one whose row was closed meanwhile
    QString connectErrorMessage = {}; ///< empty while nothing went wrong
    bool canSubmit = false;
    QString submitTitle = {}; ///< "Save & Connect" or "Save"

    friend bool operator==(const ConnectRowState &, const ConnectRowState &) = default;
};

} // namespace quorvel
