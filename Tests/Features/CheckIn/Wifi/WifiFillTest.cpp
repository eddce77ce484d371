#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Filling in a password from the system, for one network only.
class WifiFillTest final : public WifiSectionCase
{
    Q_OBJECT

private slots:
    void theSystemsPasswordReplacesTheDraft()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_section->setConnectPasswordDraft(u"typed"_s);
        m_services->reader.passwords.willSucceed(u"from the system"_s);
        m_section->fillFromSystem(u"A"_s);
        QVERIFY(m_section->autofillAttempted());
        settle();
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"from the system"_s);
        QCOMPARE(m_services->reader.askedFor, QStringList({u"A"_s}));
        QVERIFY(!m_section->connectRow().revealConnectPassword);
        QCOMPARE(m_section->connectRow().revealTitle, u"Show password"_s);
        m_section->toggleRevealConnectPassword();
        QVERIFY(m_section->connectRow().revealConnectPassword);
        QCOMPARE(m_section->connectRow().revealTitle, u"Hide password"_s);
    }

    void aSystemWithoutOneChangesNothing()
    {
        show(three);
        m_section->setConnectPasswordDraft(u"typed"_s);
        m_services->reader.passwords.willSucceed(std::nullopt);
        m_section->fillFromSystem(u"A"_s);
        settle();
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"typed"_s);
        QVERIFY(m_section->autofillAttempted());
    }

    void theSystemIsNotAskedTwiceAtOnce()
    {
        show(three);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        m_section->fillFromSystem(u"A"_s);
        QCOMPARE(m_services->reader.askedFor.size(), 1);
        answerFill(std::nullopt);
        m_services->reader.passwords.willSucceed(u"now"_s);
        m_section->fillFromSystem(u"A"_s);
        settle();
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"now"_s);
    }

    void aSystemPasswordNeverLandsInAnotherRow_data()
    {
        QTest::addColumn<QStringList>("toggles");
        QTest::newRow("closed") << QStringList({u"A"_s});
        QTest::newRow("another one open") << QStringList({u"B"_s});
        QTest::newRow("closed and open again") << QStringList({u"A"_s, u"A"_s});
        QTest::newRow("other") << QStringList({other});
    }

    void aSystemPasswordNeverLandsInAnotherRow()
    {
        QFETCH(const QStringList, toggles);
        show(three);
        m_section->toggle(u"A"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        for (const QString &row : toggles)
            m_section->toggle(row);
        answerFill(u"the password of A"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
    }

    void aSystemPasswordNeverLandsUnderAnotherTypedName()
    {
        show({});
        m_section->setManualSSIDDraft(u"Typed"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"Typed"_s);
        m_section->setManualSSIDDraft(u"Typed too"_s);
        answerFill(u"the password of Typed"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
    }

    void ofTwoNetworksTheLaterQuestionIsAnswered()
    {
        show(three);
        m_section->toggle(u"A"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"A"_s);
        m_section->toggle(u"B"_s);
        m_services->reader.passwords.willHold();
        m_section->fillFromSystem(u"B"_s);
        answerFill(u"the password of A"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, QString());
        answerFill(u"the password of B"_s);
        QCOMPARE(m_section->connectRow().connectPasswordDraft, u"the password of B"_s);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WifiFillTest)
#include "WifiFillTest.moc"
