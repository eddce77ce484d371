#pragma once

#include <QObject>

namespace quorvel {

/// The things that a portable machine may lose for a while and get back.
enum class Returning { Network, Radio, Machine };

/// Reports that something is back: the network, the radio, or the machine itself after sleep.
/// Reports nothing until it is followed.
class SystemEvents : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Starts reporting, until `rest`. A second call changes nothing. Never blocks.
    virtual void follow() = 0;
    virtual void rest() = 0;

signals:
    /// One return is often reported several times, once by each part of the system.
    void cameBack(quorvel::Returning what);
};

} // namespace quorvel
