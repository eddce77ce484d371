#pragma once

#include "Platform/Geodesy/Coordinate.h"
#include "Platform/ObjectStore/FetchDescriptor.h"
#include "Platform/ObjectStore/PersistentObject.h"

#include <QString>
#include <QUuid>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel {

class CheckIn;

/// A café that the user has checked in at. The first visit creates it, later visits reuse it.
class Cafe final : public PersistentObject
{
public:
    explicit Cafe(FromStore) {}
    Cafe(QUuid id, QString name, double latitude, double longitude,
         std::optional<QString> lastKnownSSID, std::optional<QString> mapItemIdentifier);

    [[nodiscard]] static const EntityDescription &entity();
    [[nodiscard]] const EntityDescription &entityDescription() const override { return entity(); }

    [[nodiscard]] const QUuid &id() const { return m_id; }
    void setId(const QUuid &id) { write(m_id, id); }

    [[nodiscard]] const QString &name() const { return m_name; }
    void setName(const QString &name) { write(m_name, name); }

    /// Degrees.
    [[nodiscard]] double latitude() const { return m_latitude; }
    void setLatitude(double latitude) { write(m_latitude, latitude); }

    /// Degrees.
    [[nodiscard]] double longitude() const { return m_longitude; }
    void setLongitude(double longitude) { write(m_longitude, longitude); }

    /// The network that the user was on at the last visit.
    [[nodiscard]] const std::optional<QString> &lastKnownSSID() const { return m_lastKnownSSID; }
    void setLastKnownSSID(const std::optional<QString> &ssid) { write(m_lastKnownSSID, ssid); }

    /// The map's stable identifier. A café without one is never found again.
    [[nodiscard]] const std::optional<QString> &mapItemIdentifier() const
    {
        return m_mapItemIdentifier;
    }
    void setMapItemIdentifier(const std::optional<QString> &identifier)
    {
        write(m_mapItemIdentifier, identifier);
    }

    /// The café's visits, inserted or stored, in the order of their saving. Deleting the café
    /// deletes them. Throws StoreError.
    // Deliberate: each call asks the store. `CheckIn::setCafe` writes the relationship.
    [[nodiscard]] std::vector<std::shared_ptr<CheckIn>> checkIns() const;

    struct Keys;

private:
    QUuid m_id;
    QString m_name;
    double m_latitude = 0;
    double m_longitude = 0;
    std::optional<QString> m_lastKnownSSID;
    std::optional<QString> m_mapItemIdentifier;
};

/// The names of `Cafe`'s attributes, for fetches.
struct Cafe::Keys
{
    static constexpr AttributeKey id{"id", &Cafe::id};
    static constexpr AttributeKey name{"name", &Cafe::name};
    static constexpr AttributeKey mapItemIdentifier{"mapItemIdentifier", &Cafe::mapItemIdentifier};
};

} // namespace quorvel
