#pragma once

#include <QObject>

namespace quorvel {

/// What a program on a machine that is carried about may lack for a while, and get back.
enum class Returning { Network, Radio, Machine };

/// Tells whoever lacked something that it is there again: the network, the radio that was switched
/// off, or the machine itself after its sleep. Tells nothing unless it is followed.
class SystemEvents : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// From now on, until `rest`; once is enough. Holds nobody up.
    virtual void follow() = 0;
    virtual void rest() = 0;

signals:
    /// One return is often told several times, by whatever took part in it.
    void cameBack(quorvel::Returning what);
};

} // namespace quorvel
