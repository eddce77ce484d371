#include "Features/MenuBar/Icon/TraylessOpening.h"

#include "Platform/StatusItem/StatusItem.h"

namespace quorvel {

TraylessOpening::TraylessOpening(const StatusItem &item, std::chrono::milliseconds delay,
                                 QObject *parent)
    : QObject(parent)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &TraylessOpening::openRequested);
    // The user knows the icon and will look for it again, even if its host restarts.
    connect(&item, &StatusItem::isShownChanged, &m_patience, &QTimer::stop);
    if (!item.isShown())
        m_patience.start(delay);
}

} // namespace quorvel
