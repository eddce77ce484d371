#include "Benchmarks/Store/SampleVisits.h"

#include <QUuid>

#include <array>
#include <chrono>
#include <optional>
#include <utility>

namespace quorvel::benchmarks {

namespace {

using namespace Qt::StringLiterals;

constexpr Instant firstVisit{std::chrono::seconds(1'500'000'000)};
constexpr std::chrono::minutes betweenVisits{47};
constexpr std::array<QStringView, 5> streets{u"Nguyễn Thị Minh Khai", u"Lê Lợi", u"Trần Hưng Đạo",
                                             u"Phạm Ngọc Thạch", u"Cách Mạng Tháng Tám"};
constexpr std::array<QStringView, 5> remarks{
    u"Wi-Fi khá ổn định.", u"Ổ cắm chỉ có ở tầng hai.", u"Buổi chiều hơi ồn, nhạc to.",
    u"Cà phê sữa đá rất ngon.", u"Ghế ngồi lâu hơi mỏi lưng."};

QString addressOf(int cafe)
{
    return u"%1 %2, Phường Bến Nghé, Quận %3, Thành phố Hồ Chí Minh"_s.arg(cafe % 400 + 1)
        .arg(streets[size_t(cafe) % streets.size()])
        .arg(cafe % 12 + 1);
}

} // namespace

SampleVisits::SampleVisits(int cafeCount, quint32 seed)
    : m_random(seed)
{
    for (int i = 0; i < cafeCount; ++i) {
        m_cafes.push_back(std::make_shared<Cafe>(
            uuid(), u"Cà phê %1 số %2"_s.arg(streets[size_t(i) % streets.size()]).arg(i),
            10.7 + i * 1e-4, 106.6 + i * 1e-4, u"Khach_%1"_s.arg(i), mapItemIdentifier(i)));
    }
}

QString SampleVisits::mapItemIdentifier(int cafe)
{
    return u"node/%1"_s.arg(2'000'000'000 + cafe);
}

std::shared_ptr<CheckIn> SampleVisits::next()
{
    return nextAt(m_cafes[size_t(m_count) % m_cafes.size()]);
}

std::shared_ptr<CheckIn> SampleVisits::nextAt(std::shared_ptr<Cafe> cafe)
{
    const auto score = [this] { return qint64(m_random.bounded(1, 6)); };
    const WorkRatings ratings{score(), score(), score(), score()};
    const int cafeNumber = m_count % int(m_cafes.size());
    const Instant date = firstVisit + betweenVisits * m_count++;
    return std::make_shared<CheckIn>(uuid(), date, note(), addressOf(cafeNumber), std::nullopt,
                                     ratings, weather(), std::move(cafe));
}

QUuid SampleVisits::uuid()
{
    std::array<quint32, 4> words{};
    m_random.fillRange(words.data(), qsizetype(words.size()));
    return QUuid::fromRfc4122(
        QByteArrayView(reinterpret_cast<const char *>(words.data()), sizeof words));
}

/// No note, or up to three remarks of about 25 characters, all different.
QString SampleVisits::note()
{
    QStringList parts;
    for (int i = m_random.bounded(4); i > 0; --i)
        parts.append(remarks[m_random.bounded(quint32(remarks.size()))].toString());
    return parts.isEmpty() ? QString() : parts.join(u' ') + u" Lần thứ %1."_s.arg(m_count);
}

std::optional<WeatherSnapshot> SampleVisits::weather()
{
    if (m_random.bounded(10) == 0)
        return std::nullopt;
    return WeatherSnapshot{.temperatureC = m_random.bounded(150, 400) / 10.0,
                           .apparentTemperatureC = m_random.bounded(150, 450) / 10.0,
                           .weatherCode = m_random.bounded(96),
                           .isDay = m_random.bounded(2) == 1,
                           .capturedAt = firstVisit + betweenVisits * m_count};
}

} // namespace quorvel::benchmarks
