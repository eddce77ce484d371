#include "Core/Support/AppError.h"
#include "Platform/Errors/Outcome.h"
#include "Services/Wifi/FakeWifiService.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Features/MenuBar/Panel/PanelOnScreen.h"

#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTest>
#include <QVariant>

#include <optional>
#include <variant>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// The Wi-Fi block in the panel, as a user works with it.
class WifiPasswordFieldTest final : public QObject
{
    Q_OBJECT

private slots:
    static void initTestCase() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
    void init()
    {
        QuickTest::failOnWarnings();
        m_panel.reset();
        m_panel.emplace();
        world().willFind(LoopWorld::found());
    }
    void cleanup() { m_panel.reset(); }

    void itSaysThatItScansAndThenWhatItFound()
    {
        world().loop.wifi.scans.willHold();
        m_panel->open();
        QVERIFY(m_panel->text(u"Scanning…"_s));
        QVERIFY(!m_panel->control(u"Other network…"_s));
        world().loop.wifi.scans.release(Outcome<QList<WifiNetwork>>::success(networks()));
        m_panel->settle();
        QVERIFY(m_panel->text(u"2 found"_s));
        QVERIFY(m_panel->text(u"Pick a network to save its password."_s));
        QVERIFY(m_panel->text(u"Good · -65 dBm"_s));
    }

    void oneRowIsOpenAtATime()
    {
        hear();
        m_panel->press(u"A"_s);
        QVERIFY(m_panel->text(prompt(u"A"_s)));
        m_panel->press(u"B"_s);
        QVERIFY(m_panel->text(prompt(u"B"_s)));
        QVERIFY(!m_panel->text(prompt(u"A"_s)));
        m_panel->press(u"B"_s);
        QVERIFY(!m_panel->control(u"WiFi password"_s));
    }

    void typingGoesIntoTheOpenRowAndEnterJoins()
    {
        hear();
        m_panel->press(u"B"_s);
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        world().loop.wifi.joins.willSucceed({});
        m_panel->key(Qt::Key_Return);
        const FakeWifiService::Joining joining{.ssid = u"B"_s, .password = u"12345678"_s};
        QCOMPARE(world().loop.wifi.joined, QList<FakeWifiService::Joining>{joining});
        QVERIFY(m_panel->text(u"SAVED"_s));
        QVERIFY(m_panel->text(u"••••••••••"_s));
    }

    void enterDoesNothingWithSevenCharacters()
    {
        hear();
        m_panel->press(u"B"_s);
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("1234567");
        QVERIFY(!m_panel->control(u"Save & Connect"_s)->isEnabled());
        m_panel->key(Qt::Key_Return);
        QVERIFY(world().loop.wifi.joined.isEmpty());
    }

    void theJoinedNetworkIsOpenAndOnlySaves()
    {
        world().isOn(u"A"_s, -65);
        hear();
        QVERIFY(m_panel->text(u"CONNECTED"_s));
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        m_panel->press(u"Save"_s);
        QCOMPARE(world().loop.keychain.passwords.value(u"A"_s), u"12345678"_s);
        QVERIFY(world().loop.wifi.joined.isEmpty());
    }

    void theButtonKeepsTheFocusWhileItJoins()
    {
        hear();
        m_panel->press(u"B"_s);
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        world().loop.wifi.joins.willHold();
        m_panel->press(u"Save & Connect"_s);
        const QQuickItem *button = m_panel->control(u"Save & Connect"_s);
        QVERIFY(button->property("busy").toBool());
        QVERIFY(button->hasActiveFocus());
        m_panel->key(Qt::Key_Space);
        QCOMPARE(world().loop.wifi.joined.size(), 1);
        world().loop.wifi.joins.release(
            Outcome<std::monostate>::failure(AppError::network(u"refused"_s)));
        m_panel->settle();
        QVERIFY(m_panel->text(u"Couldn't connect — check the password."_s));
        QVERIFY(!button->property("busy").toBool());
    }

    void whatIsTypedIsMaskedUntilShown()
    {
        hear();
        m_panel->press(u"B"_s);
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        QVERIFY(m_panel->control(u"WiFi password"_s)->property("masked").toBool());
        m_panel->press(u"Show password"_s);
        QVERIFY(!m_panel->control(u"WiFi password"_s)->property("masked").toBool());
        m_panel->press(u"Hide password"_s);
        QVERIFY(m_panel->control(u"WiFi password"_s)->property("masked").toBool());
    }

    void theStoredPasswordIsShownAndCopied()
    {
        world().loop.keychain.passwords.insert(u"A"_s, u"stored"_s);
        hear();
        m_panel->press(u"A"_s);
        QVERIFY(!m_panel->text(u"stored"_s));
        m_panel->press(u"Show password"_s);
        QVERIFY(m_panel->text(u"stored"_s));
        m_panel->press(u"Hide password"_s);
        QVERIFY(!m_panel->text(u"stored"_s));
        QCOMPARE(m_panel->control(u"Copy"_s)->property("symbol"), QVariant(u"doc.on.doc"_s));
        m_panel->press(u"Copy"_s);
        QCOMPARE(world().pasteboard.secret, u"stored"_s);
        QCOMPARE(m_panel->control(u"Copied!"_s)->property("symbol"), QVariant(u"checkmark"_s));
    }

    void theSystemFillsInWhatItKnows()
    {
        hear();
        m_panel->press(u"B"_s);
        world().loop.systemPasswords.passwords.willSucceed(u"from the system"_s);
        m_panel->press(u"Use password saved on this Mac"_s);
        QCOMPARE(world().loop.systemPasswords.askedFor, QStringList{u"B"_s});
        QCOMPARE(m_panel->control(u"WiFi password"_s)->property("text"),
                 QVariant(u"from the system"_s));
    }

    void anotherNetworkIsJoinedByItsName()
    {
        hear();
        m_panel->press(u"Other network…"_s);
        m_panel->focus(u"Network name (SSID)"_s);
        m_panel->type("hidden");
        m_panel->focus(u"WiFi password"_s);
        m_panel->type("12345678");
        world().loop.wifi.joins.willSucceed({});
        m_panel->key(Qt::Key_Return);
        const FakeWifiService::Joining joining{.ssid = u"hidden"_s, .password = u"12345678"_s};
        QCOMPARE(world().loop.wifi.joined, QList<FakeWifiService::Joining>{joining});
    }

    void whereNothingIsHeardANameCanBeTyped()
    {
        world().willHear({});
        m_panel->open();
        QVERIFY(m_panel->text(u"Không tìm thấy mạng nào quanh đây."_s));
        QVERIFY(m_panel->control(u"Network name (SSID)"_s));
        QVERIFY(m_panel->control(u"Save & Connect"_s));
    }

private:
    [[nodiscard]] PanelWorld &world() { return m_panel->world; }
    [[nodiscard]] static QList<WifiNetwork> networks() { return {{u"A"_s, -65}, {u"B"_s, -75}}; }
    [[nodiscard]] static QString prompt(const QString &ssid)
    {
        return u"Enter the password for "_s + ssid + u" — saved to your Keychain for next time."_s;
    }
    void hear()
    {
        world().willHear(networks());
        m_panel->open();
    }

    std::optional<PanelOnScreen> m_panel;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::WifiPasswordFieldTest)
#include "WifiPasswordFieldTest.moc"
