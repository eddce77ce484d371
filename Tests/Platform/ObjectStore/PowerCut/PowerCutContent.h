#pragma once

#include <QByteArray>
#include <QRandomGenerator>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace quorvel::tests {

/// How much the disk has kept of writes without a sync.
enum class Unsynced {
    Lost,
    Kept,
    FirstOnes, ///< in each file those up to some moment
    Scattered, ///< any sectors of any of them: disks write in an order of their own
};

/// The certain content of a file on a disk with volatile memory, and the writes since.
class PowerCutContent
{
public:
    explicit PowerCutContent(QByteArray certain)
        : m_certain(std::move(certain))
    {}

    [[nodiscard]] const QByteArray &certain() const { return m_certain; }

    void write(qint64 offset, QByteArray bytes)
    {
        m_unsynced.push_back({offset, std::move(bytes)});
    }
    void truncate(qint64 size) { m_unsynced.push_back({size, std::nullopt}); }

    void sync()
    {
        for (const Change &change : std::exchange(m_unsynced, {}))
            make(change);
    }

    void losePower(Unsynced unsynced, QRandomGenerator &random)
    {
        auto changes = std::exchange(m_unsynced, {});
        if (unsynced == Unsynced::Lost)
            return;
        if (unsynced == Unsynced::FirstOnes)
            changes.resize(random.bounded(quint32(changes.size() + 1)));
        for (const Change &change : changes) {
            if (unsynced == Unsynced::Scattered)
                makeInParts(change, random);
            else
                make(change);
        }
    }

private:
    static constexpr qint64 sectorBytes = 512;

    /// Bytes at an offset. Absent bytes truncate the file there.
    struct Change
    {
        qint64 offset = 0;
        std::optional<QByteArray> bytes;
    };

    void make(const Change &change)
    {
        if (change.bytes)
            put(change.offset, *change.bytes);
        else
            m_certain.truncate(change.offset);
    }

    void makeInParts(const Change &change, QRandomGenerator &random)
    {
        if (!change.bytes) {
            if (random.bounded(2) == 0)
                make(change);
            return;
        }
        qint64 size = 0;
        for (qint64 begin = 0; begin < change.bytes->size(); begin += size) {
            const qint64 inSector = (change.offset + begin) % sectorBytes;
            size = std::min(sectorBytes - inSector, change.bytes->size() - begin);
            if (random.bounded(2) == 0)
                put(change.offset + begin, QByteArrayView(*change.bytes).sliced(begin, size));
        }
    }

    void put(qint64 offset, QByteArrayView bytes)
    {
        if (m_certain.size() < offset + bytes.size())
            m_certain.append(offset + bytes.size() - m_certain.size(), '\0');
        std::ranges::copy(bytes, m_certain.begin() + offset);
    }

    QByteArray m_certain;
    std::vector<Change> m_unsynced;
};

} // namespace quorvel::tests
