#pragma once

#include "Models/Cafe.h"
#include "Models/WeatherSnapshot.h"
#include "Models/WorkRatings.h"
#include "Platform/ObjectStore/PersistentObject.h"
#include "Platform/ObjectStore/Schema/EntityDescription.h"

#include <QUuid>

#include <memory>
#include <optional>

namespace quorvel {

/// One recorded visit.
class CheckIn final : public PersistentObject
{
public:
    explicit CheckIn(FromStore) {}
    CheckIn(QUuid id, Instant date, QString note, std::optional<QString> address,
            std::optional<QString> photoFilename, WorkRatings ratings,
            std::optional<WeatherSnapshot> weather, std::shared_ptr<Cafe> cafe);

    [[nodiscard]] static const EntityDescription &entity();
    [[nodiscard]] const EntityDescription &entityDescription() const override { return entity(); }

    [[nodiscard]] const QUuid &id() const { return m_id; }
    void setId(const QUuid &id) { write(m_id, id); }

    /// When the visit was recorded.
    [[nodiscard]] Instant date() const { return m_date; }
    void setDate(Instant date) { write(m_date, date); }

    /// The user's note; may be empty.
    [[nodiscard]] const QString &note() const { return m_note; }
    void setNote(const QString &note) { write(m_note, note); }

    /// The café's address at that time.
    [[nodiscard]] const std::optional<QString> &address() const { return m_address; }
    void setAddress(const std::optional<QString> &address) { write(m_address, address); }

    /// File name, without a folder, of the visit's photo in the photo folder.
    [[nodiscard]] const std::optional<QString> &photoFilename() const { return m_photoFilename; }
    void setPhotoFilename(const std::optional<QString> &name) { write(m_photoFilename, name); }

    [[nodiscard]] const WorkRatings &ratings() const { return m_ratings; }
    void setRatings(const WorkRatings &ratings) { write(m_ratings, ratings); }

    /// Absent if it could not be fetched.
    [[nodiscard]] const std::optional<WeatherSnapshot> &weather() const { return m_weather; }
    void setWeather(const std::optional<WeatherSnapshot> &weather) { write(m_weather, weather); }

    /// Deleting the visit keeps the café. Deleting the café deletes the visit.
    [[nodiscard]] const std::shared_ptr<Cafe> &cafe() const { return m_cafe; }
    void setCafe(const std::shared_ptr<Cafe> &cafe) { write(m_cafe, cafe); }

    static constexpr auto cafeRelationship = "cafe";
    struct Keys;

private:
    QUuid m_id;
    Instant m_date;
    QString m_note;
    std::optional<QString> m_address;
    std::optional<QString> m_photoFilename;
    WorkRatings m_ratings;
    std::optional<WeatherSnapshot> m_weather;
    std::shared_ptr<Cafe> m_cafe;
};

/// The names of `CheckIn`'s attributes, for fetches.
struct CheckIn::Keys
{
    static constexpr AttributeKey id{"id", &CheckIn::id};
    static constexpr AttributeKey date{"date", &CheckIn::date};
    static constexpr AttributeKey note{"note", &CheckIn::note};
};

} // namespace quorvel
