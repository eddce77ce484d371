#include "Core/Support/RecordListModel.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <QVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

struct Row
{
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(int count MEMBER count)

public:
    QString name;
    int count = 0;

    [[nodiscard]] const QString &id() const { return name; }
    friend bool operator==(const Row &, const Row &) = default;
};

using Rows = QList<Row>;
using Model = RecordListModel<Row>;

} // namespace

class RecordListModelTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_model.emplace();
        m_log.clear();
        connect(&*m_model, &Model::rowsInserted, this, [this] { m_log.append(u"insert"_s); });
        connect(&*m_model, &Model::rowsRemoved, this, [this] { m_log.append(u"remove"_s); });
        connect(&*m_model, &Model::rowsMoved, this, [this] { m_log.append(u"move"_s); });
        connect(&*m_model, &Model::dataChanged, this, [this] { m_log.append(u"change"_s); });
        connect(&*m_model, &Model::modelReset, this, [this] { m_log.append(u"reset"_s); });
    }

    void rolesAreTheRecordsProperties()
    {
        m_model->setRecords({{u"a"_s, 7}});
        const auto roles = m_model->roleNames();
        QCOMPARE(roles.size(), 2);
        QCOMPARE(m_model->data(m_model->index(0), roles.key("name")), QVariant(u"a"_s));
        QCOMPARE(m_model->data(m_model->index(0), roles.key("count")), QVariant(7));
        QVERIFY(!m_model->data(m_model->index(1), roles.key("count")).isValid());
        QVERIFY(!m_model->data(m_model->index(0), 0).isValid());
    }

    void aRowHasNoRowsBelowIt()
    {
        m_model->setRecords({{u"a"_s, 7}});
        QCOMPARE(m_model->rowCount(m_model->index(0)), 0);
    }

    void aListBecomesAnotherWithAsLittleAsItTakes_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QStringList>("steps");
        QTest::newRow("same") << u"a1 b1"_s << u"a1 b1"_s << QStringList();
        QTest::newRow("changed") << u"a1 b1"_s << u"a1 b2"_s << QStringList({u"change"_s});
        QTest::newRow("one more") << u"a1"_s << u"a1 b1"_s << QStringList({u"insert"_s});
        QTest::newRow("one before") << u"b1"_s << u"a1 b1"_s << QStringList({u"insert"_s});
        QTest::newRow("fewer") << u"a1 b1 c1"_s << u"a1"_s << QStringList({u"remove"_s});
        QTest::newRow("moved") << u"a1 b1 c1"_s << u"c1 a1 b1"_s << QStringList({u"move"_s});
        QTest::newRow("moved and changed")
            << u"a1 b1"_s << u"b2 a1"_s << QStringList({u"move"_s, u"change"_s});
        QTest::newRow("none left") << u"a1 b1"_s << QString() << QStringList({u"remove"_s});
        QTest::newRow("others") << u"a1"_s << u"b1"_s << QStringList({u"insert"_s, u"remove"_s});
        QTest::newRow("a name twice") << u"a1"_s << u"a1 a2"_s << QStringList({u"insert"_s});
    }

    void aListBecomesAnotherWithAsLittleAsItTakes()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, after);
        QFETCH(const QStringList, steps);
        const QAbstractItemModelTester tester(
            &*m_model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        m_model->setRecords(rows(before));
        m_log.clear();
        m_model->setRecords(rows(after));
        QCOMPARE(m_log, steps);
        QVERIFY(m_model->records() == rows(after));
        QCOMPARE(m_model->rowCount(), int(rows(after).size()));
    }

private:
    /// "a1 b2" means a row a with the count 1 and a row b with the count 2.
    [[nodiscard]] static Rows rows(const QString &text)
    {
        Rows rows;
        for (const QString &word : text.split(u' ', Qt::SkipEmptyParts))
            rows.append({.name = word.first(1), .count = word.last(1).toInt()});
        return rows;
    }

    std::optional<Model> m_model;
    QStringList m_log;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::RecordListModelTest)
#include "RecordListModelTest.moc"
