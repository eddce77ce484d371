#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Core/DesignSystem/Sheets/OpenSheet.h"

#include <QAccessibleActionInterface>
#include <QColor>
#include <QCoreApplication>
#include <QDirIterator>
#include <QEvent>
#include <QFont>
#include <QKeyEvent>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QQmlComponent>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <memory>
#include <tuple>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace quorvel::tests {

class PrimitivesTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_view = openSheet();
        QVERIFY(m_view);
    }

    void cleanup()
    {
        m_view.reset();
        Theme::shared().setStyle(AppearanceStyle::Light);
    }

    void everyComponentIsOnTheSheet()
    {
        // The parts of another component are on the sheet with it.
        QStringList seen;
        for (const QQuickItem *item : QuickTest::itemsUnder(m_view->rootObject()))
            for (const auto *meta = item->metaObject(); meta; meta = meta->superClass())
                seen << QString::fromLatin1(meta->className()).section(u"_QMLTYPE_"_s, 0, 0);
        QDirIterator files(u":/qt-project.org/imports/Quorvel/DesignSystem"_s, {u"*.qml"_s});
        int count = 0;
        while (files.hasNext()) {
            files.next();
            ++count;
            QVERIFY2(seen.contains(files.fileInfo().baseName()), qPrintable(files.fileName()));
        }
        QVERIFY(count >= 9);
    }

    void eyebrowIsInCapitals()
    {
        QQuickItem *eyebrow = item("eyebrow");
        QCOMPARE(eyebrow->property("text"), u"WI-FI"_s);
        QCOMPARE(eyebrow->property("font").value<QFont>(),
                 Theme::shared().font()->trackedEyebrow());
        QCOMPARE(eyebrow->property("color").value<QColor>(),
                 Theme::shared().color()->textTertiary());
    }

    void plainTextIsInTheFirstColorAndTheFontOfTexts()
    {
        const QQuickItem *text = item("plainText");
        QCOMPARE(text->property("color").value<QColor>(), Theme::shared().color()->textPrimary());
        QCOMPARE(text->property("font").value<QFont>(), Theme::shared().font()->body());
    }

    void plainTextShowsMarkupAsItIs()
    {
        QQuickItem *text = item("plainText");
        QCOMPARE(text->property("textFormat").toInt(), int(Qt::PlainText));
        QCOMPARE(accessible(text)->role(), QAccessible::StaticText);
        QCOMPARE(accessible(text)->text(QAccessible::Name), u"<b>Cà phê</b> & more"_s);
    }

    void dividerIsInsetBySixteenOnBothSides()
    {
        QQuickItem *divider = item("divider");
        const QQuickItem *rule = divider->childItems().first();
        QCOMPARE(rule->x(), 16.0);
        QCOMPARE(rule->width(), divider->width() - 32);
        QCOMPARE(rule->height(), 1.0);
        QCOMPARE(rule->property("color").value<QColor>(), Theme::shared().color()->border());
    }

    void dividerSpansItsParent()
    {
        QQmlComponent component(m_view->engine());
        component.setData("import QtQuick; import Quorvel.DesignSystem;"
                          "Item { width: 200; ThemeDivider {} }",
                          {});
        const std::unique_ptr<QObject> parent(component.create());
        QCOMPARE(qobject_cast<QQuickItem *>(parent.get())->childItems().first()->width(), 200.0);
    }

    void ghostButtonHasItsLabelAndPadding()
    {
        QQuickItem *button = item("ghostButton");
        const QQuickItem *label = QuickTest::find(button, "text", u"Scan again"_s);
        QCOMPARE(label->property("font").value<QFont>(), Theme::shared().font()->captionMedium());
        QCOMPARE(label->property("color").value<QColor>(),
                 Theme::shared().color()->textSecondary());
        QVERIFY2(label->x() >= 9.0 && label->x() < 10.0, qPrintable(QString::number(label->x())));
        QCOMPARE(button->width(), std::ceil(label->width()) + 18);
        QCOMPARE(button->height(), label->height() + 10);
    }

    void ghostButtonChangesItsLookOnlyWhilePressed()
    {
        QQuickItem *button = item("ghostButton");
        const QPointF inside(4, button->height() / 2);
        const QPoint centre = QuickTest::centre(button);
        const QColor atRest = QuickTest::pixel(button, inside);
        QCOMPARE(atRest, Theme::shared().color()->background());
        QTest::mouseMove(m_view.get(), centre);
        QCOMPARE(QuickTest::pixel(button, inside), atRest);
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, centre);
        QCOMPARE_NE(QuickTest::pixel(button, inside), atRest);
        QCOMPARE(QuickTest::find(button, "radius", 6.0)->property("color").value<QColor>(),
                 Theme::shared().color()->hover());
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, centre);
        QCOMPARE(QuickTest::pixel(button, inside), atRest);
        button->forceActiveFocus();
        QCOMPARE(QuickTest::pixel(button, inside), atRest);
    }

    void ghostButtonHasItsOutline()
    {
        QQuickItem *button = item("ghostButton");
        const QQuickItem *outline = QuickTest::find(button, "radius", 6.0);
        QCOMPARE(outline->size(), button->size());
        auto *border = outline->property("border").value<QObject *>();
        QCOMPARE(border->property("width").toInt(), 1);
        QCOMPARE(border->property("color").value<QColor>(), Theme::shared().color()->border());
    }

    void everyPressableIsPressedInEveryWay_data()
    {
        QTest::addColumn<QByteArray>("name");
        for (const auto *name : {"ghostButton", "symbolButton", "rowButton", "offToggle",
                                 "primaryButton", "secondaryButton"})
            QTest::newRow(name) << QByteArray(name);
    }

    void everyPressableIsPressedInEveryWay()
    {
        QFETCH(QByteArray, name);
        QQuickItem *pressable = item(name.constData());
        QSignalSpy clicked(pressable, SIGNAL(clicked()));
        QuickTest::click(pressable);
        QCOMPARE(clicked.size(), 1);
        accessible(pressable)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QCOMPARE(clicked.size(), 2);
        pressable->forceActiveFocus();
        for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            clicked.clear();
            QTest::keyClick(m_view.get(), key);
            QCOMPARE(clicked.size(), 1);
        }
    }

    void keyHeldDownPressesOnce()
    {
        QQuickItem *button = item("rowButton");
        QSignalSpy clicked(button, SIGNAL(clicked()));
        button->forceActiveFocus();
        QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, {}, u" "_s, true);
        QTest::keyPress(m_view.get(), Qt::Key_Space);
        QCoreApplication::sendEvent(m_view.get(), &repeat);
        QTest::keyRelease(m_view.get(), Qt::Key_Space);
        QCOMPARE(clicked.size(), 1);
    }

    void pressSlidOffTheControlIsNoClick()
    {
        QQuickItem *button = item("rowButton");
        QSignalSpy clicked(button, SIGNAL(clicked()));
        QTest::mousePress(m_view.get(), Qt::LeftButton, {}, QuickTest::centre(button));
        QTest::mouseMove(m_view.get(), {1, 1});
        QCOMPARE(button->property("pressed").toBool(), false);
        QTest::mouseRelease(m_view.get(), Qt::LeftButton, {}, {1, 1});
        QCOMPARE(clicked.size(), 0);
    }

    void pressablesAreNamedButtonsThatTakeTheFocus()
    {
        for (const auto &[name, label, role] :
             {std::tuple{"ghostButton", u"Scan again"_s, QAccessible::Button},
              std::tuple{"symbolButton", u"Check-ins"_s, QAccessible::Button},
              std::tuple{"rowButton", u"A row"_s, QAccessible::Button},
              std::tuple{"primaryButton", u"Check In"_s, QAccessible::Button},
              std::tuple{"secondaryButton", u"Copy"_s, QAccessible::Button},
              std::tuple{"onToggle", u"On"_s, QAccessible::CheckBox}}) {
            auto *interface = accessible(item(name));
            QCOMPARE(interface->text(QAccessible::Name), label);
            QCOMPARE(interface->role(), role);
            QVERIFY(interface->state().focusable);
            QCOMPARE(interface->childCount(), 0);
        }
    }

    void focusIsVisible()
    {
        QQuickItem *button = item("ghostButton");
        const QPointF outside(button->width() / 2, -2);
        QCOMPARE(QuickTest::pixel(button, outside), Theme::shared().color()->background());
        button->forceActiveFocus();
        QCOMPARE(QuickTest::pixel(button, outside), Theme::shared().color()->accent());
    }

    void clickDoesNotTakeTheFocus()
    {
        QuickTest::click(item("rowButton"));
        QVERIFY(!item("rowButton")->hasActiveFocus());
    }

    void toggleAsksAndShowsWhatItIsTold()
    {
        QQuickItem *toggle = item("offToggle");
        QSignalSpy toggled(toggle, SIGNAL(toggled(bool)));
        QuickTest::click(toggle);
        QCOMPARE(toggled.size(), 1);
        QCOMPARE(toggled.first().first().toBool(), true);
        QCOMPARE(toggle->property("checked").toBool(), false);
        accessible(toggle)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(toggled.size(), 2);
        QCOMPARE(bool(accessible(toggle)->state().checked), false);
        QCOMPARE(bool(accessible(item("onToggle"))->state().checked), true);
    }

    void toggleOnAndOffLookDifferent()
    {
        QQuickItem *on = item("onToggle");
        QQuickItem *off = item("offToggle");
        const double trackX = on->width() - 8 - 32;
        const QPointF trackStart(trackX + 5, 14);
        const QPointF trackEnd(trackX + 27, 14);
        QCOMPARE(QuickTest::pixel(on, trackStart), Theme::shared().color()->accent());
        QCOMPARE(QuickTest::pixel(on, trackEnd), Theme::shared().color()->field());
        QCOMPARE(QuickTest::pixel(off, trackStart), Theme::shared().color()->field());
        QCOMPARE(QuickTest::pixel(off, trackEnd), Theme::shared().color()->textTertiary());
    }

    void newAppearanceRepaintsWhatIsShown()
    {
        QCOMPARE(QuickTest::pixel(m_view->rootObject(), {1, 1}), QColor(0xFBF6EF));
        Theme::shared().setStyle(AppearanceStyle::Dark);
        QCOMPARE(QuickTest::pixel(m_view->rootObject(), {1, 1}), QColor(0x1A1410));
    }

private:
    [[nodiscard]] QQuickItem *item(const char *objectName) const
    {
        return m_view->rootObject()->findChild<QQuickItem *>(QString::fromLatin1(objectName));
    }

    std::unique_ptr<QQuickView> m_view;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::PrimitivesTest)
#include "PrimitivesTest.moc"
