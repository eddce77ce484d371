#pragma once

#include <QString>

namespace quorvel {

/// One process's turn at a store, for decisions based on what it reads. Other processes wait until
/// it is over. It ends with its process at the latest.
class StoreTurn final
{
public:
    /// Waits as long as for a commit. Throws StoreError if another turn takes longer.
    explicit StoreTurn(const QString &storePath);
    StoreTurn(const StoreTurn &) = delete;
    StoreTurn &operator=(const StoreTurn &) = delete;
    ~StoreTurn();

private:
    int m_folder;
};

} // namespace quorvel
