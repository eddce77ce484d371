#pragma once

#include "Tests/Platform/ObjectStore/PowerCut/PowerCutContent.h"

#include <QHash>
#include <QString>

#include <memory>
#include <sqlite3.h>

namespace quorvel::tests {

/// A disk whose power can be cut, below every SQLite database that is opened while it exists. It
/// passes everything through, and keeps for each file what a sync has made certain. The same holds
/// for the folder: the creation or deletion of a file is certain once the folder is synced, which
/// SQLite does with the first sync of a new journal or log. The shared index beside a log is memory
/// and is lost with the power.
class PowerCutVfs
{
public:
    PowerCutVfs();
    PowerCutVfs(const PowerCutVfs &) = delete;
    PowerCutVfs &operator=(const PowerCutVfs &) = delete;
    ~PowerCutVfs();

    /// From now on nothing reaches the disk, and every operation fails.
    void cutPower() { m_operationsLeft = 0; }
    /// The same, after this many writes, truncations, syncs and deletions.
    void cutPowerAfter(int operations) { m_operationsLeft = operations; }
    [[nodiscard]] bool isPowered() const { return m_operationsLeft != 0; }

    /// Restores the files to the state that the disk has kept. No database may be open.
    void restorePower(Unsynced unsynced, QRandomGenerator &random);

    /// Makes the disk report a sync without writing anything.
    void pretendToSync() { m_pretendsToSync = true; }

    /// How often a database itself, not its log, was synced.
    [[nodiscard]] int databaseSyncs() const { return m_databaseSyncs; }

private:
    friend struct PowerCutFile;

    using Content = std::shared_ptr<PowerCutContent>;

    /// False after the power cut.
    bool operate();
    Content contentOf(const QString &path);
    void syncFolder() { m_certainFolder = m_folder; }
    int remove(const char *path, bool syncsFolder);

    sqlite3_vfs *m_system;
    sqlite3_vfs m_vfs;
    QHash<QString, Content> m_folder;
    QHash<QString, Content> m_certainFolder;
    int m_operationsLeft = -1; ///< below zero: no end in sight
    int m_openFiles = 0;
    int m_databaseSyncs = 0;
    bool m_pretendsToSync = false;
};

} // namespace quorvel::tests
