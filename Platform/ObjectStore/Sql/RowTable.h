#pragma once

#include <QtGlobal>

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace quorvel {

class PersistentObject;

/// Finds the object of a row for the context, and keeps none alive. The rows of a table lie close
/// together, so they stand in blocks: that takes half of a hash's memory, and reading a table in
/// its order stays in one place.
class RowTable final
{
public:
    using Object = std::shared_ptr<PersistentObject>;

    /// Null when the row is no object at the moment.
    [[nodiscard]] Object find(qint64 row) const;
    /// The row must not be there yet.
    void insert(qint64 row, const Object &object);
    /// The row must be there; its object may be dying.
    void remove(qint64 row);
    [[nodiscard]] std::vector<Object> objects() const;

private:
    static constexpr int blockBits = 4;
    static constexpr size_t rowsPerBlock = size_t(1) << blockBits;

    struct Block
    {
        std::array<std::weak_ptr<PersistentObject>, rowsPerBlock> objects;
        int count = 0;
    };

    static qint64 blockOf(qint64 row) { return row >> blockBits; }
    static size_t indexOf(qint64 row) { return size_t(row) % rowsPerBlock; }

    std::unordered_map<qint64, Block> m_blocks;
};

} // namespace quorvel
