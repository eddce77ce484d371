#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Core/DesignSystem/Sheets/OpenSheet.h"
#include "Tests/Support/Patience.h"

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QAnimationDriver>
#include <QColor>
#include <QCoreApplication>
#include <QEasingCurve>
#include <QEvent>
#include <QKeyEvent>
#include <QPointF>
#include <QQuickItem>
#include <QSignalSpy>
#include <QVariant>

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {
namespace {

/// Advances animations by the time that the test gives.
class SteppedTime final : public QAnimationDriver
{
public:
    ~SteppedTime() override { uninstall(); }

    void step(int milliseconds)
    {
        m_elapsed += milliseconds;
        advanceAnimation();
    }

    [[nodiscard]] qint64 elapsed() const override { return m_elapsed; }

private:
    qint64 m_elapsed = 0;
};

} // namespace

class RatingStarsTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_view = openSheet();
        QVERIFY(m_view);
        m_row = m_view->rootObject()->findChild<QQuickItem *>(u"ratingRow"_s);
        m_stars = QuickTest::find(m_row, "shown", 2);
        QVERIFY(m_stars);
    }

    void cleanup() { m_view.reset(); }

    void starsAreLaidOutInARow()
    {
        QCOMPARE(m_stars->width(), 5 * 22.0 + 4 * 3);
        QCOMPARE(m_stars->height(), 26.0);
        QCOMPARE(star(2)->x() - star(1)->x(), 25.0);
        QCOMPARE(symbol(1)->width(), 15.0);
    }

    void starsUpToTheValueAreFilled()
    {
        QCOMPARE(filled(), 2);
        QCOMPARE(symbol(2)->property("name"), QVariant(u"star.fill"_s));
        QCOMPARE(symbol(3)->property("name"), QVariant(u"star"_s));
        QCOMPARE(symbol(2)->property("color").value<QColor>(), Theme::shared().color()->starOn());
        QCOMPARE(symbol(3)->property("color").value<QColor>(), Theme::shared().color()->starOff());
    }

    void clickedStarIsTheValue()
    {
        m_row->setProperty("value", 4);
        QSignalSpy edited(m_row, SIGNAL(edited(int)));
        QuickTest::click(star(2));
        QCOMPARE(edited, QList<QVariantList>{{2}});
        QCOMPARE(value(), 2);
    }

    void clickOnTheValueKeepsIt()
    {
        QSignalSpy edited(m_row, SIGNAL(edited(int)));
        QuickTest::click(star(2));
        QCOMPARE(value(), 2);
        QCOMPARE(edited.size(), 0);
    }

    void everyStarCanBeClicked()
    {
        for (const int place : {1, 3, 5, 4, 2}) {
            QuickTest::click(star(place));
            QCOMPARE(value(), place);
        }
    }

    void pointerOverAStarShowsItsScoreAndLeavingTheValue()
    {
        QTest::mouseMove(m_view.get(), QuickTest::centre(star(4)));
        QCOMPARE(filled(), 4);
        QTRY_COMPARE(symbol(4)->scale(), 1.18);
        for (const int place : {1, 2, 3, 5})
            QCOMPARE(symbol(place)->scale(), 1.0);
        QCOMPARE(value(), 2);
        QTest::mouseMove(m_view.get(), {1, 1});
        QCOMPARE(filled(), 2);
        QTRY_COMPARE(symbol(4)->scale(), 1.0);
    }

    void pointerFromStarToStarEnlargesOne()
    {
        QTest::mouseMove(m_view.get(), QuickTest::centre(star(4)));
        QTest::mouseMove(m_view.get(), QuickTest::centre(star(3)));
        QCOMPARE(filled(), 3);
        QTRY_COMPARE(symbol(3)->scale(), 1.18);
        QTRY_COMPARE(symbol(4)->scale(), 1.0);
    }

    void starGrowsOnItsCurve()
    {
        SteppedTime time;
        time.install();
        QEasingCurve curve(QEasingCurve::BezierSpline);
        curve.addCubicBezierSegment({0.22, 0.61}, {0.36, 1}, {1, 1});
        const auto scaleAfter = [&](double milliseconds) {
            return 1 + 0.18 * curve.valueForProgress(milliseconds / 130);
        };
        QTest::mouseMove(m_view.get(), QuickTest::centre(star(4)));
        // The animation clock starts slightly late in real time.
        time.step(65);
        QVERIFY(symbol(4)->scale() > scaleAfter(50));
        QVERIFY(symbol(4)->scale() < scaleAfter(80));
        time.step(45);
        QVERIFY(symbol(4)->scale() < 1.18);
        time.step(40);
        QCOMPARE(symbol(4)->scale(), 1.18);
    }

    void arrowsStepAndStopAtBothEnds()
    {
        m_stars->forceActiveFocus();
        for (const int expected : {1, 1}) {
            QTest::keyClick(m_view.get(), Qt::Key_Left);
            QCOMPARE(value(), expected);
        }
        for (const int expected : {2, 3, 4, 5, 5}) {
            QTest::keyClick(m_view.get(), Qt::Key_Right);
            QCOMPARE(value(), expected);
        }
    }

    void arrowsAreHandledAtTheEnds()
    {
        m_row->setProperty("value", 5);
        m_stars->forceActiveFocus();
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
        press.ignore();
        QCoreApplication::sendEvent(m_view.get(), &press);
        QVERIFY(press.isAccepted());
    }

    void arrowsWorkAfterAClick()
    {
        QuickTest::click(star(3));
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCOMPARE(value(), 4);
    }

    void tabReachesTheStars()
    {
        for (int i = 0; i < 40 && !m_stars->hasActiveFocus(); ++i)
            QTest::keyClick(m_view.get(), Qt::Key_Tab);
        QVERIFY(m_stars->hasActiveFocus());
    }

    void starsShowTheirFocus()
    {
        const QPointF outside(m_stars->width() / 2, -2);
        QCOMPARE(QuickTest::pixel(m_stars, outside), Theme::shared().color()->background());
        m_stars->forceActiveFocus();
        QCOMPARE(QuickTest::pixel(m_stars, outside), Theme::shared().color()->accent());
    }

    void starsAreOneSlider()
    {
        auto *interface = slider(m_stars);
        QCOMPARE(interface->role(), QAccessible::Slider);
        QCOMPARE(interface->text(QAccessible::Name), u"WiFi speed"_s);
        QCOMPARE(interface->text(QAccessible::Description), u"2 of 5"_s);
        QVERIFY(interface->state().focusable);
        QCOMPARE(interface->childCount(), 0);
        m_row->setProperty("value", 3);
        QCOMPARE(interface->text(QAccessible::Description), u"3 of 5"_s);
    }

    void assistiveToolStepsAndStopsAtBothEnds()
    {
        auto *actions = slider(m_stars)->actionInterface();
        for (const int expected : {3, 4, 5, 5}) {
            actions->doAction(QAccessibleActionInterface::increaseAction());
            QCOMPARE(value(), expected);
        }
        for (const int expected : {4, 3, 2, 1, 1}) {
            actions->doAction(QAccessibleActionInterface::decreaseAction());
            QCOMPARE(value(), expected);
        }
    }

    void valueWrittenByAnAssistiveToolIsAnEdit()
    {
        auto *interface = slider(m_stars)->valueInterface();
        QCOMPARE(interface->minimumValue().toInt(), 1);
        QCOMPARE(interface->maximumValue().toInt(), 5);
        for (const auto &[written, kept] : {std::pair{4, 4}, std::pair{5, 5}, std::pair{1, 1},
                                            std::pair{9, 5}, std::pair{0, 1}}) {
            interface->setCurrentValue(written);
            QCOMPARE(value(), kept);
            QCOMPARE(interface->currentValue().toInt(), kept);
        }
        m_row->setProperty("value", 3);
        QCOMPARE(interface->currentValue().toInt(), 3);
    }

    void refusedEditLeavesEverythingAsItWas()
    {
        auto *stars = m_view->rootObject()->findChild<QQuickItem *>(u"refusingStars"_s);
        QSignalSpy edited(stars, SIGNAL(edited(int)));
        auto *interface = slider(stars)->valueInterface();
        interface->setCurrentValue(5);
        QCOMPARE(edited, QList<QVariantList>{{5}});
        QCOMPARE(interface->currentValue().toInt(), 3);
        QCOMPARE(stars->property("shown").toInt(), 3);
    }

    void valueOfTheOwnerIsNoEdit()
    {
        QSignalSpy edited(m_row, SIGNAL(edited(int)));
        m_row->setProperty("value", 5);
        QCOMPARE(filled(), 5);
        QCOMPARE(edited.size(), 0);
    }

    void rowHasItsLabelAndHint()
    {
        const QQuickItem *label = QuickTest::find(m_row, "text", u"WiFi speed"_s);
        QVERIFY(label->isVisible());
        QCOMPARE(label->mapToItem(m_row, {0, 0}).x(), 0.0);
        const QQuickItem *hint = QuickTest::find(m_row, "text", u"Fast enough for calls"_s);
        QVERIFY(hint->isVisible());
        QVERIFY(hint->y() >= label->y() + label->height());
        m_row->setProperty("hint", QString());
        QVERIFY(!hint->isVisible());
        QCOMPARE(m_stars->x() + m_stars->width(), m_row->width());
    }

private:
    [[nodiscard]] QQuickItem *star(int place) const
    {
        return QuickTest::find(m_stars, "place", place);
    }

    [[nodiscard]] QQuickItem *symbol(int place) const { return star(place)->childItems().first(); }

    [[nodiscard]] int filled() const
    {
        int count = 0;
        for (int place = 1; place <= 5; ++place)
            count += symbol(place)->property("name") == u"star.fill"_s ? 1 : 0;
        return count;
    }

    [[nodiscard]] int value() const { return m_row->property("value").toInt(); }

    [[nodiscard]] static QAccessibleInterface *slider(QQuickItem *stars)
    {
        return QAccessible::queryAccessibleInterface(QuickTest::find(stars, "stepSize", 1));
    }

    std::unique_ptr<QQuickView> m_view;
    QQuickItem *m_row = nullptr;
    QQuickItem *m_stars = nullptr;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::RatingStarsTest)
#include "RatingStarsTest.moc"
