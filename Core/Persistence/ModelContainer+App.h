#pragma once

#include "Platform/Files/FileManager.h"
#include "Platform/ObjectStore/ModelContainer.h"

#include <memory>

namespace quorvel {

enum class InMemory : bool { No, Yes };

/// Makes the program's object store: its entities, its version and its file.
namespace AppModelContainer {

/// Opens the store, in "Quorvel/Quorvel.store" under the user's Application Support folder or in
/// memory only. Throws FileError or StoreError.
[[nodiscard]] std::unique_ptr<ModelContainer> make(InMemory inMemory,
                                                   const FileManager &fileManager);

} // namespace AppModelContainer

} // namespace quorvel
