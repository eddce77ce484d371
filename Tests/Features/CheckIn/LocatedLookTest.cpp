#include "Features/CheckIn/LocatedScreen.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"
#include "Tests/Support/ViewLook.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTest>
#include <QVariant>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// How a visit looks in the panel: its texts, where they are, and in which colour and font.
class LocatedLookTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.emplace();
    }
    void cleanup() { m_panel.reset(); }

    void textsHaveTheirLook_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"YOU'RE HERE"_s, "accentDeep", "trackedEyebrow");
        ViewLook::addText(u"Near"_s, "textPrimary", "cafeName");
        ViewLook::addText(u" · 42 m away"_s, "textSecondary", "caption");
        ViewLook::addText(u"23°"_s, "textPrimary", "tempLarge");
        ViewLook::addText(u"Clear"_s, "textPrimary", "body");
        ViewLook::addText(u"Feels 25°"_s, "textSecondary", "caption");
        ViewLook::addText(u"RATE THIS SPOT"_s, "textTertiary", "trackedEyebrow");
        ViewLook::addText(u"WiFi speed"_s, "textPrimary", "body");
        ViewLook::addText(u"Fast enough for calls"_s, "textSecondary", "caption");
        ViewLook::addText(u"NOTE"_s, "textTertiary", "trackedEyebrow");
        ViewLook::addText(u"How's this spot today?"_s, "textTertiary", "body");
    }

    void textsHaveTheirLook()
    {
        openLocated();
        ViewLook::compareText(m_panel->window());
    }

    void thePlaceIsMarkedAndNamed()
    {
        openLocated();
        QQuickItem *header = m_panel->view(u"CafeHeader"_s);
        ViewLook::compareSymbol(header, u"location.fill"_s, 11, "accent");
        const QQuickItem *eyebrow = m_panel->text(u"YOU'RE HERE"_s);
        QVERIFY(ViewLook::across(QuickTest::find(header, "name", u"location.fill"_s), eyebrow) > 0);
        QVERIFY(ViewLook::across(eyebrow, m_panel->text(u" · 42 m away"_s)) > 0);
        QVERIFY(ViewLook::down(eyebrow, m_panel->text(u"Near"_s)) > 0);
        QCOMPARE(ViewLook::margins(m_panel->control(u"Change"_s), header).right(), 0.0);
    }

    void theWeatherHasItsPaddingAndSpacing()
    {
        openLocated();
        QQuickItem *card = m_panel->view(u"WeatherCard"_s);
        const QQuickItem *glyph = ViewLook::findClass(card, "quorvel::WeatherGlyph");
        QCOMPARE(ViewLook::margins(glyph, card).left(), 12.0);
        QCOMPARE(ViewLook::across(glyph, m_panel->text(u"23°"_s)), 10.0);
        QCOMPARE(ViewLook::margins(m_panel->text(u"Clear"_s), card).right(), 12.0);
        QCOMPARE(ViewLook::margins(m_panel->text(u"Feels 25°"_s), card).right(), 12.0);
        QCOMPARE(card->property("color").value<QColor>(), ViewLook::color("card"));
        QVERIFY(glyph->isVisible());
        QCOMPARE(glyph->property("code"), QVariant(0));
        QCOMPARE(glyph->property("isDay"), QVariant(true));
        QVERIFY(!m_panel->text(u"Weather unavailable"_s));
    }

    void weatherThatIsMissingHasItsSymbolAndSpacing()
    {
        openNowhere();
        QQuickItem *card = m_panel->view(u"WeatherCard"_s);
        const QQuickItem *symbol = QuickTest::find(card, "name", u"arrow.clockwise"_s);
        const QQuickItem *text = m_panel->text(u"Weather unavailable"_s);
        ViewLook::compareSymbol(card, u"arrow.clockwise"_s, 16, "textTertiary");
        QCOMPARE(ViewLook::margins(symbol, card).left(), 12.0);
        QCOMPARE(ViewLook::across(symbol, text), 8.0);
        QCOMPARE(text->property("color").value<QColor>(), ViewLook::color("textSecondary"));
        QCOMPARE(text->property("font").value<QFont>(), ViewLook::font("body"));
        QVERIFY(!ViewLook::findClass(card, "quorvel::WeatherGlyph")->isVisible());
    }

    void aPlaceWithoutACafeSaysWhatToDo()
    {
        openNowhere();
        const QQuickItem *title = m_panel->text(u"Couldn't detect café"_s);
        const QQuickItem *help = m_panel->text(u"Check your connection, then retry."_s);
        QCOMPARE(title->property("font").value<QFont>(), ViewLook::font("cafeName"));
        QCOMPARE(help->property("color").value<QColor>(), ViewLook::color("textSecondary"));
        QVERIFY(ViewLook::down(title, help) > 0);
        QVERIFY(!m_panel->text(u"YOU'RE HERE"_s));
        QVERIFY(m_panel->text(u"Retry"_s));
        QVERIFY(m_panel->text(u"Connect to load your café first."_s));
    }

    void eachScoreHasItsRow()
    {
        openLocated();
        struct Row
        {
            QString title;
            QString hint;
            int score;
        };
        const QList<Row> rows{{u"WiFi speed"_s, u"Fast enough for calls"_s, 2},
                              {u"Power outlets"_s, {}, 5},
                              {u"Noise level"_s, u"Lower = quieter"_s, 1},
                              {u"Quiet for calls"_s, {}, 4}};
        auto *screen = m_panel->view(u"LocatedView"_s)->property("screen").value<LocatedScreen *>();
        for (int index = 0; index < rows.size(); ++index)
            screen->setRating(index, rows[index].score);
        const QQuickItem *previous = m_panel->text(u"RATE THIS SPOT"_s);
        for (const Row &row : rows) {
            QQuickItem *item = m_panel->control(row.title);
            QVERIFY(item && item->isVisible());
            QCOMPARE(item->property("hint"), QVariant(row.hint));
            QCOMPARE(QuickTest::find(item, "maximumValue", 5)->property("value"),
                     QVariant(row.score));
            QVERIFY(ViewLook::down(previous, item) > 0);
            previous = item;
        }
    }

    void theFormIsInItsOrder()
    {
        openLocated();
        const QList<QQuickItem *> parts{
            m_panel->view(u"CafeHeader"_s),     m_panel->view(u"WeatherCard"_s),
            m_panel->view(u"RatingsSection"_s), m_panel->text(u"NOTE"_s),
            m_panel->control(u"Note"_s),        m_panel->view(u"WifiPasswordField"_s)};
        for (qsizetype index = 1; index < parts.size(); ++index)
            QVERIFY(ViewLook::down(parts[index - 1], parts[index]) > 0);
        const QQuickItem *area = m_panel->view(u"CheckInArea"_s);
        QCOMPARE(ViewLook::margins(area, m_panel->view(u"LocatedView"_s)).bottom(), 0.0);
    }

    void theButtonHasTheSymbolOfItsState()
    {
        openLocated();
        const auto symbol = [this](const QString &label) {
            return m_panel->control(label)->property("symbol").toString();
        };
        QCOMPARE(symbol(u"Check In"_s), u"location.fill"_s);
        m_panel->press(u"Check In"_s);
        QCOMPARE(symbol(u"Checked in!"_s), u"checkmark.circle.fill"_s);
        QVERIFY(QuickTest::shown(m_panel->window(), "name", u"checkmark.circle.fill"_s));
    }

    void whatIsInTheWayStandsAboveTheButton()
    {
        openLocated();
        m_panel->world.repository.failing = {u"save"_s};
        m_panel->world.repository.failure = u"Disk full."_s;
        m_panel->press(u"Check In"_s);
        const QQuickItem *error = m_panel->text(u"Network error: Disk full."_s);
        QCOMPARE(error->property("color").value<QColor>(), ViewLook::color("error"));
        QCOMPARE(error->property("font").value<QFont>(), ViewLook::font("caption"));
        QVERIFY(ViewLook::down(error, m_panel->control(u"Check In"_s)) > 0);
        m_panel->world.repository.failing = {};
        m_panel->press(u"Check In"_s);
        const QQuickItem *note = m_panel->text(u"Already checked in today at this café."_s);
        QCOMPARE(note->property("color").value<QColor>(), ViewLook::color("textSecondary"));
        QVERIFY(ViewLook::down(note, m_panel->control(u"Checked in!"_s)) > 0);
    }

    void thePickerHasARowForEachCafe()
    {
        openLocated();
        m_panel->press(u"Change"_s);
        const QQuickItem *picker = m_panel->view(u"CafePickerView"_s);
        const QQuickItem *title = m_panel->text(u"Choose a café"_s);
        QCOMPARE(title->property("font").value<QFont>(), ViewLook::font("title"));
        QVERIFY(ViewLook::across(title, m_panel->control(u"Cancel"_s)) > 0);
        const QQuickItem *previous = m_panel->control(u"Cancel"_s);
        for (const auto &[name, distance] :
             {std::pair(u"Near"_s, u"42m"_s), std::pair(u"Far"_s, u"80m"_s)}) {
            QQuickItem *row = m_panel->control(name);
            const QQuickItem *meters = QuickTest::find(row, "text", distance);
            QVERIFY(meters && meters->isVisible());
            QCOMPARE(meters->property("color").value<QColor>(), ViewLook::color("textSecondary"));
            QCOMPARE(meters->property("font").value<QFont>(), ViewLook::font("caption"));
            QVERIFY(QuickTest::find(row, "text", name)->isVisible());
            QCOMPARE(ViewLook::margins(meters, row).right(), 0.0);
            QVERIFY(ViewLook::down(previous, row) >= 0);
            previous = row;
        }
        QCOMPARE(ViewLook::margins(previous, picker).left(),
                 ViewLook::margins(previous, picker).right());
    }

private:
    void openLocated()
    {
        m_panel->world.willFind(LoopWorld::found());
        m_panel->world.willHear({});
        m_panel->open();
    }
    void openNowhere()
    {
        m_panel->world.loop.willLocate();
        m_panel->world.loop.places.calls.willSucceed({});
        m_panel->world.willHear({});
        m_panel->open();
    }

    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::LocatedLookTest)
#include "LocatedLookTest.moc"
