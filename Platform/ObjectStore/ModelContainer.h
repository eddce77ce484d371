#pragma once

#include "Platform/ObjectStore/ModelContext.h"

#include <QString>

#include <functional>
#include <memory>

namespace quorvel {

/// Where a store keeps its rows.
struct StoreConfiguration
{
    /// Absolute path of the file; absent keeps everything in memory and never touches the disk.
    std::optional<QString> path;
};

/// An open object store and its main-thread context.
///
/// A file is one SQLite database, private to its user (0600). A save is one transaction that has
/// reached the disk when it returns. Two processes may open the same file.
class ModelContainer final
{
public:
    /// Opens the store, making it if there is none. Throws StoreError and leaves the file untouched
    /// when it is not a store of this very schema version.
    ModelContainer(const Schema &schema, const StoreConfiguration &configuration);
    ~ModelContainer();

    /// Runs the action while no other process runs one: what it reads stays true until it has
    /// saved. Not within another. Throws StoreError when a turn does not come.
    void inTurn(const std::function<void()> &action);

    [[nodiscard]] ModelContext &mainContext() { return m_mainContext; }

private:
    StoreConfiguration m_configuration;
    std::unique_ptr<StoreConnection> m_connection;
    ModelContext m_mainContext;
};

} // namespace quorvel
