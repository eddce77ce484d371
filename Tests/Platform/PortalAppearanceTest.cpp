#include "Platform/Appearance/PortalAppearance.h"

#include "Tests/Support/Patience.h"

#include <QColor>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>
#include <QVariant>

#include <optional>

using namespace quorvel;
using namespace Qt::StringLiterals;
using tests::patienceMilliseconds;

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;
const auto appearanceKey = u"org.freedesktop.appearance"_s;

QVariant wrapped(const QVariant &value)
{
    return QVariant::fromValue(QDBusVariant(value));
}

/// The portal's settings on a private bus, over a separate connection, as from another process.
class FakePortal final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    enum class Answer { OnceWrapped, TwiceWrapped, Error, Never };

    explicit FakePortal(std::optional<uint> scheme, Answer answer = Answer::TwiceWrapped)
        : m_scheme(scheme)
        , m_answer(answer)
    {
        m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(service);
    }

    ~FakePortal() override
    {
        m_bus.unregisterService(service);
        m_bus.unregisterObject(path);
    }

    void announce(const QString &group, const QString &key, const QVariant &value)
    {
        auto signal = QDBusMessage::createSignal(path, settings, u"SettingChanged"_s);
        signal << group << key << wrapped(value);
        m_bus.send(signal);
    }

    int reads = 0;

public slots:
    QDBusVariant Read(const QString &group, const QString &key, const QDBusMessage &message)
    {
        ++reads;
        if (m_answer == Answer::Never) {
            message.setDelayedReply(true);
            return {};
        }
        if (m_answer == Answer::Error || group != appearanceKey || key != u"color-scheme"_s) {
            message.setDelayedReply(true);
            m_bus.send(message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, key));
            return {};
        }
        const QVariant scheme = m_scheme.value();
        return QDBusVariant(m_answer == Answer::TwiceWrapped ? wrapped(scheme) : scheme);
    }

private:
    std::optional<uint> m_scheme;
    Answer m_answer;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
};

void setPaletteWindow(const QColor &color)
{
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    QGuiApplication::setPalette(palette);
}

} // namespace

class PortalAppearanceTest final : public QObject
{
    Q_OBJECT

private slots:
    void init() { setPaletteWindow(Qt::white); }

    void colorSchemeDecidesTheStyle_data()
    {
        QTest::addColumn<uint>("scheme");
        QTest::addColumn<FakePortal::Answer>("answer");
        QTest::addColumn<AppearanceStyle>("style");
        using Answer = FakePortal::Answer;
        QTest::newRow("dark") << 1U << Answer::TwiceWrapped << AppearanceStyle::Dark;
        QTest::newRow("dark, wrapped once") << 1U << Answer::OnceWrapped << AppearanceStyle::Dark;
        QTest::newRow("light") << 2U << Answer::TwiceWrapped << AppearanceStyle::Light;
        QTest::newRow("no preference") << 0U << Answer::TwiceWrapped << AppearanceStyle::Light;
        QTest::newRow("neither") << 7U << Answer::TwiceWrapped << AppearanceStyle::Light;
    }

    void colorSchemeDecidesTheStyle()
    {
        QFETCH(uint, scheme);
        QFETCH(FakePortal::Answer, answer);
        QFETCH(AppearanceStyle, style);
        // The palette says the opposite, so the result can only come from the portal.
        setPaletteWindow(style == AppearanceStyle::Dark ? Qt::white : Qt::black);
        FakePortal portal(scheme, answer);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QTRY_COMPARE(appearance.style(), style);
    }

    void changeIsFollowedLive()
    {
        FakePortal portal(2);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QSignalSpy changed(&appearance, &Appearance::styleChanged);
        QTRY_COMPARE(portal.reads, 1);
        portal.announce(appearanceKey, u"color-scheme"_s, 1U);
        QVERIFY(changed.wait(patienceMilliseconds));
        QCOMPARE(appearance.style(), AppearanceStyle::Dark);
        portal.announce(appearanceKey, u"color-scheme"_s, 0U);
        QVERIFY(changed.wait(patienceMilliseconds));
        QCOMPARE(appearance.style(), AppearanceStyle::Light);
        portal.announce(appearanceKey, u"color-scheme"_s, wrapped(1U));
        QVERIFY(changed.wait(patienceMilliseconds));
        QCOMPARE(appearance.style(), AppearanceStyle::Dark);
    }

    void otherSettingsAreIgnored()
    {
        FakePortal portal(2);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QSignalSpy changed(&appearance, &Appearance::styleChanged);
        QTRY_COMPARE(portal.reads, 1);
        portal.announce(appearanceKey, u"contrast"_s, 1U);
        portal.announce(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, 1U);
        portal.announce(appearanceKey, u"color-scheme"_s, 1U);
        QVERIFY(changed.wait(patienceMilliseconds));
        QCOMPARE(changed.size(), 1);
    }

    void sameStyleAgainIsNoChange()
    {
        FakePortal portal(2);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QSignalSpy changed(&appearance, &Appearance::styleChanged);
        QTRY_COMPARE(portal.reads, 1);
        portal.announce(appearanceKey, u"color-scheme"_s, 0U);
        portal.announce(appearanceKey, u"color-scheme"_s, 1U);
        portal.announce(appearanceKey, u"color-scheme"_s, 1U);
        portal.announce(appearanceKey, u"color-scheme"_s, 2U);
        QTRY_COMPARE(changed.size(), 2);
        QCOMPARE(appearance.style(), AppearanceStyle::Light);
    }

    void withoutAPortalThePaletteDecides_data()
    {
        QTest::addColumn<QColor>("window");
        QTest::addColumn<AppearanceStyle>("style");
        QTest::newRow("black") << QColor(Qt::black) << AppearanceStyle::Dark;
        QTest::newRow("lightness 127") << QColor(127, 127, 127) << AppearanceStyle::Dark;
        QTest::newRow("lightness 128") << QColor(128, 128, 128) << AppearanceStyle::Light;
    }

    void withoutAPortalThePaletteDecides()
    {
        QFETCH(QColor, window);
        QFETCH(AppearanceStyle, style);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        setPaletteWindow(window);
        QCOMPARE(appearance.style(), style);
    }

    void portalWithoutTheSettingLeavesItToThePalette()
    {
        setPaletteWindow(Qt::black);
        FakePortal portal(std::nullopt, FakePortal::Answer::Error);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QTRY_COMPARE(portal.reads, 1);
        QCOMPARE(appearance.style(), AppearanceStyle::Dark);
    }

    void hungPortalHoldsNothingUp()
    {
        FakePortal portal(1, FakePortal::Answer::Never);
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        QCOMPARE(appearance.style(), AppearanceStyle::Light);
        QTRY_COMPARE(portal.reads, 1);
        portal.announce(appearanceKey, u"color-scheme"_s, 1U);
        QTRY_COMPARE(appearance.style(), AppearanceStyle::Dark);
    }

    void portalThatComesLaterIsAsked()
    {
        const PortalAppearance appearance(QDBusConnection::sessionBus());
        FakePortal portal(1);
        QTRY_COMPARE(appearance.style(), AppearanceStyle::Dark);
    }

    void withoutABusThePaletteDecides()
    {
        setPaletteWindow(Qt::black);
        const PortalAppearance appearance{QDBusConnection(u"no such connection"_s)};
        QCOMPARE(appearance.style(), AppearanceStyle::Dark);
    }
};

QTEST_MAIN(PortalAppearanceTest)
#include "PortalAppearanceTest.moc"
