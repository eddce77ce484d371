#include "Platform/Errors/FakeAnswers.h"

#include "Tests/Support/Heard.h"
#include "Tests/Support/Services/LastWords.h"

#include <QCoreApplication>

#include <memory>
#include <optional>
#include <vector>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

class Refusal final : public LocalizedError
{
public:
    [[nodiscard]] QString errorDescription() const override { return u"No."_s; }
};

using Answers = FakeAnswers<int, QString>;
using Answer = std::shared_ptr<Heard<int>>;

Answer begin(Answers &answers, const QString &request = {})
{
    auto heard = std::make_shared<Heard<int>>();
    answers.call(Heard<int>::by(heard), request);
    return heard;
}

Outcome<int> success(int value)
{
    return Outcome<int>::success(value);
}

} // namespace

class FakeAnswersTest final : public QObject
{
    Q_OBJECT

private slots:
    void eachCallTakesAnEntryOfTheScriptAndEndsLater()
    {
        Answers answers("ask");
        answers.willSucceed(1);
        answers.willFail(Refusal());
        const auto first = begin(answers, u"a"_s);
        const auto second = begin(answers, u"b"_s);
        QCOMPARE(first->count + second->count, 0);
        QCoreApplication::processEvents();
        QCOMPARE(first->count, 1);
        QCOMPARE(first->value, 1);
        QCOMPARE(second->count, 1);
        QCOMPARE(second->error, u"No."_s);
        QVERIFY(answers.requests == std::vector({u"a"_s, u"b"_s}));
    }

    void aHeldCallTakesTheNextAnswerOfTheScript()
    {
        Answers answers("ask");
        answers.willHold();
        answers.willSucceed(1);
        answers.willSucceed(2);
        const auto held = begin(answers);
        const auto other = begin(answers);
        QCoreApplication::processEvents();
        QCOMPARE(other->value, 1);
        QCOMPARE(held->count, 0);
        answers.release();
        QCOMPARE(held->count, 0);
        QCoreApplication::processEvents();
        QCOMPARE(held->value, 2);
    }

    void theCallThatIsHeldForLongestIsReleasedFirst()
    {
        Answers answers("ask");
        answers.willHold();
        answers.willHold();
        const auto first = begin(answers);
        const auto second = begin(answers);
        answers.release(success(1));
        QCoreApplication::processEvents();
        QCOMPARE(first->value, 1);
        QCOMPARE(second->count, 0);
        answers.release(success(2));
        QCoreApplication::processEvents();
        QCOMPARE(second->value, 2);
    }

    void openCallsAreDroppedUnlessTheyArePromisedAnEnd_data()
    {
        QTest::addColumn<bool>("isPromised");
        QTest::newRow("dropped") << false;
        QTest::newRow("promised") << true;
    }

    void openCallsAreDroppedUnlessTheyArePromisedAnEnd()
    {
        QFETCH(const bool, isPromised);
        auto answers =
            std::make_unique<Answers>("ask", isPromised ? std::optional(success(9)) : std::nullopt);
        answers->willHold();
        answers->willSucceed(1);
        const auto held = begin(*answers);
        const auto onItsWay = begin(*answers);
        answers.reset();
        QCoreApplication::processEvents();
        for (const Answer &heard : {held, onItsWay}) {
            QCOMPARE(heard->count, isPromised ? 1 : 0);
            QCOMPARE(heard->value, isPromised ? std::optional(9) : std::nullopt);
        }
    }

    void whatIsNotScriptedEndsTheTest()
    {
        Answers answers("ask");
        QCOMPARE(lastWords([&] { answers.call({}); }),
                 QByteArray("ask: called without a scripted answer"));
        QCOMPARE(lastWords([&] { answers.release(); }),
                 QByteArray("ask: released without a scripted answer"));
        QCOMPARE(lastWords([&] { answers.release(success(1)); }),
                 QByteArray("ask: no call is held open"));
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::FakeAnswersTest)
#include "FakeAnswersTest.moc"
