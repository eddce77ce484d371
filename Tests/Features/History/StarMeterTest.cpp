#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"

#include <QAccessible>
#include <QColor>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSizeF>
#include <QVariant>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class StarMeterTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

    void starsUpToTheValueAreLit()
    {
        const ThemeColor &color = *Theme::shared().color();
        for (int value = 0; value <= 6; ++value) {
            const auto meter = make(value);
            const auto stars = starsOf(*meter);
            QCOMPARE(stars.size(), 5);
            for (int place = 1; place <= 5; ++place) {
                const bool isLit = place <= value;
                const QQuickItem *star = stars[place - 1];
                QCOMPARE(star->property("name"), QVariant(isLit ? u"star.fill"_s : u"star"_s));
                QCOMPARE(star->property("color").value<QColor>(),
                         isLit ? color.starOn() : color.starOff());
                QCOMPARE(star->size(), QSizeF(12, 12));
            }
        }
    }

    void starsStandTwoPointsApart()
    {
        const auto meter = make(3);
        const auto stars = starsOf(*meter);
        QCOMPARE(stars.size(), 5);
        QTRY_COMPARE(stars[1]->x() - stars[0]->x(), 14.0);
    }

    void starsAreOneElementForAssistiveTools()
    {
        const auto none = make(0);
        const auto *meter = QAccessible::queryAccessibleInterface(none.get());
        QCOMPARE(meter->text(QAccessible::Name), u"Power outlets 0 of 5"_s);
        QCOMPARE(meter->childCount(), 0);
        const auto four = make(4);
        QCOMPARE(QAccessible::queryAccessibleInterface(four.get())->text(QAccessible::Name),
                 u"Power outlets 4 of 5"_s);
    }

private:
    [[nodiscard]] std::unique_ptr<QQuickItem> make(int value)
    {
        auto object = ViewFactory::make(m_engine, u"History"_s, u"StarMeter"_s,
                                        {{u"label"_s, u"Power outlets"_s}, {u"value"_s, value}});
        std::unique_ptr<QQuickItem> meter(qobject_cast<QQuickItem *>(object.release()));
        meter->setParentItem(m_window.contentItem());
        return meter;
    }

    [[nodiscard]] static QList<QQuickItem *> starsOf(const QQuickItem &meter)
    {
        QList<QQuickItem *> stars;
        for (QQuickItem *part : meter.childItems())
            if (part->inherits("quorvel::Symbol"))
                stars.append(part);
        return stars;
    }

    QQmlEngine m_engine;
    QQuickWindow m_window;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::StarMeterTest)

#include "StarMeterTest.moc"
