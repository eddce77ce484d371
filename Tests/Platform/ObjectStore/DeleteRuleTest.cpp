#include "Tests/Platform/ObjectStore/Library.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Deleting an object deletes the objects that its relationships say.
class DeleteRuleTest final : public QObject
{
    Q_OBJECT

private slots:
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::DeleteRuleTest)
#include "DeleteRuleTest.moc"
