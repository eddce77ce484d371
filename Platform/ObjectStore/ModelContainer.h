#pragma once

#include "Platform/ObjectStore/ModelContext.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel {

class StoreConnection;

/// Where a store keeps its rows.
struct StoreConfiguration
{
    /// The absolute path of the file. Without one, the store is in memory and never touches the
    /// disk.
    std::optional<QString> path;
};

/// An open object store with its main-thread context. A file is one SQLite database that only its
/// user can read (0600). A save is one transaction, which is on the disk when the save returns. Two
/// processes may open the same file.
class ModelContainer final
{
public:
    /// Opens the store, or creates it. Throws StoreError, and leaves the file untouched, if it is
    /// not a store of exactly this schema version.
    ModelContainer(const Schema &schema, const StoreConfiguration &configuration);
    ~ModelContainer();

    /// Runs the action while no other process runs one, so that what it reads stays true until it
    /// has saved. Calls cannot be nested. Throws StoreError if it waits too long for its turn.
    void inTurn(const std::function<void()> &action);

    [[nodiscard]] ModelContext &mainContext() { return m_mainContext; }

private:
    StoreConfiguration m_configuration;
    std::unique_ptr<StoreConnection> m_connection;
    ModelContext m_mainContext;
};

} // namespace quorvel
