#pragma once

#include <QString>

namespace quorvel {

/// One process's turn at a store, for what it decides by what it reads: others wait until it is
/// over. It ends with its process at the latest.
class StoreTurn final
{
public:
    /// Waits as long as for a commit. Throws StoreError when another's turn takes longer.
    explicit StoreTurn(const QString &storePath);
    StoreTurn(const StoreTurn &) = delete;
    StoreTurn &operator=(const StoreTurn &) = delete;
    ~StoreTurn();

private:
    int m_folder;
};

} // namespace quorvel
