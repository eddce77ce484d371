#pragma once

#include "Models/CheckIn.h"
#include "Platform/Clock/Calendar.h"

#include <QLocale>
#include <QObject>
#include <qqmlintegration.h>

namespace quorvel {

/// The texts of a visit's card, on screen and shared. A missing value is an empty text.
struct VisitCard
{
    Q_GADGET
    QML_VALUE_TYPE(visitCard)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString moment MEMBER moment)
    Q_PROPERTY(QString address MEMBER address)
    Q_PROPERTY(QString coordinates MEMBER coordinates)
    Q_PROPERTY(bool hasWeather MEMBER hasWeather)
    Q_PROPERTY(int weatherCode MEMBER weatherCode)
    Q_PROPERTY(bool isDay MEMBER isDay)
    Q_PROPERTY(QString temperature MEMBER temperature)
    Q_PROPERTY(QList<QString> ratingLabels MEMBER ratingLabels)
    Q_PROPERTY(QList<int> ratingValues MEMBER ratingValues)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QString ssid MEMBER ssid)
    Q_PROPERTY(QString codeName MEMBER codeName)

public:
    QString title = {};       ///< the café's name, or that it is not known
    QString moment = {};      ///< "Mon, Mar 3 · 14:05"
    QString address = {};     ///< as it was at that time
    QString coordinates = {}; ///< the café's
    bool hasWeather = false;
    int weatherCode = 0;
    bool isDay = false;
    QString temperature = {}; ///< "22°"
    QList<QString> ratingLabels = {};
    QList<int> ratingValues = {}; ///< in the order of their labels
    QString note = {};
    QString ssid = {};     ///< the network that the user was last on there
    QString codeName = {}; ///< what a screen reader calls the code of that network

    [[nodiscard]] static VisitCard of(const CheckIn &checkIn, const Calendar &calendar,
                                      const QLocale &locale);
    /// "33.8568°S, 151.2153°E"
    [[nodiscard]] static QString coordinateLabel(double latitude, double longitude);

    friend bool operator==(const VisitCard &, const VisitCard &) = default;
};

} // namespace quorvel
