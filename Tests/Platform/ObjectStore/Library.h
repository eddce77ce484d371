#pragma once

#include "Platform/ObjectStore/ModelContext.h"
#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quorvel::tests {

/// A store in its own file, and a second connection to that file.
struct Library
{
    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Library.store"));
    std::unique_ptr<ModelContainer> container =
        std::make_unique<ModelContainer>(librarySchema(), StoreConfiguration{path});
    ModelContext &context = container->mainContext();

    std::shared_ptr<Book> add(const QString &title, std::shared_ptr<Author> author = nullptr)
    {
        auto book = std::make_shared<Book>(title, std::move(author));
        context.insert(book);
        context.save();
        return book;
    }

    void reopen()
    {
        container.reset();
        container = std::make_unique<ModelContainer>(librarySchema(), StoreConfiguration{path});
    }

    [[nodiscard]] SQLite::Database inspect() const
    {
        return {path.toStdString(), SQLite::OPEN_READWRITE, 1000};
    }

    [[nodiscard]] int count(const std::string &table) const
    {
        return inspect().execAndGet("SELECT count(*) FROM " + table).getInt();
    }
};

inline QStringList titles(const std::vector<std::shared_ptr<Book>> &books)
{
    QStringList result;
    for (const auto &book : books)
        result.append(book->title());
    return result;
}

/// The code of the StoreError that the action throws; nothing if it throws none.
template <class Action>
std::optional<StoreError::Code> failure(Action action)
{
    try {
        action();
        return std::nullopt;
    } catch (const StoreError &error) {
        if (error.errorDescription().isEmpty())
            qFatal("an error without a sentence");
        return error.code();
    }
}

} // namespace quorvel::tests
