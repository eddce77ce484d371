#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Core/DesignSystem/Sheets/OpenSheet.h"
#include "Tests/Support/Patience.h"

#include <QAccessibleActionInterface>
#include <QColor>
#include <QCoreApplication>
#include <QFont>
#include <QInputMethodEvent>
#include <QPointF>
#include <QQuickItem>
#include <QSignalSpy>
#include <QSizeF>
#include <QVariant>

#include <cmath>
#include <memory>
#include <utility>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](float channel) {
        const double value = double(channel);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &lighter, const QColor &darker)
{
    return (luminance(lighter) + 0.05) / (luminance(darker) + 0.05);
}

} // namespace

namespace quorvel::tests {

class ControlsTest final : public QObject
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

    void buttonThatIsBusyOrDisabledCannotBePressed_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("busy") << QByteArray("busyButton");
        QTest::newRow("disabled") << QByteArray("disabledButton");
    }

    void buttonThatIsBusyOrDisabledCannotBePressed()
    {
        QFETCH(QByteArray, name);
        QQuickItem *button = item(name.constData());
        QSignalSpy clicked(button, SIGNAL(clicked()));
        QuickTest::click(button);
        button->forceActiveFocus();
        QTest::keyClick(m_view.get(), Qt::Key_Space);
        accessible(button)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(clicked.size(), 0);
    }

    void buttonThatIsBusyKeepsTheFocusAndShowsIt()
    {
        QQuickItem *button = item("busyButton");
        button->forceActiveFocus();
        QVERIFY(button->hasActiveFocus());
        QVERIFY(QuickTest::find(button, "running", true));
        QVERIFY(!QuickTest::find(item("primaryButton"), "running", true));
    }

    void buttonThatIsDisabledTakesNoFocus()
    {
        QVERIFY(!accessible(item("disabledButton"))->state().focusable);
        QVERIFY(accessible(item("primaryButton"))->state().focusable);
    }

    void primaryButtonIsReadable_data() { addStyles(); }

    void primaryButtonIsReadable()
    {
        QFETCH(AppearanceStyle, style);
        Theme::shared().setStyle(style);
        QQuickItem *button = item("primaryButton");
        const QQuickItem *label = QuickTest::find(button, "text", u"Check In"_s);
        QCOMPARE(label->property("font").value<QFont>(), Theme::shared().font()->button());
        const QColor fill = QuickTest::pixel(button, {20, 18});
        QCOMPARE(fill.rgb(), button->property("fill").value<QColor>().rgb());
        const double ratio = contrast(label->property("color").value<QColor>(), fill);
        QVERIFY2(ratio >= 4, qPrintable(QString::number(ratio)));
    }

    void primaryButtonLooksDisabled()
    {
        const QColor enabled = QuickTest::pixel(item("busyButton"), {6, 18});
        QCOMPARE_NE(QuickTest::pixel(item("disabledButton"), {6, 18}), enabled);
    }

    void primaryButtonIsThirtySixHigh() { QCOMPARE(item("primaryButton")->height(), 36.0); }

    void symbolStandsBeforeTheLabel()
    {
        QQuickItem *button = item("secondaryButton");
        const QQuickItem *symbol = QuickTest::find(button, "name", u"clock"_s);
        const QQuickItem *label = QuickTest::find(button, "text", u"Copy"_s);
        QVERIFY(symbol->isVisible());
        QVERIFY(symbol->x() + symbol->width() < label->x());
    }

    void buttonWithoutSymbolHasNoRoomForOne()
    {
        QQuickItem *button = item("disabledButton");
        const QQuickItem *label = QuickTest::find(button, "text", u"Save"_s);
        QCOMPARE(label->mapToItem(button, {0, 0}).x(), 16.0);
    }

    void progressStepsOnlyWhileItCanBeSeen()
    {
        QQuickItem *progress = item("progress");
        QVERIFY(running(progress));
        QTRY_VERIFY(progress->property("step").toInt() > 0);
        progress->setVisible(false);
        QVERIFY(!running(progress));
        progress->setVisible(true);
        QVERIFY(running(progress));
        m_view->hide();
        QVERIFY(!running(progress));
    }

    void progressShowsEachStep()
    {
        QQuickItem *progress = item("progress");
        m_view->hide();
        const QPointF top(progress->width() / 2, 2);
        progress->setProperty("step", 0);
        const QColor bright = QuickTest::pixel(progress, top);
        progress->setProperty("step", 1);
        QCOMPARE_NE(QuickTest::pixel(progress, top), bright);
        progress->setProperty("step", 8);
        QCOMPARE(QuickTest::pixel(progress, top), bright);
    }

    void typedTextIsToldOf_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("one line") << QByteArray("textField");
        QTest::newRow("several lines") << QByteArray("noteField");
    }

    void typedTextIsToldOf()
    {
        QFETCH(QByteArray, name);
        QQuickItem *field = item(name.constData());
        QSignalSpy edited(field, SIGNAL(edited(QString)));
        QuickTest::click(field);
        QVERIFY(field->hasActiveFocus());
        QTest::keyClick(m_view.get(), Qt::Key_A);
        QTest::keyClick(m_view.get(), Qt::Key_B);
        QCOMPARE(edited, (QList<QVariantList>{{u"a"_s}, {u"ab"_s}}));
        QCOMPARE(field->property("text"), u"ab"_s);
    }

    void textOfTheOwnerIsShownAndIsNoEdit_data() { typedTextIsToldOf_data(); }

    void textOfTheOwnerIsShownAndIsNoEdit()
    {
        QFETCH(QByteArray, name);
        QQuickItem *field = item(name.constData());
        field->forceActiveFocus();
        QTest::keyClick(m_view.get(), Qt::Key_A);
        QSignalSpy edited(field, SIGNAL(edited(QString)));
        field->setProperty("text", u"From the owner"_s);
        QCOMPARE(input(field)->property("text"), u"From the owner"_s);
        field->setProperty("text", QString());
        QCOMPARE(input(field)->property("text"), QString());
        QCOMPARE(edited.size(), 0);
    }

    void placeholderStandsWhereNothingIsTyped_data() { typedTextIsToldOf_data(); }

    void placeholderStandsWhereNothingIsTyped()
    {
        QFETCH(QByteArray, name);
        QQuickItem *field = item(name.constData());
        const QQuickItem *placeholder =
            QuickTest::find(field, "text", field->property("placeholder"));
        QVERIFY(placeholder->isVisible());
        field->setProperty("text", u"x"_s);
        QVERIFY(!placeholder->isVisible());
    }

    void placeholderGivesWayToAnInputMethod_data() { typedTextIsToldOf_data(); }

    void placeholderGivesWayToAnInputMethod()
    {
        QFETCH(QByteArray, name);
        QQuickItem *field = item(name.constData());
        field->forceActiveFocus();
        QInputMethodEvent preedit(u"ca"_s, {});
        QCoreApplication::sendEvent(m_view->focusObject(), &preedit);
        QVERIFY(!QuickTest::find(field, "text", field->property("placeholder"))->isVisible());
    }

    void fieldsAreNamedAndTakeText_data() { typedTextIsToldOf_data(); }

    void fieldsAreNamedAndTakeText()
    {
        QFETCH(QByteArray, name);
        QQuickItem *field = item(name.constData());
        auto *interface = accessible(input(field));
        QCOMPARE(interface->role(), QAccessible::EditableText);
        QCOMPARE(interface->text(QAccessible::Name), field->property("label").toString());
        QVERIFY(interface->state().editable);
        QVERIFY(interface->state().focusable);
        QCOMPARE(bool(interface->state().multiLine), name == "noteField");
    }

    void maskedFieldKeepsItsTextFromTheScreen()
    {
        QQuickItem *field = item("maskedField");
        QCOMPARE(input(field)->property("displayText"), u"••••••••"_s);
        field->setProperty("masked", false);
        QCOMPARE(input(field)->property("displayText"), u"cafe1234"_s);
    }

    void maskedFieldKeepsItsNameForAssistiveTools()
    {
        QQuickItem *field = item("maskedField");
        QVERIFY(accessible(input(field))->state().passwordEdit);
        QCOMPARE(accessible(input(field))->text(QAccessible::Name),
                 field->property("label").toString());
    }

    void assistiveToolsReadWhatTheFieldShows()
    {
        QQuickItem *field = item("maskedField");
        QCOMPARE(accessible(input(field))->text(QAccessible::Value), u"••••••••"_s);
        auto *text = accessible(input(field))->textInterface();
        QCOMPARE(text->text(0, text->characterCount()), u"••••••••"_s);
        field->setProperty("masked", false);
        QCOMPARE(accessible(input(field))->text(QAccessible::Value), u"cafe1234"_s);
    }

    void returnInTheFieldIsAccepted()
    {
        QQuickItem *field = item("textField");
        QSignalSpy accepted(field, SIGNAL(accepted()));
        field->forceActiveFocus();
        QTest::keyClick(m_view.get(), Qt::Key_Return);
        QCOMPARE(accepted.size(), 1);
    }

    void trailingSlotEndsTheField()
    {
        QQuickItem *field = item("textField");
        const QQuickItem *eye = item("eye");
        QCOMPARE(eye->mapToItem(field, {eye->width(), 0}).x(), field->width() - 4);
        QVERIFY(eye->mapToItem(field, {0, 0}).x() >= input(field)->x() + input(field)->width());
    }

    void noteGrowsFromThreeToSixLinesAndThenScrolls()
    {
        QQuickItem *note = item("noteField");
        const double line = note->property("lineHeight").toDouble();
        for (const auto &[lines, shown] : {std::pair{1, 3}, std::pair{3, 3}, std::pair{4, 4},
                                           std::pair{6, 6}, std::pair{7, 6}}) {
            note->setProperty("text", u"x"_s + u"\nx"_s.repeated(lines - 1));
            QCOMPARE(note->height(), shown * line + 20);
            QCOMPARE(input(note)->height() > note->height() - 20, lines > 6);
        }
    }

    void noteScrollsToWhereItIsTyped()
    {
        QQuickItem *note = item("noteField");
        note->setProperty("text", u"x"_s + u"\nx"_s.repeated(9));
        note->forceActiveFocus();
        QTest::keyClick(m_view.get(), Qt::Key_End, Qt::ControlModifier);
        const QQuickItem *scrolled = input(note)->parentItem()->parentItem();
        const double line = note->property("lineHeight").toDouble();
        QCOMPARE(scrolled->property("contentY").toDouble(), 4 * line);
        QTest::keyClick(m_view.get(), Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(scrolled->property("contentY").toDouble(), 0.0);
    }

    void tabLeavesTheNoteBothWays()
    {
        QQuickItem *note = item("noteField");
        for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            note->forceActiveFocus();
            QTest::keyClick(m_view.get(), key);
            QVERIFY(!note->hasActiveFocus());
            QCOMPARE(note->property("text"), QString());
        }
    }

    void noteIsPlainText()
    {
        QQuickItem *note = item("noteField");
        note->setProperty("text", u"<b>bold</b>"_s);
        QCOMPARE(input(note)->property("textFormat").toInt(), int(Qt::PlainText));
    }

    void fieldShowsItsFocus()
    {
        QQuickItem *field = item("textField");
        const QPointF outside(field->width() / 2, -2);
        QCOMPARE(QuickTest::pixel(field, outside), Theme::shared().color()->background());
        field->forceActiveFocus();
        QCOMPARE(QuickTest::pixel(field, outside), Theme::shared().color()->accent());
    }

    void tagsHaveTheColorsOfTheirKind()
    {
        const ThemeColor *color = Theme::shared().color();
        compareTag("connectedTag", color->accentSoft(), color->accentDeep());
        compareTag("savedTag", color->successSoft(), color->success());
    }

    void cardHoldsItsContentWithPadding()
    {
        QQuickItem *card = item("card");
        const QQuickItem *hint = item("hint");
        QCOMPARE(hint->mapToItem(card, {0, 0}), QPointF(12, 12));
        QCOMPARE(hint->width(), card->width() - 24);
        QCOMPARE(card->height(), hint->height() + 24);
        QCOMPARE(QuickTest::pixel(card, {6, 6}), Theme::shared().color()->card());
    }

    void hintIsACaptionInTheSecondColor()
    {
        const QQuickItem *hint = item("hint");
        QCOMPARE(hint->property("font").value<QFont>(), Theme::shared().font()->caption());
        QCOMPARE(hint->property("color").value<QColor>(), Theme::shared().color()->textSecondary());
        QVERIFY(hint->property("lineCount").toInt() > 1);
    }

private:
    static void addStyles()
    {
        QTest::addColumn<AppearanceStyle>("style");
        QTest::newRow("light") << AppearanceStyle::Light;
        QTest::newRow("dark") << AppearanceStyle::Dark;
    }

    [[nodiscard]] QQuickItem *item(const char *objectName) const
    {
        return m_view->rootObject()->findChild<QQuickItem *>(QString::fromLatin1(objectName));
    }

    /// The item inside a field that receives the keys.
    [[nodiscard]] static QQuickItem *input(QQuickItem *field)
    {
        return QuickTest::find(field, "selectByMouse", true);
    }

    [[nodiscard]] static bool running(const QQuickItem *progress)
    {
        return progress->property("running").toBool();
    }

    void compareTag(const char *name, const QColor &fill, const QColor &letters) const
    {
        QQuickItem *tag = item(name);
        const QQuickItem *text = QuickTest::find(tag, "text", tag->property("title"));
        QCOMPARE(tag->property("color").value<QColor>(), fill);
        QCOMPARE(text->property("color").value<QColor>(), letters);
        QCOMPARE(text->property("font").value<QFont>(), Theme::shared().font()->tag());
        QCOMPARE(tag->size(), text->size() + QSizeF(12, 4));
        QCOMPARE(tag->property("radius").toDouble(), tag->height() / 2);
    }

    std::unique_ptr<QQuickView> m_view;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::ControlsTest)
#include "ControlsTest.moc"
