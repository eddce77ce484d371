#pragma once

#include "Platform/ObjectStore/ModelContainer.h"
#include "Platform/ObjectStore/PersistentObject.h"
#include "Platform/ObjectStore/Schema/EntityDescription.h"

#include <QUuid>

#include <memory>
#include <optional>
#include <tuple>
#include <utility>

namespace quorvel::tests {

/// The size of a book, as a composite value.
struct Format
{
    double widthMillimeters = 0;
    qint64 pageCount = 0;
    bool isHardcover = false;

    static constexpr auto codingKeys()
    {
        return std::tuple(CodingKey{"widthMillimeters", &Format::widthMillimeters},
                          CodingKey{"pageCount", &Format::pageCount},
                          CodingKey{"isHardcover", &Format::isHardcover});
    }
    friend bool operator==(const Format &, const Format &) = default;
};

class Author final : public PersistentObject
{
public:
    explicit Author(FromStore) {}
    explicit Author(QString name)
        : m_name(std::move(name))
    {}

    static const EntityDescription &entity()
    {
        static const EntityDescription description{
            .name = "Author",
            .make = &makeFromStore<Author>,
            .attributes = {uniqueAttribute<&Author::m_id>("id"),
                           attribute<&Author::m_name>("name")},
            .relationships = {}};
        return description;
    }
    const EntityDescription &entityDescription() const override { return entity(); }

    const QUuid &id() const { return m_id; }
    void setId(QUuid id) { write(m_id, id); }
    const QString &name() const { return m_name; }
    void setName(const QString &name) { write(m_name, name); }

private:
    QUuid m_id = QUuid::createUuid();
    QString m_name;
};

/// Survives the deletion of its author. Its format is optional.
class Book final : public PersistentObject
{
public:
    explicit Book(FromStore) {}
    explicit Book(QString title, std::shared_ptr<Author> author = nullptr)
        : m_title(std::move(title))
        , m_author(std::move(author))
    {}

    static const EntityDescription &entity()
    {
        static const EntityDescription description{
            .name = "Book",
            .make = &makeFromStore<Book>,
            .attributes = {uniqueAttribute<&Book::m_id>("id"), attribute<&Book::m_title>("title"),
                           lookupAttribute<&Book::m_shelf>("shelf"),
                           repeatedAttribute<&Book::m_publisher>("publisher"),
                           attribute<&Book::m_printed>("printed"),
                           attribute<&Book::m_price>("price"),
                           optionalCompositeAttribute<&Book::m_format>()},
            .relationships = {toOne<&Book::m_author>("author", DeleteRule::Nullify)}};
        return description;
    }
    const EntityDescription &entityDescription() const override { return entity(); }

    const QString &title() const { return m_title; }
    void setTitle(const QString &title) { write(m_title, title); }
    const std::optional<QString> &shelf() const { return m_shelf; }
    void setShelf(const std::optional<QString> &shelf) { write(m_shelf, shelf); }
    const std::optional<QString> &publisher() const { return m_publisher; }
    void setPublisher(const std::optional<QString> &publisher) { write(m_publisher, publisher); }
    Instant printed() const { return m_printed; }
    void setPrinted(Instant printed) { write(m_printed, printed); }
    double price() const { return m_price; }
    void setPrice(double price) { write(m_price, price); }
    const std::optional<Format> &format() const { return m_format; }
    void setFormat(const std::optional<Format> &format) { write(m_format, format); }
    const std::shared_ptr<Author> &author() const { return m_author; }
    void setAuthor(const std::shared_ptr<Author> &author) { write(m_author, author); }

    static constexpr auto authorRelationship = "author";
    struct Keys;

private:
    QUuid m_id = QUuid::createUuid();
    QString m_title;
    std::optional<QString> m_shelf;
    std::optional<QString> m_publisher;
    Instant m_printed;
    double m_price = 0;
    std::optional<Format> m_format;
    std::shared_ptr<Author> m_author;
};

struct Book::Keys
{
    static constexpr AttributeKey title{"title", &Book::title};
    static constexpr AttributeKey shelf{"shelf", &Book::shelf};
};

/// Is deleted with its book.
class Bookmark final : public PersistentObject
{
public:
    explicit Bookmark(FromStore) {}
    explicit Bookmark(std::shared_ptr<Book> book)
        : m_book(std::move(book))
    {}

    static const EntityDescription &entity()
    {
        static const EntityDescription description{
            .name = "Bookmark",
            .make = &makeFromStore<Bookmark>,
            .attributes = {uniqueAttribute<&Bookmark::m_id>("id"),
                           compositeAttribute<&Bookmark::m_format>()},
            .relationships = {toOne<&Bookmark::m_book>("book", DeleteRule::Cascade)}};
        return description;
    }
    const EntityDescription &entityDescription() const override { return entity(); }

    const std::shared_ptr<Book> &book() const { return m_book; }
    const Format &format() const { return m_format; }
    void setFormat(const Format &format) { write(m_format, format); }

private:
    QUuid m_id = QUuid::createUuid();
    Format m_format;
    std::shared_ptr<Book> m_book;
};

inline Schema librarySchema(SchemaVersion version = {1, 0, 0})
{
    return {.version = version,
            .entities = {&Author::entity(), &Book::entity(), &Bookmark::entity()}};
}

} // namespace quorvel::tests
