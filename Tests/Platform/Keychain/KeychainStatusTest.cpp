#include "Platform/Keychain/KeychainStatus.h"

#include <QTest>

#include <limits>

using namespace quorvel;
using namespace Qt::StringLiterals;

class KeychainStatusTest final : public QObject
{
    Q_OBJECT

private slots:
    void everyFailureHasItsNumberAndSentence_data()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("sentence");

        QTest::newRow("duplicateItem") << KeychainStatus::duplicateItem << -25299
                                       << u"The specified item already exists in the keychain."_s;
        QTest::newRow("itemNotFound")
            << KeychainStatus::itemNotFound << -25300
            << u"The specified item could not be found in the keychain."_s;
        QTest::newRow("interactionNotAllowed") << KeychainStatus::interactionNotAllowed << -25308
                                               << u"User interaction is not allowed."_s;
        QTest::newRow("authenticationFailed")
            << KeychainStatus::authenticationFailed << -25293
            << u"The user name or passphrase you entered is not correct."_s;
        QTest::newRow("userCanceled")
            << KeychainStatus::userCanceled << -128 << u"User canceled the operation."_s;
        QTest::newRow("notAvailable")
            << KeychainStatus::notAvailable << -25291
            << u"No keychain is available. You may need to restart your computer."_s;
        QTest::newRow("noDefaultKeychain") << KeychainStatus::noDefaultKeychain << -25307
                                           << u"A default keychain could not be found."_s;
        QTest::newRow("invalidParameter")
            << KeychainStatus::invalidParameter << -50
            << u"One or more parameters passed to a function were not valid."_s;
    }

    void everyFailureHasItsNumberAndSentence()
    {
        QFETCH(const KeychainStatus::Code, status);
        QFETCH(const int, number);
        QFETCH(const QString, sentence);
        QCOMPARE(status, number);
        QCOMPARE(KeychainStatus::message(status), sentence);
    }

    void anyOtherNumberHasNoSentence_data()
    {
        QTest::addColumn<KeychainStatus::Code>("status");
        QTest::newRow("success") << KeychainStatus::success;
        QTest::newRow("positive twin") << 25300;
        QTest::newRow("neighbour above") << -25298;
        QTest::newRow("neighbour below") << -25301;
        QTest::newRow("lowest") << std::numeric_limits<KeychainStatus::Code>::min();
        QTest::newRow("highest") << std::numeric_limits<KeychainStatus::Code>::max();
    }

    void anyOtherNumberHasNoSentence()
    {
        QFETCH(const KeychainStatus::Code, status);
        QVERIFY(!KeychainStatus::message(status));
    }

    void successIsZero() { QCOMPARE(KeychainStatus::success, 0); }
};

QTEST_GUILESS_MAIN(KeychainStatusTest)
#include "KeychainStatusTest.moc"
