#include "Core/Keychain/KeychainError.h"

#include <QLocale>
#include <QSet>
#include <QTest>

#include <limits>

using namespace quorvel;
using namespace Qt::StringLiterals;

using Operation = KeychainError::Operation;

Q_DECLARE_METATYPE(quorvel::KeychainError::Operation)

class KeychainErrorTest final : public QObject
{
    Q_OBJECT

private slots:
    void aStatusIsShownWithItsOperationAndMessage_data()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("sentence");

        QTest::newRow("save") << -25308 << Operation::Save
                              << u"Keychain save failed (-25308): "
                                 "User interaction is not allowed."_s;
        QTest::newRow("read") << -25291 << Operation::Read
                              << u"Keychain read failed (-25291): No keychain is available. "
                                 "You may need to restart your computer."_s;
        QTest::newRow("delete") << -25300 << Operation::Delete
                                << u"Keychain delete failed (-25300): "
                                   "The specified item could not be found in the keychain."_s;
        QTest::newRow("unknown") << -1 << Operation::Read
                                 << u"Keychain read failed (-1): unknown error"_s;
        QTest::newRow("zero") << 0 << Operation::Save
                              << u"Keychain save failed (0): unknown error"_s;
        QTest::newRow("positive") << 25308 << Operation::Save
                                  << u"Keychain save failed (25308): unknown error"_s;
        QTest::newRow("lowest") << std::numeric_limits<KeychainStatus::Code>::min()
                                << Operation::Read
                                << u"Keychain read failed (-2147483648): unknown error"_s;
        QTest::newRow("highest") << std::numeric_limits<KeychainStatus::Code>::max()
                                 << Operation::Read
                                 << u"Keychain read failed (2147483647): unknown error"_s;
    }

    void aStatusIsShownWithItsOperationAndMessage()
    {
        QFETCH(const KeychainStatus::Code, status);
        QFETCH(const Operation, operation);
        QFETCH(const QString, sentence);

        const auto error = KeychainError::unhandledStatus(status, operation);
        QCOMPARE(error.kind(), KeychainError::Case::UnhandledStatus);
        QCOMPARE(error.status(), status);
        QCOMPARE(error.operation(), operation);
        QCOMPARE(error.errorDescription(), sentence);
        QCOMPARE(QString::fromUtf8(error.what()), sentence);
    }

    void theNumberKeepsItsPlainDigitsInEveryLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const QString sentence =
            KeychainError::unhandledStatus(-25308, Operation::Save).errorDescription();
        QLocale::setDefault(before);
        QVERIFY(sentence.startsWith(u"Keychain save failed (-25308): "_s));
    }

    void anItemThatIsNoTextHasItsSentence()
    {
        const auto error = KeychainError::unexpectedItemFormat();
        QCOMPARE(error.kind(), KeychainError::Case::UnexpectedItemFormat);
        QCOMPARE(error.errorDescription(),
                 u"Keychain item exists but is not a valid UTF-8 string."_s);
    }

    void operationsAreCalledByTheirRawValues()
    {
        QCOMPARE(KeychainError::rawValue(Operation::Save), u"save"_s);
        QCOMPARE(KeychainError::rawValue(Operation::Read), u"read"_s);
        QCOMPARE(KeychainError::rawValue(Operation::Delete), u"delete"_s);
        QCOMPARE(int(Operation::Save), 0);
        QCOMPARE(int(Operation::Read), 1);
        QCOMPARE(int(Operation::Delete), 2);
    }

    void operationsCanBeKeysOfAHash()
    {
        const QSet<Operation> operations{Operation::Save, Operation::Read, Operation::Save};
        QCOMPARE(operations.size(), 2);
    }

    void errorsAreEqualOnlyWithTheSameCaseStatusAndOperation()
    {
        const auto error = KeychainError::unhandledStatus(-25308, Operation::Save);
        QVERIFY(error == KeychainError::unhandledStatus(-25308, Operation::Save));
        QVERIFY(error != KeychainError::unhandledStatus(-25308, Operation::Read));
        QVERIFY(error != KeychainError::unhandledStatus(-25307, Operation::Save));
        QVERIFY(KeychainError::unexpectedItemFormat() == KeychainError::unexpectedItemFormat());
        QVERIFY(KeychainError::unexpectedItemFormat() !=
                KeychainError::unhandledStatus(KeychainStatus::success, Operation::Read));
    }
};

QTEST_GUILESS_MAIN(KeychainErrorTest)
#include "KeychainErrorTest.moc"
