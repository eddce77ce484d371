#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QtGlobal>

namespace quorvel::tests {

/// Repeatable random numbers: the seed is printed, and QUORVEL_TEST_SEED sets it.
inline QRandomGenerator seededRandom()
{
    bool isGiven = false;
    const quint32 given = qEnvironmentVariable("QUORVEL_TEST_SEED").toUInt(&isGiven);
    const quint32 seed = isGiven ? given : QRandomGenerator::global()->generate();
    qInfo("QUORVEL_TEST_SEED=%u", seed);
    return QRandomGenerator(seed);
}

} // namespace quorvel::tests
