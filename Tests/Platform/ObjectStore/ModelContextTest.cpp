#include "Tests/Platform/ObjectStore/Library.h"

#include <QTest>
#include <QUuid>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class ModelContextTest final : public QObject
{
    Q_OBJECT

private slots:
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

    void savingNothingTouchesNothing()
    {
        Library library;
        library.add(u"One"_s);
        auto inspector = library.inspect();
        const int before = inspector.execAndGet("PRAGMA data_version").getInt();
        library.context.save();
        QCOMPARE(inspector.execAndGet("PRAGMA data_version").getInt(), before);
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

    void whatAnObjectPointsToComesWithWhatThatPointsTo()
    {
        Library library;
        const auto author = std::make_shared<Author>(u"Nam Cao"_s);
        library.context.insert(std::make_shared<Bookmark>(library.add(u"Chí Phèo"_s, author)));
        library.context.save();
        library.reopen();
        const auto bookmark = library.container->mainContext().fetch<Bookmark>().front();
        QCOMPARE(bookmark->book()->author()->name(), u"Nam Cao"_s);
    }

    void whatPointsToNothingStaysSoBesideOthers()
    {
        Library library;
        library.add(u"with an author"_s, std::make_shared<Author>(u"A"_s));
        library.add(u"without"_s);
        library.reopen();
        const auto books = library.container->mainContext().fetch<Book>();
        QVERIFY(books.front()->author());
        QVERIFY(!books.back()->author());
    }

    void aFetchListsItsOwnKindOnly()
    {
        Library library;
        library.context.insert(std::make_shared<Author>(u"A"_s));
        QVERIFY(library.context.fetch<Book>().empty());
    }

    void anObjectOfAnotherStoreIsNotRemoved()
    {
        Library library;
        Library other;
        const auto book = other.add(u"theirs"_s);
        library.context.remove(book);
        QVERIFY(!library.context.hasChanges());
        QVERIFY(book->isStored());
    }

    void aRemovedObjectCanBeStoredAnew()
    {
        Library library;
        const auto book = library.add(u"A"_s);
        book->setTitle(u"B"_s);
        library.context.remove(book);
        library.context.save();
        library.context.insert(book);
        library.context.save();
        QCOMPARE(titles(library.context.fetch<Book>()), QStringList{u"B"_s});
        book->setTitle(u"C"_s);
        library.context.save();
        QCOMPARE(library.count("Book WHERE title = 'C'"), 1);
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
        QVERIFY(library.context.hasChanges());
        QCOMPARE(library.count("Book WHERE title IN ('old title', 'removed')"), 2);
        QCOMPARE(library.count("Book"), 2);

        other.exec("ROLLBACK");
        library.context.save();
        QVERIFY(inserted->isStored());
        QVERIFY(!library.context.hasChanges());
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::ModelContextTest)
#include "ModelContextTest.moc"
