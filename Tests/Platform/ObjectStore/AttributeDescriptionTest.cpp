#include "Tests/Platform/ObjectStore/Library.h"

#include <QTest>

#include <chrono>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr Instant monday{std::chrono::milliseconds(1'792'368'000'123)};

} // namespace

/// Values survive a column unchanged.
class AttributeDescriptionTest final : public QObject
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

    void aValueThatIsNeverAbsentComesBackAsItWasSaved()
    {
        Library library;
        const Format format{.widthMillimeters = 3, .pageCount = 2, .isHardcover = false};
        {
            const auto bookmark = std::make_shared<Bookmark>(nullptr);
            bookmark->setFormat(format);
            library.context.insert(bookmark);
            library.context.save();
        }
        library.reopen();
        QCOMPARE(library.container->mainContext().fetch<Bookmark>().front()->format(), format);
    }

    void anAbsentValueIsNotThatOfTheRowBefore()
    {
        Library library;
        {
            const auto sized = std::make_shared<Book>(u"A"_s);
            sized->setFormat(Format{.widthMillimeters = 3, .pageCount = 2, .isHardcover = true});
            library.context.insert(sized);
            library.context.insert(std::make_shared<Book>(u"B"_s));
            library.context.save();
        }
        library.reopen();
        const auto books = library.container->mainContext().fetch<Book>();
        QVERIFY(books.front()->format());
        QVERIFY(!books.back()->format());
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
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::AttributeDescriptionTest)
#include "AttributeDescriptionTest.moc"
