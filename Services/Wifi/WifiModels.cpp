#include "Services/Wifi/WifiModels.h"

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 strongFromDBm = -60;
constexpr qint64 goodFromDBm = -70;
constexpr qint64 fairFromDBm = -80;

int barsOf(qint64 rssiDBm)
{
    if (rssiDBm >= strongFromDBm)
        return 4;
    if (rssiDBm >= goodFromDBm)
        return 3;
    return rssiDBm >= fairFromDBm ? 2 : 1;
}

QString labelOf(int bars)
{
    static const QStringList labels{u"Weak"_s, u"Fair"_s, u"Good"_s, u"Strong"_s};
    return labels.at(bars - 1);
}

} // namespace

WifiSignal::WifiSignal(qint64 strength)
    : rssiDBm(strength)
    , bars(barsOf(strength))
    , label(labelOf(bars))
{}

} // namespace quorvel
