#include "Platform/ObjectStore/ModelContext.h"

#include "Platform/ObjectStore/StoreError.h"
#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <SQLiteCpp/SQLiteCpp.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr Instant monday{std::chrono::milliseconds(1'792'368'000'123)};

/// A store in a file of its own, and a second look at that file.
struct Library
{
    QTemporaryDir folder;
    QString path = folder.filePath(u"Library.store"_s);
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

QStringList titles(const std::vector<std::shared_ptr<Book>> &books)
{
    QStringList result;
    for (const auto &book : books)
        result.append(book->title());
    return result;
}

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

} // namespace

class ModelContextTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyAttributeComesBackAsItWasSaved()
    {
        Library library;
        {
            auto book = std::make_shared<Book>(u"Số đỏ 😀\0x"_s, std::make_shared<Author>(u"Vũ"_s));
            book->setShelf(u""_s);
            book->setPrinted(monday);
            book->setPrice(-0.1);
            book->setFormat(
                Format{.widthMillimeters = 3, .pageCount = 1LL << 62, .isHardcover = true});
            library.context.insert(book);
            library.context.save();
        }
        library.reopen();
        const auto books = library.container->mainContext().fetch<Book>();
        QCOMPARE(books.size(), 1u);
        const Book &book = *books.front();
        QCOMPARE(book.title(), u"Số đỏ 😀\0x"_s);
        QCOMPARE(book.shelf(), std::optional(u""_s));
        QCOMPARE(book.printed(), monday);
        QCOMPARE(book.price(), -0.1);
        QCOMPARE(book.format(), std::optional(Format{3, 1LL << 62, true}));
        QCOMPARE(book.author()->name(), u"Vũ"_s);
    }

    void absentValuesComeBackAbsent()
    {
        Library library;
        library.add(u"Bare"_s);
        library.reopen();
        const auto book = library.container->mainContext().fetch<Book>().front();
        QCOMPARE(book->shelf(), std::optional<QString>());
        QCOMPARE(book->format(), std::optional<Format>());
        QVERIFY(!book->author());
    }

    void everyTextComesBackToTheLastCharacter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("byte order mark in front") << u"\xFEFFSố đỏ"_s;
        QTest::newRow("two of them") << u"\xFEFF\xFEFF"_s;
        QTest::newRow("longer than a buffer on the stack") << u"Số đỏ 😀"_s.repeated(999);
    }

    void everyTextComesBackToTheLastCharacter()
    {
        QFETCH(const QString, text);
        Library library;
        library.add(text)->setPublisher(text);
        library.context.save();
        library.reopen();
        const auto book = library.container->mainContext().fetch<Book>().front();
        QCOMPARE(book->title(), text);
        QCOMPARE(book->publisher(), std::optional(text));
    }

    void aRepeatedTextIsInMemoryOnce()
    {
        Library library;
        const QString publisher = u"Nhà xuất bản Trẻ"_s;
        for (const auto &name : {std::optional(publisher), std::optional(publisher),
                                 std::optional<QString>(), std::optional(publisher + u'!')})
            library.add(u"B"_s)->setPublisher(name);
        library.context.save();
        library.reopen();
        const auto books = library.container->mainContext().fetch<Book>();
        QCOMPARE(books[0]->publisher(), std::optional(publisher));
        QCOMPARE(books[1]->publisher()->constData(), books[0]->publisher()->constData());
        QCOMPARE(books[2]->publisher(), std::optional<QString>());
        QCOMPARE(books[3]->publisher(), std::optional(publisher + u'!'));
    }

    void aRowIsOneObjectInTheProcess()
    {
        Library library;
        const auto saved = library.add(u"One"_s);
        const auto first = library.context.fetch<Book>().front();
        const auto second = library.context.fetch<Book>().front();
        QCOMPARE(first.get(), saved.get());
        QCOMPARE(second.get(), saved.get());
    }

    void anObjectThatNobodyHoldsIsNotKept()
    {
        Library library;
        const std::weak_ptr<Book> book = library.add(u"Forgotten"_s);
        QVERIFY(book.expired());
        QCOMPARE(titles(library.context.fetch<Book>()), QStringList{u"Forgotten"_s});
    }

    void aChangedObjectThatNobodyHoldsIsStillSaved()
    {
        Library library;
        library.add(u"Before"_s)->setTitle(u"After"_s);
        QVERIFY(library.context.hasChanges());
        library.context.save();
        QVERIFY(!library.context.hasChanges());
        library.reopen();
        QCOMPARE(titles(library.container->mainContext().fetch<Book>()), QStringList{u"After"_s});
    }

    void objectsMayOutliveTheirContext()
    {
        std::shared_ptr<Book> stored;
        auto pending = std::make_shared<Book>(u"Pending"_s);
        {
            Library library;
            stored = library.add(u"Stored"_s);
            library.context.insert(pending);
        }
        stored->setTitle(u"Still writable"_s);
        QVERIFY(!stored->isStored());
        QVERIFY(!pending->isPending());
    }

    void savingNothingTouchesNothing()
    {
        Library library;
        library.add(u"One"_s);
        auto inspector = library.inspect();
        const int before = inspector.execAndGet("PRAGMA data_version").getInt();
        library.context.save();
        QCOMPARE(inspector.execAndGet("PRAGMA data_version").getInt(), before);
    }

    void fetchWithoutSortComesInTheOrderOfSaving()
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

    void fetchSortsAndKeepsTheStoresOrderAmongEquals()
    {
        Library library;
        for (const auto &[title, day] :
             {std::pair(u"b1"_s, 2), {u"a"_s, 1}, {u"b2"_s, 2}, {u"c"_s, 3}}) {
            auto book = std::make_shared<Book>(title);
            book->setPrinted(monday + std::chrono::days(day));
            library.context.insert(book);
        }
        const auto sorted = [&](SortOrder order) {
            return titles(
                library.context.fetch(FetchDescriptor<Book>().sortBy(Book::Keys::printed, order)));
        };
        const QStringList ascending{u"a"_s, u"b1"_s, u"b2"_s, u"c"_s};
        const QStringList descending{u"c"_s, u"b1"_s, u"b2"_s, u"a"_s};
        QCOMPARE(sorted(SortOrder::Ascending), ascending);
        QCOMPARE(sorted(SortOrder::Descending), descending);
        library.context.save();
        QCOMPARE(sorted(SortOrder::Ascending), ascending);
        QCOMPARE(sorted(SortOrder::Descending), descending);
    }

    void limitCountsWhatIsLeftAfterUnsavedChanges()
    {
        Library library;
        std::vector<std::shared_ptr<Book>> books;
        for (const auto &title : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
            books.push_back(library.add(title));
        const auto first = [&](int count) {
            return titles(library.context.fetch(
                FetchDescriptor<Book>().sortBy(Book::Keys::title).limit(count)));
        };
        QCOMPARE(first(2), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(first(0), QStringList());
        QCOMPARE(first(9), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
        library.context.remove(books[0]);
        books[1]->setTitle(u"Z"_s);
        QCOMPARE(first(2), (QStringList{u"C"_s, u"D"_s}));
        library.context.insert(std::make_shared<Book>(u"AA"_s));
        QCOMPARE(first(2), (QStringList{u"AA"_s, u"C"_s}));
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

    void insertingTwiceStoresOnce()
    {
        Library library;
        const auto book = std::make_shared<Book>(u"Once"_s);
        library.context.insert(book);
        library.context.insert(book);
        library.context.save();
        library.context.insert(book);
        library.context.save();
        QCOMPARE(library.count("Book"), 1);
    }

    void anInsertTakesAlongWhatItPointsTo()
    {
        Library library;
        const auto author = std::make_shared<Author>(u"Nam Cao"_s);
        const auto book = std::make_shared<Book>(u"Chí Phèo"_s, author);
        library.context.insert(book);
        QVERIFY(author->isPending());
        library.context.save();
        QVERIFY(author->isStored() && book->isStored());
        QCOMPARE(library.count("Author"), 1);
    }

    void aDestinationSetLaterIsTakenAlongToo()
    {
        Library library;
        const auto stored = library.add(u"Stored"_s);
        const auto pending = std::make_shared<Book>(u"Pending"_s);
        library.context.insert(pending);
        stored->setAuthor(std::make_shared<Author>(u"A"_s));
        pending->setAuthor(std::make_shared<Author>(u"B"_s));
        library.context.save();
        QCOMPARE(library.count("Author"), 2);
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

    void deletingCascades()
    {
        Library library;
        const auto book = library.add(u"Doomed"_s);
        const auto survivor = library.add(u"Survivor"_s);
        for (const auto &owner : {book, book, survivor})
            library.context.insert(std::make_shared<Bookmark>(owner));
        library.context.save();
        const auto pending = std::make_shared<Bookmark>(book);
        library.context.insert(pending);
        library.context.remove(book);
        QCOMPARE(library.context.fetch<Bookmark>().size(), 1u);
        library.context.save();
        QCOMPARE(library.count("Bookmark"), 1);
        QCOMPARE(library.count("Book"), 1);
        QVERIFY(!book->isStored() && !pending->isPending());
    }

    void deletingNullifies()
    {
        Library library;
        const auto author = std::make_shared<Author>(u"A"_s);
        const auto book = library.add(u"Stays"_s, author);
        QSignalSpy changes(&book->notifier(), &ChangeNotifier::changed);
        library.context.remove(author);
        QVERIFY(!book->author());
        QCOMPARE(changes.count(), 1);
        library.context.save();
        QCOMPARE(library.count("Author"), 0);
        QCOMPARE(library.count("Book WHERE author IS NULL"), 1);
    }

    void deletingTheReferrerLeavesTheDestination()
    {
        Library library;
        const auto book = library.add(u"Gone"_s, std::make_shared<Author>(u"Stays"_s));
        library.context.remove(book);
        library.context.save();
        QCOMPARE(library.count("Book"), 0);
        QCOMPARE(library.count("Author"), 1);
    }

    void aDeletionThatCannotBePreparedMayBeTriedAgain()
    {
        Library library;
        const auto book = library.add(u"B"_s);
        library.inspect().exec("ALTER TABLE Bookmark RENAME TO Hidden");
        QVERIFY(failure([&] { library.context.remove(book); }));
        QCOMPARE(library.context.fetch<Book>(), std::vector{book});
        library.inspect().exec("ALTER TABLE Hidden RENAME TO Bookmark");
        library.context.remove(book);
        library.context.save();
        QCOMPARE(library.count("Book"), 0);
    }

    void theFileItselfCascadesAndNullifies()
    {
        Library library;
        const auto book = library.add(u"B"_s, std::make_shared<Author>(u"A"_s));
        library.context.insert(std::make_shared<Bookmark>(book));
        library.context.save();
        auto file = library.inspect();
        file.exec("PRAGMA foreign_keys = ON");
        file.exec("DELETE FROM Author");
        QCOMPARE(library.count("Book WHERE author IS NULL"), 1);
        file.exec("DELETE FROM Book");
        QCOMPARE(library.count("Bookmark"), 0);
    }

    void removingWhatWasNeverSavedOnlyForgetsIt()
    {
        Library library;
        const auto book = std::make_shared<Book>(u"Draft"_s);
        library.context.insert(book);
        library.context.remove(book);
        QVERIFY(!library.context.hasChanges());
        QVERIFY(!book->isPending());
    }

    void aSecondRowWithTheSameUniqueValueIsRefused()
    {
        Library library;
        const auto first = std::make_shared<Author>(u"first"_s);
        const auto second = std::make_shared<Author>(u"second"_s);
        second->setId(first->id());
        library.context.insert(first);
        library.context.save();
        library.context.insert(second);
        QCOMPARE(failure([&] { library.context.save(); }), StoreError::Code::Duplicate);
        QCOMPARE(library.count("Author"), 1);
        QVERIFY(second->isPending());
        second->setId(QUuid::createUuid());
        library.context.save();
        QCOMPARE(library.count("Author"), 2);
    }

    void aFailedSaveLeavesEverythingPendingAndTheFileAsItWas()
    {
        Library library;
        const auto changed = library.add(u"old title"_s);
        const auto removed = library.add(u"removed"_s);
        auto other = library.inspect();
        other.exec("BEGIN IMMEDIATE");

        const auto inserted = std::make_shared<Book>(u"inserted"_s);
        library.context.insert(inserted);
        changed->setTitle(u"new title"_s);
        library.context.remove(removed);
        QCOMPARE(failure([&] { library.context.save(); }), StoreError::Code::Busy);
        QVERIFY(inserted->isPending());
        QVERIFY(changed->hasUnsavedChanges());
        QVERIFY(library.context.hasChanges());
        QCOMPARE(library.count("Book WHERE title IN ('old title', 'removed')"), 2);
        QCOMPARE(library.count("Book"), 2);

        other.exec("ROLLBACK");
        library.context.save();
        QVERIFY(inserted->isStored());
        QVERIFY(!changed->hasUnsavedChanges());
        QCOMPARE(library.count("Book WHERE title IN ('new title', 'inserted')"), 2);
        QCOMPARE(library.count("Book"), 2);
    }

    void aSaveThatFailsHalfwayWritesNoneOfIt()
    {
        Library library;
        const auto good = std::make_shared<Book>(u"good"_s);
        const auto bad = std::make_shared<Book>(u"bad"_s);
        bad->setPrice(std::numeric_limits<double>::quiet_NaN());
        library.context.insert(good);
        library.context.insert(bad);
        QCOMPARE(failure([&] { library.context.save(); }), StoreError::Code::Encoding);
        QCOMPARE(library.count("Book"), 0);
        QVERIFY(good->isPending() && bad->isPending());
        bad->setPrice(std::numeric_limits<double>::infinity());
        library.context.save();
        library.reopen();
        QCOMPARE(library.container->mainContext().fetch<Book>().back()->price(),
                 std::numeric_limits<double>::infinity());
    }

    void aStoredValueThatIsMissingOrOfTheWrongTypeFailsTheFetch_data()
    {
        QTest::addColumn<QString>("assignment");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *name, const QString &assignment, const QString &complaint) {
            QTest::newRow(name) << assignment << complaint;
        };
        row("missing key", u"pageCount = NULL"_s, u"The stored value “pageCount” is missing."_s);
        row("only one key", u"widthMillimeters = NULL, isHardcover = NULL"_s,
            u"The stored value “widthMillimeters” is missing."_s);
        row("text for integer", u"pageCount = 'many'"_s,
            u"The stored value “pageCount” is of the wrong type."_s);
        row("fraction for integer", u"pageCount = 3.5"_s,
            u"The stored value “pageCount” is of the wrong type."_s);
        row("text for real", u"widthMillimeters = 'wide'"_s,
            u"The stored value “widthMillimeters” is of the wrong type."_s);
        row("two for boolean", u"isHardcover = 2"_s,
            u"The stored value “isHardcover” is of the wrong type."_s);
        row("blob for text", u"title = x'00'"_s,
            u"The stored value “title” is of the wrong type."_s);
        row("short identifier", u"id = x'00'"_s, u"The stored value “id” is of the wrong type."_s);
        row("text for instant", u"printed = 'Monday'"_s,
            u"The stored value “printed” is of the wrong type."_s);
    }

    void aStoredValueThatIsMissingOrOfTheWrongTypeFailsTheFetch()
    {
        QFETCH(QString, assignment);
        QFETCH(QString, complaint);
        Library library;
        {
            const auto book = std::make_shared<Book>(u"B"_s);
            book->setFormat(Format{});
            library.context.insert(book);
            library.context.save();
        }
        library.inspect().exec("UPDATE Book SET " + assignment.toStdString());
        try {
            (void)library.context.fetch<Book>();
            QFAIL("the fetch went through");
        } catch (const StoreError &error) {
            QCOMPARE(error.code(), StoreError::Code::Decoding);
            QCOMPARE(error.errorDescription(), complaint);
        }
    }

    void everyWriteIsAnnouncedOnceAndAnEqualOneIsNot()
    {
        Library library;
        const auto stored = library.add(u"A"_s);
        const auto detached = std::make_shared<Book>(u"A"_s);
        for (const auto &book : {stored, detached}) {
            QSignalSpy changes(&book->notifier(), &ChangeNotifier::changed);
            book->setTitle(u"A"_s);
            QCOMPARE(changes.count(), 0);
            QVERIFY(!book->hasUnsavedChanges());
            book->setTitle(u"B"_s);
            QCOMPARE(changes.count(), 1);
        }
        QVERIFY(stored->hasUnsavedChanges());
        QVERIFY(!detached->hasUnsavedChanges());
    }

    void aFetchShowsAndAnnouncesWhatAnotherProcessWrote()
    {
        Library library;
        const auto book = library.add(u"ours"_s);
        const auto edited = library.add(u"edited"_s);
        (void)library.context.fetch<Book>();
        QSignalSpy changes(&book->notifier(), &ChangeNotifier::changed);
        library.inspect().exec("UPDATE Book SET title = 'theirs'");
        edited->setTitle(u"mine"_s);
        QCOMPARE(titles(library.context.fetch<Book>()), (QStringList{u"theirs"_s, u"mine"_s}));
        QCOMPARE(book->title(), u"theirs"_s);
        QCOMPARE(changes.count(), 1);
        (void)library.context.fetch<Book>();
        QCOMPARE(changes.count(), 1);
    }

    void anObserverMayFetchWhileAFetchAnnounces()
    {
        Library library;
        const auto first = library.add(u"1"_s);
        library.add(u"2"_s);
        library.inspect().exec("UPDATE Book SET title = title || '!'");
        QStringList seen;
        connect(&first->notifier(), &ChangeNotifier::changed, this,
                [&] { seen = titles(library.context.fetch<Book>()); });
        QCOMPARE(titles(library.context.fetch<Book>()), (QStringList{u"1!"_s, u"2!"_s}));
        QCOMPARE(seen, (QStringList{u"1!"_s, u"2!"_s}));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ModelContextTest)
#include "ModelContextTest.moc"
