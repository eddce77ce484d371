#include "Tests/Platform/ObjectStore/Library.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// What an object reports about its own changes.
class PersistentObjectTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyWriteIsAnnouncedOnceAndAnEqualOneIsNot()
    {
        Library library;
        const auto stored = library.add(u"A"_s);
        const auto detached = std::make_shared<Book>(u"A"_s);
        for (const auto &book : {detached, stored}) {
            QSignalSpy changes(&book->notifier(), &ChangeNotifier::changed);
            book->setTitle(u"A"_s);
            QCOMPARE(changes.count(), 0);
            QVERIFY(!library.context.hasChanges());
            book->setTitle(u"B"_s);
            QCOMPARE(changes.count(), 1);
        }
        QVERIFY(library.context.hasChanges());
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

    void aFetchFollowsWhatAnotherProcessTookAwayOrPointedElsewhere()
    {
        Library library;
        const auto book = library.add(u"A"_s, std::make_shared<Author>(u"first"_s));
        book->setFormat(Format{.widthMillimeters = 3, .pageCount = 2, .isHardcover = true});
        library.context.save();
        const auto author = std::make_shared<Author>(u"second"_s);
        library.context.insert(author);
        library.context.save();
        (void)library.context.fetch<Book>();
        library.inspect().exec("UPDATE Book SET widthMillimeters = NULL, pageCount = NULL, "
                               "isHardcover = NULL, author = "
                               "(SELECT pk FROM Author WHERE name = 'second')");
        (void)library.context.fetch<Book>();
        QVERIFY(!book->format());
        QCOMPARE(book->author(), author);
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::PersistentObjectTest)
#include "PersistentObjectTest.moc"
