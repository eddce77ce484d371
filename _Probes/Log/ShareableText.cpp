#include "_Probes/Log/ShareableText.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <utility>

namespace quorvel::ShareableText {

using namespace Qt::StringLiterals;

namespace {

constexpr int sharedDecimals = 2;

/// A coordinate just south or west of zero rounds to zero, without a sign.
QString rounded(double degrees)
{
    const QString text = QString::number(degrees, 'f', sharedDecimals);
    return text == u"-0.00"_s ? u"0.00"_s : text;
}

QString withoutNames(QString text, QStringList names)
{
    // Order: a name may contain another one.
    std::ranges::sort(names, std::ranges::greater(), &QString::size);
    for (const QString &name : names)
        if (!name.isEmpty())
            text.replace(name, leftOut());
    return text;
}

QString withoutRadios(QString text)
{
    static const QRegularExpression address(uR"(\b[0-9A-Fa-f]{2}([:-][0-9A-Fa-f]{2}){5}\b)"_s);
    return text.replace(address, leftOut());
}

QString withoutDigits(const QString &text)
{
    static const QRegularExpression exact(uR"(-?\b\d{1,3}\.\d{3,}\b)"_s);
    QString result;
    qsizetype end = 0;
    for (auto matches = exact.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        result += text.sliced(end, match.capturedStart() - end);
        result += rounded(match.captured().toDouble());
        end = match.capturedEnd();
    }
    return result + text.sliced(end);
}

} // namespace

QString leftOut()
{
    return u"(left out)"_s;
}

QString position(Coordinate coordinate)
{
    return rounded(coordinate.latitude) + u", "_s + rounded(coordinate.longitude);
}

QString line(const LogLine &line, const QStringList &names)
{
    if (line.isSeparator())
        return u"— "_s + line.shareableText + u" —"_s;
    return line.isError() ? words(line.shareableText, names) : line.shareableText;
}

QString words(QString text, QStringList names)
{
    text.replace(QDir::homePath(), u"~"_s);
    return withoutDigits(withoutRadios(withoutNames(std::move(text), std::move(names))));
}

} // namespace quorvel::ShareableText
