#include "Core/Support/AppError.h"
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

/// How the Wi-Fi block looks: its texts, symbols, tags and bars.
class WifiLookTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.emplace();
        world().willFind(LoopWorld::found());
    }
    void cleanup() { m_panel.reset(); }

    void textsHaveTheirLook_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"WIFI NEARBY"_s, "textTertiary", "trackedEyebrow");
        ViewLook::addText(u"3 found"_s, "textSecondary", "caption");
        ViewLook::addText(u"Pick a network to save its password."_s, "textSecondary", "caption");
        ViewLook::addText(u"A"_s, "textPrimary", "body");
        ViewLook::addText(u"Good · -65 dBm"_s, "textSecondary", "caption");
        ViewLook::addText(u"Fair · -75 dBm"_s, "textSecondary", "caption");
        ViewLook::addText(u"Weak · -85 dBm"_s, "textSecondary", "caption");
        ViewLook::addText(u"Other network…"_s, "textPrimary", "body");
    }

    void textsHaveTheirLook()
    {
        hear();
        ViewLook::compareText(m_panel->window());
    }

    void textsOfAnOpenRowHaveTheirLook_data()
    {
        ViewLook::addColumns();
        ViewLook::addText(u"Enter the password for B — saved to your Keychain for next time."_s,
                          "textSecondary", "caption");
        ViewLook::addText(u"WiFi password"_s, "textTertiary", "body");
        ViewLook::addText(u"Use password saved on this Mac"_s, "textSecondary", "captionMedium");
        ViewLook::addText(u"Couldn't connect — check the password."_s, "error", "caption");
    }

    void textsOfAnOpenRowHaveTheirLook()
    {
        hear();
        m_panel->press(u"B"_s);
        failToJoin();
        ViewLook::compareText(m_panel->window());
    }

    void theHeaderHasASymbolAtEachEnd()
    {
        hear();
        const QQuickItem *eyebrow = m_panel->text(u"WIFI NEARBY"_s);
        const QQuickItem *count = m_panel->text(u"3 found"_s);
        QQuickItem *header = count->parentItem()->parentItem();
        ViewLook::compareSymbol(header, u"wifi"_s, 13, "textTertiary");
        ViewLook::compareSymbol(header, u"magnifyingglass"_s, 12, "textTertiary");
        const QQuickItem *wifi = QuickTest::find(header, "name", u"wifi"_s);
        const QQuickItem *glass = QuickTest::find(header, "name", u"magnifyingglass"_s);
        QCOMPARE(ViewLook::margins(wifi, header).left(), 0.0);
        QVERIFY(ViewLook::across(wifi, eyebrow) > 0);
        QVERIFY(ViewLook::across(eyebrow, glass) > 0);
        QVERIFY(ViewLook::across(glass, count) > 0);
        QCOMPARE(ViewLook::margins(count, header).right(), 0.0);
        QVERIFY(!ViewLook::findClass(header, "quorvel::ProgressDots")->isVisible());
    }

    void whileScanningItsEndIsASignOfProgress()
    {
        world().loop.wifi.scans.willHold();
        m_panel->open();
        const QQuickItem *text = m_panel->text(u"Scanning…"_s);
        QQuickItem *header = text->parentItem()->parentItem();
        const QQuickItem *progress = ViewLook::findClass(header, "quorvel::ProgressDots");
        QVERIFY(progress->isVisible());
        QVERIFY(ViewLook::across(progress, text) > 0);
        QCOMPARE(ViewLook::margins(text, header).right(), 0.0);
        QVERIFY(!QuickTest::find(header, "name", u"magnifyingglass"_s)->isVisible());
        QVERIFY(!m_panel->text(u"Pick a network to save its password."_s));
    }

    void eachNetworkHasTheBarsOfItsStrength()
    {
        hear();
        for (const auto &[ssid, bars] :
             {std::pair(u"A"_s, 3), std::pair(u"B"_s, 2), std::pair(u"C"_s, 1)}) {
            QQuickItem *row = m_panel->control(ssid);
            const QQuickItem *glyph = ViewLook::findClass(row, "quorvel::SignalBarsView");
            QVERIFY(glyph->isVisible());
            QCOMPARE(glyph->property("bars"), QVariant(bars));
            QCOMPARE(ViewLook::margins(glyph, row).right(), 0.0);
        }
        QQuickItem *other = m_panel->control(u"Other network…"_s);
        QVERIFY(!ViewLook::findClass(other, "quorvel::SignalBarsView")->isVisible());
    }

    void theCircleIsFilledWhileItsRowIsOpen()
    {
        hear();
        for (const auto &ssid : {u"A"_s, u"Other network…"_s}) {
            QQuickItem *row = m_panel->control(ssid);
            ViewLook::compareSymbol(row, u"circle"_s, 16, "textTertiary");
            m_panel->press(ssid);
            ViewLook::compareSymbol(row, u"largecircle.fill.circle"_s, 16, "accent");
            ViewLook::compareSymbol(m_panel->control(u"B"_s), u"circle"_s, 16, "textTertiary");
            m_panel->press(ssid);
            ViewLook::compareSymbol(row, u"circle"_s, 16, "textTertiary");
        }
    }

    void tagsSayWhatIsJoinedAndWhatIsSaved()
    {
        world().isOn(u"A"_s, -65);
        world().loop.keychain.passwords.insert(u"B"_s, u"12345678"_s);
        hear();
        QCOMPARE(tags(u"A"_s), QStringList{u"CONNECTED"_s});
        QCOMPARE(tags(u"B"_s), QStringList{u"SAVED"_s});
        QCOMPARE(tags(u"C"_s), QStringList());
    }

    void tagsHaveTheirColours_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QByteArray>("fill");
        QTest::addColumn<QByteArray>("letters");
        QTest::newRow("joined") << u"CONNECTED"_s << "accentSoft"_ba
                                << "accentDeep"_ba;
        QTest::newRow("saved") << u"SAVED"_s << "successSoft"_ba
                               << "success"_ba;
    }

    void tagsHaveTheirColours()
    {
        QFETCH(const QString, title);
        QFETCH(const QByteArray, fill);
        QFETCH(const QByteArray, letters);
        world().isOn(u"A"_s, -65);
        world().loop.keychain.passwords.insert(u"A"_s, u"12345678"_s);
        hear();
        const QQuickItem *word = m_panel->text(title);
        const QQuickItem *tag = word->parentItem();
        QCOMPARE(tag->property("color").value<QColor>(), ViewLook::color(fill));
        QCOMPARE(word->property("color").value<QColor>(), ViewLook::color(letters));
        QCOMPARE(word->property("font").value<QFont>(), ViewLook::font("tag"));
        QCOMPARE(ViewLook::margins(word, tag), QMarginsF(6, 2, 6, 2));
    }

    void aStoredPasswordHasItsSymbols()
    {
        world().loop.keychain.passwords.insert(u"A"_s, u"stored"_s);
        hear();
        m_panel->press(u"A"_s);
        QQuickItem *row = m_panel->view(u"StoredPasswordRow"_s);
        QVERIFY(m_panel->text(u"••••••••••"_s));
        QCOMPARE(symbols(row), (QStringList{u"eye"_s, u"doc.on.doc"_s}));
        m_panel->press(u"Show password"_s);
        QCOMPARE(symbols(row), (QStringList{u"eye.slash"_s, u"doc.on.doc"_s}));
        m_panel->press(u"Copy"_s);
        QCOMPARE(symbols(row), (QStringList{u"eye.slash"_s, u"checkmark"_s}));
        QVERIFY(m_panel->text(u"Copied!"_s));
    }

    void aTypedPasswordHasItsEye()
    {
        hear();
        m_panel->press(u"B"_s);
        QQuickItem *row = m_panel->view(u"ConnectRow"_s);
        QCOMPARE(symbols(row), QStringList{u"eye"_s});
        m_panel->press(u"Show password"_s);
        QCOMPARE(symbols(row), QStringList{u"eye.slash"_s});
    }

    void theConnectRowIsInItsOrder()
    {
        hear();
        m_panel->press(u"B"_s);
        failToJoin();
        const QList<QQuickItem *> parts{
            m_panel->text(u"Enter the password for B — saved to your Keychain for next time."_s),
            m_panel->control(u"WiFi password"_s),
            m_panel->text(u"Couldn't connect — check the password."_s),
            m_panel->control(u"Save & Connect"_s),
            m_panel->control(u"Use password saved on this Mac"_s)};
        for (qsizetype index = 1; index < parts.size(); ++index)
            QVERIFY(ViewLook::down(parts[index - 1], parts[index]) > 0);
    }

    void anotherNetworkHasAFieldForItsName()
    {
        hear();
        m_panel->press(u"Other network…"_s);
        const QQuickItem *placeholder = m_panel->text(u"Network name (SSID)"_s);
        QCOMPARE(placeholder->property("color").value<QColor>(), ViewLook::color("textTertiary"));
        QVERIFY(ViewLook::down(placeholder, m_panel->text(u"WiFi password"_s)) > 0);
        QVERIFY(ViewLook::down(m_panel->control(u"C"_s), m_panel->control(u"Other network…"_s)) >=
                0);
    }

    void whereNothingIsHeardItSaysSoAboveTheField()
    {
        world().willHear({});
        m_panel->open();
        const QQuickItem *text = m_panel->text(u"Không tìm thấy mạng nào quanh đây."_s);
        QCOMPARE(text->property("font").value<QFont>(), ViewLook::font("body"));
        const QQuickItem *placeholder = m_panel->text(u"Network name (SSID)"_s);
        QVERIFY(ViewLook::down(text, placeholder) > 0);
        QVERIFY(ViewLook::down(placeholder, m_panel->text(u"WiFi password"_s)) > 0);
    }

private:
    [[nodiscard]] PanelWorld &world() { return m_panel->world; }
    void hear()
    {
        world().willHear({{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}});
        m_panel->open();
    }
    /// The password that was tried is taken away again, so that its placeholder shows.
    void failToJoin()
    {
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        world().loop.wifi.joins.willFail(AppError::network(u"refused"_s));
        m_panel->key(Qt::Key_Return);
        for (int letter = 0; letter < 8; ++letter)
            m_panel->key(Qt::Key_Backspace);
    }
    [[nodiscard]] QStringList tags(const QString &ssid)
    {
        QStringList titles;
        for (const QQuickItem *item : QuickTest::itemsUnder(m_panel->control(ssid)))
            if (item->isVisible() && item->property("isSaved").isValid())
                titles.append(item->property("title").toString());
        return titles;
    }
    [[nodiscard]] static QStringList symbols(QQuickItem *root)
    {
        QStringList names;
        for (const QQuickItem *item : QuickTest::itemsUnder(root))
            if (item->isVisible() && item->inherits("quorvel::Symbol"))
                names.append(item->property("name").toString());
        return names;
    }

    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::WifiLookTest)
#include "WifiLookTest.moc"
