#include "Platform/ObjectStore/Sql/RowTable.h"

#include "Tests/Platform/ObjectStore/LibraryEntities.h"

#include <QTest>

#include <limits>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class RowTableTest final : public QObject
{
    Q_OBJECT

private slots:
    void eachRowHasItsOwnObject()
    {
        RowTable table;
        std::vector<std::shared_ptr<Author>> authors;
        const std::vector<qint64> rows{1,
                                       2,
                                       63,
                                       64,
                                       65,
                                       127,
                                       128,
                                       1LL << 40,
                                       -1,
                                       0,
                                       -64,
                                       -65,
                                       std::numeric_limits<qint64>::max()};
        for (const qint64 row : rows) {
            QVERIFY(!table.find(row));
            authors.push_back(std::make_shared<Author>(u"A"_s));
            table.insert(row, authors.back());
        }
        for (size_t i = 0; i < rows.size(); ++i)
            QCOMPARE(table.find(rows[i]), authors[i]);
        QVERIFY(!table.find(3));
        QCOMPARE(table.objects().size(), rows.size());
    }

    void aRemovedRowLeavesItsNeighbours()
    {
        RowTable table;
        const auto author = std::make_shared<Author>(u"A"_s);
        table.insert(1, author);
        table.insert(2, author);
        table.remove(1);
        QVERIFY(!table.find(1));
        QCOMPARE(table.find(2), author);
        table.remove(2);
        QVERIFY(!table.find(2));
        table.insert(1, author);
        QCOMPARE(table.find(1), author);
    }

    void noObjectIsKeptAlive()
    {
        RowTable table;
        auto author = std::make_shared<Author>(u"A"_s);
        table.insert(1, author);
        const std::weak_ptr<Author> observer = author;
        author.reset();
        QVERIFY(observer.expired());
        QVERIFY(!table.find(1));
        QVERIFY(table.objects().empty());
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RowTableTest)
#include "RowTableTest.moc"
