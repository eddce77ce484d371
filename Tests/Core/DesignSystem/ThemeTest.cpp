#include "Core/DesignSystem/Theme/Theme.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/DesignSystem/Theme/DynamicColor.h"

#include <QColor>
#include <QFont>
#include <QMetaObject>
#include <QMetaProperty>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

struct Value
{
    QRgb rgb;
    double alpha;
};

struct Token
{
    const char *name;
    Value light;
    Value dark;
};

const Token tokens[] = {
    {"background", {0xFBF6EF, 1.00}, {0x1A1410, 1.00}},
    {"surface", {0xFFFFFF, 1.00}, {0x241C16, 1.00}},
    {"card", {0xF4ECE0, 1.00}, {0x2C231C, 1.00}},
    {"accent", {0xE08A3C, 1.00}, {0xE0A45C, 1.00}},
    {"accentDeep", {0xC8772E, 1.00}, {0xC8893E, 1.00}},
    {"accentSoft", {0xE08A3C, 0.12}, {0xE0A45C, 0.16}},
    {"textPrimary", {0x2B211A, 1.00}, {0xF3E9DC, 1.00}},
    {"textSecondary", {0x6B5D50, 1.00}, {0xF3E9DC, 0.70}},
    {"textTertiary", {0x9C8C7C, 1.00}, {0xF3E9DC, 0.45}},
    {"success", {0x4E8D6E, 1.00}, {0x6FB48F, 1.00}},
    {"successSoft", {0x4E8D6E, 0.13}, {0x6FB48F, 0.16}},
    {"error", {0xC0492F, 1.00}, {0xE06A4F, 1.00}},
    {"border", {0x2B211A, 0.10}, {0xF3E9DC, 0.10}},
    {"borderStrong", {0x2B211A, 0.16}, {0xF3E9DC, 0.16}},
    {"hover", {0x2B211A, 0.05}, {0xF3E9DC, 0.06}},
    {"field", {0xFFFFFF, 1.00}, {0x1E1711, 1.00}},
    {"starOn", {0xE0A53C, 1.00}, {0xE8B564, 1.00}},
    {"starOff", {0x2B211A, 0.18}, {0xF3E9DC, 0.20}},
};

struct Style
{
    const char *name;
    int size;
    QFont::Weight weight;
};

const Style styles[] = {
    {"cafeName", 17, QFont::DemiBold}, {"tempLarge", 28, QFont::Medium},
    {"body", 13, QFont::Normal},       {"caption", 11, QFont::Normal},
    {"button", 13, QFont::DemiBold},   {"eyebrow", 10, QFont::DemiBold},
    {"tag", 8, QFont::DemiBold},       {"ratingLabel", 9, QFont::DemiBold},
    {"bodyMedium", 13, QFont::Medium}, {"captionSemibold", 11, QFont::DemiBold},
    {"cardTitle", 19, QFont::Bold},    {"chipTemperature", 14, QFont::DemiBold},
};

QColor token(const char *name)
{
    return Theme::shared().color()->property(name).value<QColor>();
}

QFont style(const char *name)
{
    return Theme::shared().font()->property(name).value<QFont>();
}

void compareColor(const QColor &color, Value expected)
{
    QCOMPARE(color.rgb() & 0xFFFFFF, expected.rgb & 0xFFFFFF);
    // A colour has sixteen bits per channel.
    QVERIFY2(qAbs(double(color.alphaF()) - expected.alpha) < 1e-4,
             qPrintable(QString::number(double(color.alphaF()))));
}

} // namespace

class ThemeTest final : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { Theme::shared().setStyle(AppearanceStyle::Light); }

    void everyColorTokenHasItsTwoValues_data()
    {
        QTest::addColumn<qsizetype>("index");
        for (qsizetype i = 0; i < std::ssize(tokens); ++i)
            QTest::newRow(tokens[i].name) << i;
    }

    void everyColorTokenHasItsTwoValues()
    {
        QFETCH(qsizetype, index);
        const Token &expected = tokens[index];
        compareColor(token(expected.name), expected.light);
        Theme::shared().setStyle(AppearanceStyle::Dark);
        compareColor(token(expected.name), expected.dark);
    }

    void thereAreNoOtherColorTokens()
    {
        const QMetaObject &meta = ThemeColor::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), int(std::size(tokens)));
    }

    void colorFromHexIsOpaqueAndExact()
    {
        const DynamicColor color(0x010203, 0xFDFEFF);
        QCOMPARE(color.resolved(AppearanceStyle::Light), QColor(1, 2, 3));
        QCOMPARE(color.resolved(AppearanceStyle::Dark), QColor(253, 254, 255));
    }

    void colorFromFractionsKeepsEveryChannel()
    {
        const DynamicColor color(0.f, 0.2f, 0.4f, 0.6f, 1.f, 0.8f, 0.6f, 0.4f);
        QCOMPARE(color.resolved(AppearanceStyle::Light), QColor::fromRgbF(0.f, 0.2f, 0.4f, 0.6f));
        QCOMPARE(color.resolved(AppearanceStyle::Dark), QColor::fromRgbF(1.f, 0.8f, 0.6f, 0.4f));
    }

    void bytesAsFractionsEqualTheHexColor()
    {
        const DynamicColor hex(0x2B211A, 0xF3E9DC);
        const DynamicColor fractions(43 / 255.f, 33 / 255.f, 26 / 255.f, 1.f, 243 / 255.f,
                                     233 / 255.f, 220 / 255.f, 1.f);
        for (const auto style : {AppearanceStyle::Light, AppearanceStyle::Dark})
            QCOMPARE(fractions.resolved(style).rgba(), hex.resolved(style).rgba());
    }

    void everyTextStyleHasItsSizeAndWeight_data()
    {
        QTest::addColumn<qsizetype>("index");
        for (qsizetype i = 0; i < std::ssize(styles); ++i)
            QTest::newRow(styles[i].name) << i;
    }

    void everyTextStyleHasItsSizeAndWeight()
    {
        QFETCH(qsizetype, index);
        const QFont font = style(styles[index].name);
        QCOMPARE(font.pixelSize(), styles[index].size);
        QCOMPARE(font.weight(), styles[index].weight);
    }

    void textStylesAreInTheSystemTypeface()
    {
        for (const auto *name : {"cafeName", "body", "caption", "button", "eyebrow", "title"})
            QCOMPARE(style(name).family(), QFont().family());
    }

    void primitivesHaveTheirVariantsOfAStyle()
    {
        QCOMPARE(style("captionMedium").pixelSize(), 11);
        QCOMPARE(style("captionMedium").weight(), QFont::Medium);
        QCOMPARE(style("title").pixelSize(), 13);
        QCOMPARE(style("title").weight(), QFont::DemiBold);
        QCOMPARE(style("trackedEyebrow").pixelSize(), 10);
        QCOMPARE(style("trackedEyebrow").letterSpacingType(), QFont::AbsoluteSpacing);
        // A font stores its spacing in 64ths of a pixel.
        QVERIFY(qAbs(style("trackedEyebrow").letterSpacing() - 0.7) < 1 / 64.0);
        QCOMPARE(style("eyebrow").letterSpacing(), 0.0);
        QCOMPARE(style("ratingLabel").letterSpacingType(), QFont::AbsoluteSpacing);
        QVERIFY(qAbs(style("ratingLabel").letterSpacing() - 0.4) < 1 / 64.0);
    }

    void newStyleIsAnnouncedOnce()
    {
        QSignalSpy changed(Theme::shared().color(), &ThemeColor::changed);
        Theme::shared().setStyle(AppearanceStyle::Light);
        QCOMPARE(changed.size(), 0);
        Theme::shared().setStyle(AppearanceStyle::Dark);
        Theme::shared().setStyle(AppearanceStyle::Dark);
        QCOMPARE(changed.size(), 1);
    }

    void bindingFollowsTheStyleInEveryEngine()
    {
        QQmlEngine first;
        QQmlEngine second;
        for (QQmlEngine *engine : {&first, &second}) {
            QQmlComponent component(engine);
            component.setData("import QtQuick; import Quorvel.DesignSystem;"
                              "Rectangle { color: Theme.color.accent }",
                              {});
            const std::unique_ptr<QObject> object(component.create());
            QVERIFY2(object, qPrintable(component.errorString()));
            Theme::shared().setStyle(AppearanceStyle::Light);
            QCOMPARE(object->property("color").value<QColor>(), QColor(0xE08A3C));
            Theme::shared().setStyle(AppearanceStyle::Dark);
            QCOMPARE(object->property("color").value<QColor>(), QColor(0xE0A45C));
        }
    }

    void themeOutlivesAnEngine()
    {
        {
            QQmlEngine engine;
            QQmlComponent component(&engine);
            component.setData("import QtQml; import Quorvel.DesignSystem;"
                              "QtObject { property var kept: [Theme.color, Theme.font] }",
                              {});
            const std::unique_ptr<QObject> object(component.create());
            QVERIFY2(object, qPrintable(component.errorString()));
            engine.collectGarbage();
        }
        QCOMPARE(token("accent"), QColor(0xE08A3C));
    }

    void missingViewIsAnErrorThatNamesIt()
    {
        QQmlEngine engine;
        try {
            const auto view = ViewFactory::make(engine, u"DesignSystem"_s, u"NoSuchView"_s);
            QFAIL("made a view that does not exist");
        } catch (const ViewError &error) {
            QVERIFY(error.errorDescription().contains(u"NoSuchView"_s));
        }
    }
};

QTEST_MAIN(ThemeTest)
#include "ThemeTest.moc"
