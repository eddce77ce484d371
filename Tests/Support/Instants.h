#pragma once

#include "Platform/Clock/Calendar.h"

#include <QDateTime>

#include <chrono>

namespace quorvel::tests {

/// The instant of an ISO 8601 text with its zone, such as "2026-11-21T12:00:00Z".
inline Instant instant(const QString &text)
{
    const auto dateTime = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!dateTime.isValid())
        qFatal("not a date: %s", qPrintable(text));
    return Instant(std::chrono::milliseconds(dateTime.toMSecsSinceEpoch()));
}

} // namespace quorvel::tests
