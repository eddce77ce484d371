#include "Platform/ObjectStore/Sql/RowTable.h"

#include <utility>

namespace quorvel {

RowTable::Object RowTable::find(qint64 row) const
{
    const auto block = m_blocks.find(blockOf(row));
    return block == m_blocks.end() ? nullptr : block->second.objects[indexOf(row)].lock();
}

void RowTable::insert(qint64 row, const Object &object)
{
    Block &block = m_blocks[blockOf(row)];
    block.objects[indexOf(row)] = object;
    ++block.count;
}

void RowTable::remove(qint64 row)
{
    const auto block = m_blocks.find(blockOf(row));
    block->second.objects[indexOf(row)].reset();
    if (--block->second.count == 0)
        m_blocks.erase(block);
}

std::vector<RowTable::Object> RowTable::objects() const
{
    std::vector<Object> result;
    for (const auto &[number, block] : m_blocks) {
        for (const auto &weak : block.objects) {
            if (auto object = weak.lock())
                result.push_back(std::move(object));
        }
    }
    return result;
}

} // namespace quorvel
