#include "Platform/ObjectStore/FetchDescriptor.h"

#include "Tests/Platform/ObjectStore/Library.h"

#include <QTest>

#include <memory>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// The results of a fetch and their order.
class FetchDescriptorTest final : public QObject
{
    Q_OBJECT

private slots:
    void fetchComesInTheOrderOfSaving()
    {
        Library library;
        for (const auto &title : {u"C"_s, u"A"_s, u"B"_s})
            library.add(title);
        QCOMPARE(titles(library.context.fetch<Book>()), (QStringList{u"C"_s, u"A"_s, u"B"_s}));
    }

    void fetchFindsWhatEqualsTheValue()
    {
        Library library;
        for (const auto &title : {u"A"_s, u"B"_s, u"A"_s})
            library.add(title);
        library.context.fetch<Book>().back()->setShelf(u"top"_s);
        library.context.save();
        using Keys = Book::Keys;
        const auto find = [&](auto key, auto value) {
            return library.context.fetch(FetchDescriptor<Book>().whereEqual(key, value)).size();
        };
        QCOMPARE(find(Keys::title, u"A"_s), 2u);
        QCOMPARE(find(Keys::title, u"a"_s), 0u);
        QCOMPARE(find(Keys::shelf, std::optional(u"top"_s)), 1u);
        QCOMPARE(find(Keys::shelf, std::optional<QString>()), 2u);
        const auto both = FetchDescriptor<Book>()
                              .whereEqual(Keys::title, u"A"_s)
                              .whereEqual(Keys::shelf, std::nullopt);
        QCOMPARE(library.context.fetch(both).size(), 1u);
    }

    void changedObjectsKeepTheirPlaceAndNewOnesComeLast()
    {
        Library library;
        const auto changed = library.add(u"A"_s);
        library.add(u"B"_s);
        for (const auto &title : {u"D"_s, u"C"_s})
            library.context.insert(std::make_shared<Book>(title));
        changed->setTitle(u"Z"_s);
        const QStringList inOrder{u"Z"_s, u"B"_s, u"D"_s, u"C"_s};
        QCOMPARE(titles(library.context.fetch<Book>()), inOrder);
        library.context.save();
        QCOMPARE(titles(library.context.fetch<Book>()), inOrder);
    }

    void limitCountsWhatIsLeftAfterUnsavedChanges()
    {
        Library library;
        std::vector<std::shared_ptr<Book>> books;
        for (const auto &title : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
            books.push_back(library.add(title));
        const auto first = [&](int count) {
            return titles(library.context.fetch(
                FetchDescriptor<Book>().whereEqual(Book::Keys::shelf, std::nullopt).limit(count)));
        };
        QCOMPARE(first(2), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(first(0), QStringList());
        QCOMPARE(first(9), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
        library.context.remove(books[0]);
        books[1]->setShelf(u"top"_s);
        QCOMPARE(first(2), (QStringList{u"C"_s, u"D"_s}));
        library.context.insert(std::make_shared<Book>(u"E"_s));
        QCOMPARE(first(2), (QStringList{u"C"_s, u"D"_s}));
        QCOMPARE(first(3), (QStringList{u"C"_s, u"D"_s, u"E"_s}));
    }

    void fetchSeesInsertsChangesAndDeletionsThatAreNotSaved()
    {
        Library library;
        const auto kept = library.add(u"kept"_s);
        const auto gone = library.add(u"gone"_s);
        const auto renamed = library.add(u"old"_s);
        const auto inserted = std::make_shared<Book>(u"new"_s);
        library.context.insert(inserted);
        library.context.remove(gone);
        renamed->setTitle(u"new"_s);
        QCOMPARE(titles(library.context.fetch<Book>()),
                 (QStringList{u"kept"_s, u"new"_s, u"new"_s}));
        const auto named = [&](const QString &title) {
            return library.context.fetch(
                FetchDescriptor<Book>().whereEqual(Book::Keys::title, title));
        };
        QVERIFY(named(u"old"_s).empty());
        QVERIFY(named(u"gone"_s).empty());
        QCOMPARE(named(u"new"_s), (std::vector{renamed, inserted}));
    }

    void theManySideListsStoredAndPendingReferrers()
    {
        Library library;
        const auto author = std::make_shared<Author>(u"A"_s);
        const auto stored = library.add(u"stored"_s, author);
        library.add(u"other"_s);
        const auto pending = std::make_shared<Book>(u"pending"_s, author);
        library.context.insert(pending);
        const auto moved = library.add(u"moved"_s, author);
        moved->setAuthor(nullptr);
        QCOMPARE(library.context.fetchRelated<Book>(Book::authorRelationship, *author),
                 (std::vector{stored, pending}));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FetchDescriptorTest)
#include "FetchDescriptorTest.moc"
