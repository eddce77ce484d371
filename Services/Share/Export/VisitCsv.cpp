#include "Services/Share/Export/VisitCsv.h"

#include "Core/Support/Texts/PrintableText.h"
#include "Core/Support/Texts/ShortestDecimal.h"
#include "Services/Share/Export/VisitJson.h"

#include <QUuid>

#include <cmath>
#include <memory>
#include <optional>

namespace quorvel::VisitCsv {

using namespace Qt::StringLiterals;

namespace {

/// Spreadsheets read these as the start of a formula. Some also accept the full-width forms.
constexpr QStringView formulaBeginnings = u"=+-@\uff1d\uff0b\uff0d\uff20";

QString quoted(QString field)
{
    // In some countries spreadsheets separate columns by semicolons.
    const bool needsQuotes = field.contains(u'"') || field.contains(u',') || field.contains(u';') ||
                             field.contains(u'\n') || field != field.trimmed();
    return needsQuotes ? u'"' + field.replace(u'"', "\"\""_L1) + u'"' : field;
}

QString textField(const QString &text)
{
    const QString printable = PrintableText::lines(text);
    // A spreadsheet may skip leading blanks.
    const QString content = printable.trimmed();
    const bool isFormula = !content.isEmpty() && formulaBeginnings.contains(content.front());
    return quoted(isFormula ? u'\'' + printable : printable);
}

QString textField(const std::optional<QString> &text)
{
    return textField(text.value_or(QString()));
}

QString numberField(double number)
{
    return std::isfinite(number) ? shortestDecimal(number) : QString();
}

QStringList weatherFields(const std::optional<WeatherSnapshot> &weather)
{
    if (!weather)
        return {{}, {}, {}, {}, {}};
    return {numberField(weather->temperatureC), numberField(weather->apparentTemperatureC),
            QString::number(weather->weatherCode), weather->isDay ? u"true"_s : u"false"_s,
            VisitJson::date(weather->capturedAt)};
}

QStringList ratingNames()
{
    QStringList names;
    for (const WorkCriterion &criterion : workCriteria)
        names.append(QString::fromLatin1(criterion.key));
    return names;
}

QStringList ratingFields(const WorkRatings &ratings)
{
    QStringList fields;
    for (const WorkCriterion &criterion : workCriteria)
        fields.append(QString::number(ratings.*criterion.score));
    return fields;
}

QStringList cafeFields(const std::shared_ptr<Cafe> &cafe)
{
    if (!cafe)
        return {{}, {}, {}, {}, {}, {}};
    return {cafe->id().toString(QUuid::WithoutBraces),
            textField(cafe->name()),
            numberField(cafe->latitude()),
            numberField(cafe->longitude()),
            textField(cafe->lastKnownSSID()),
            textField(cafe->mapItemIdentifier())};
}

QByteArray lineOf(const QStringList &fields)
{
    return fields.join(u',').toUtf8() + "\r\n";
}

} // namespace

QByteArray header()
{
    return lineOf(QStringList{u"id"_s, u"date"_s} + ratingNames() +
                  QStringList{u"note"_s, u"address"_s, u"photoFilename"_s, u"temperatureC"_s,
                              u"apparentTemperatureC"_s, u"weatherCode"_s, u"isDay"_s,
                              u"capturedAt"_s, u"cafeId"_s, u"cafeName"_s, u"latitude"_s,
                              u"longitude"_s, u"lastKnownSSID"_s, u"mapItemIdentifier"_s});
}

QByteArray row(const CheckIn &visit)
{
    return lineOf(
        QStringList{visit.id().toString(QUuid::WithoutBraces), VisitJson::date(visit.date())} +
        ratingFields(visit.ratings()) +
        QStringList{textField(visit.note()), textField(visit.address()),
                    textField(visit.photoFilename())} +
        weatherFields(visit.weather()) + cafeFields(visit.cafe()));
}

} // namespace quorvel::VisitCsv
