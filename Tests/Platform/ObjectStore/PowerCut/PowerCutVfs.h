#pragma once

#include "Tests/Platform/ObjectStore/PowerCut/PowerCutContent.h"

#include <QHash>
#include <QString>

#include <memory>
#include <sqlite3.h>

namespace quorvel::tests {

/// A disk whose power can be cut, beneath every SQLite database that is opened while it exists.
///
/// It passes everything through, and keeps for each file what a sync has made certain. So it does
/// for the folder: that a file was made, or is gone, is certain once the folder was synced, which
/// SQLite does with the first sync of a journal or log that it opened. The shared index beside a
/// log is memory, and gone with the power.
class PowerCutVfs
{
public:
    PowerCutVfs();
    PowerCutVfs(const PowerCutVfs &) = delete;
    PowerCutVfs &operator=(const PowerCutVfs &) = delete;
    ~PowerCutVfs();

    /// From now on nothing reaches the disk and every operation fails.
    void cutPower() { m_operationsLeft = 0; }
    /// The same, after so many more writes, truncations, syncs and deletions.
    void cutPowerAfter(int operations) { m_operationsLeft = operations; }
    [[nodiscard]] bool isPowered() const { return m_operationsLeft != 0; }

    /// Puts the files back as the disk has kept them. No database may be open.
    void restorePower(Unsynced unsynced, QRandomGenerator &random);

    /// Makes the disk one that answers to a sync without having written anything.
    void pretendToSync() { m_pretendsToSync = true; }

    /// How often a database itself, not its log, was synced.
    [[nodiscard]] int databaseSyncs() const { return m_databaseSyncs; }

private:
    friend struct PowerCutFile;

    using Content = std::shared_ptr<PowerCutContent>;

    /// False once the power is cut.
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
