#include "Features/History/List/HistoryTexts.h"

#include "Core/Support/Texts/RoundedNumber.h"
#include "Models/CheckIn.h"
#include "Models/WeatherSnapshot.h"
#include "Platform/Clock/Calendar.h"
#include "Platform/Errors/LocalizedError.h"

#include <QLocale>

namespace quorvel::HistoryTexts {

using namespace Qt::StringLiterals;

QString weeklySummary(const HistoryViewModel::WeeklySummary &summary)
{
    return QString::number(summary.visits) + u" visits · "_s + QString::number(summary.cafes) +
           u" cafés this week"_s;
}

QString loadError(const LocalizedError *error)
{
    return sentenceOf(error, u"Không tải được lịch sử check-in."_s);
}

bool isEmpty(const HistoryViewModel::State &state)
{
    const auto *sections = state.loadedValue();
    return sections && sections->empty();
}

QString title(const CheckIn &checkIn)
{
    return checkIn.cafe() ? checkIn.cafe()->name() : u"Unknown café"_s;
}

QString today()
{
    return u"TODAY"_s;
}

QString yesterday()
{
    return u"YESTERDAY"_s;
}

QString day(Instant date, const Calendar &calendar, const QLocale &locale)
{
    return locale.toString(calendar.localTime(date).date(), u"ddd, MMM d");
}

QString time(Instant date, const Calendar &calendar, const QLocale &locale)
{
    return locale.toString(calendar.localTime(date).time(), u"HH:mm");
}

QString temperature(const WeatherSnapshot &weather)
{
    return roundedNumber(weather.temperatureC) + u'°';
}

QString moment(const CheckIn &checkIn, const Calendar &calendar, const QLocale &locale)
{
    const QString text = time(checkIn.date(), calendar, locale);
    const auto &weather = checkIn.weather();
    return weather ? text + u" · "_s + temperature(*weather) : text;
}

QString codeName(const QString &ssid)
{
    return u"QR code of "_s + ssid;
}

} // namespace quorvel::HistoryTexts
