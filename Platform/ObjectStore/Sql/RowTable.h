#pragma once

#include <QtGlobal>

#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

namespace quorvel {

class PersistentObject;

/// Finds the object of a row for the context, and keeps none alive. The numbers of a table's rows
/// are close together, so they are kept in blocks. This takes half the memory of a hash, and
/// reading a table in order stays local in memory.
class RowTable final
{
public:
    using Object = std::shared_ptr<PersistentObject>;

    /// Null if the row is not an object right now.
    [[nodiscard]] Object find(qint64 row) const;
    /// The row must not be in the table yet.
    void insert(qint64 row, const Object &object);
    /// The row must be in the table; its object may be in its destructor.
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
