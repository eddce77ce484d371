#include "Features/MenuBar/Icon/TraylessOpening.h"

#include "Platform/StatusItem/StatusItem.h"

namespace quorvel {

TraylessOpening::TraylessOpening(const StatusItem &item, std::chrono::milliseconds delay,
                                 QObject *parent)
    : QObject(parent)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TraylessOpening::openRequested);
    // An icon that was seen once will be looked for again, even if its host restarts.
    connect(&item, &StatusItem::isShownChanged, &m_patience, &QTimer::stop);
    if (!item.isShown())
        m_patience.start(delay);
}

} // namespace quorvel
