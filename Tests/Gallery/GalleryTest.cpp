#include "Tests/Gallery/Gallery.h"

#include "Core/DesignSystem/Theme/Theme.h"
#include "Tests/Features/MenuBar/Loop/LoopWorld.h"
#include "Tests/Gallery/GalleryPictures.h"
#include "Tests/Gallery/GalleryStage.h"
#include "Tests/Gallery/Inspection/ViewInspection.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/QuickTest.h"

#include <QDir>
#include <QImage>
#include <QQmlEngine>
#include <QQuickView>
#include <QSGRendererInterface>
#include <QTemporaryDir>
#include <QUrl>
#include <QVariant>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

constexpr AppearanceStyle looks[] = {AppearanceStyle::Light, AppearanceStyle::Dark};

} // namespace

/// Every view in every state, in light and dark.
class GalleryTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        m_window.emplace();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(&*m_window, patienceMilliseconds));
    }
    void cleanupTestCase() { m_window.reset(); }
    void init() { QuickTest::failOnWarnings(); }
    void cleanup()
    {
        m_stage.reset();
        Theme::shared().setStyle(AppearanceStyle::Light);
    }

    void namesAreDifferent()
    {
        QStringList names;
        for (const GalleryState &state : GalleryStates::all())
            names.append(state.name);
        QCOMPARE(names.removeDuplicates(), 0);
    }

    void illustrationsAreTheSameEachTime()
    {
        const QTemporaryDir once;
        const QTemporaryDir again;
        QVERIFY(GalleryPictures::writeIllustrations(m_engine, once.path()));
        QVERIFY(GalleryPictures::writeIllustrations(m_engine, again.path()));
        const QStringList names = QDir(once.path()).entryList(QDir::Files);
        QCOMPARE(names,
                 QStringList({u"card-dark.png"_s, u"card-light.png"_s, u"history-dark.png"_s,
                              u"history-light.png"_s, u"panel-dark.png"_s, u"panel-light.png"_s}));
        for (const QString &name : names)
            QCOMPARE(QImage(once.filePath(name)), QImage(again.filePath(name)));
    }

    void theWindowShowsEachStateThatIsChosen()
    {
        Gallery gallery(m_engine);
        QQuickView window(&m_engine, nullptr);
        window.setInitialProperties({{u"gallery"_s, QVariant::fromValue(&gallery)}});
        window.setSource(QUrl(u"qrc:/GalleryWindow.qml"_s));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window, patienceMilliseconds));
        LoopWorld::settle();
        QImage picture = window.grabWindow();
        for (qsizetype others = gallery.names().size() - 1; others > 0; --others) {
            QTest::keyClick(&window, Qt::Key_Down);
            LoopWorld::settle();
            const QImage next = window.grabWindow();
            QVERIFY(picture != next);
            picture = next;
        }
        QTest::keyClick(&window, Qt::Key_D);
        QVERIFY(picture != window.grabWindow());
    }

    void nothingLeavesTheWindowSideways_data() { states(); }
    void nothingLeavesTheWindowSideways()
    {
        putUp();
        QCOMPARE(ViewInspection::leavingSideways(m_stage->view()).join(u'\n'), QString());
    }

    void onlyNamesAreCut_data() { states(); }
    void onlyNamesAreCut()
    {
        putUp();
        QCOMPARE(ViewInspection::cutTexts(m_stage->view(), m_stage->names()).join(u'\n'),
                 QString());
    }

    void nothingOverlaps_data() { states(); }
    void nothingOverlaps()
    {
        putUp();
        QCOMPARE(ViewInspection::overlapping(m_stage->view()).join(u'\n'), QString());
    }

    void everythingCanBeReadInBothLooks_data() { states(); }
    void everythingCanBeReadInBothLooks()
    {
        putUp();
        for (const AppearanceStyle look : looks) {
            wear(look);
            QCOMPARE(ViewInspection::pale(m_stage->view()).join(u'\n'), QString());
        }
    }

    void looksDiffer_data() { states(); }
    void looksDiffer()
    {
        putUp();
        wear(AppearanceStyle::Light);
        const QImage light = m_window->grabWindow();
        wear(AppearanceStyle::Dark);
        QVERIFY(light != m_window->grabWindow());
    }

    void everyControlIsNamedAndShowsItsFocus_data() { states(); }
    void everyControlIsNamedAndShowsItsFocus()
    {
        putUp();
        QCOMPARE(ViewInspection::badlyFocused(m_stage->view()).join(u'\n'), QString());
    }

private:
    static void states()
    {
        QTest::addColumn<int>("index");
        const auto all = GalleryStates::all();
        for (qsizetype index = 0; index < all.size(); ++index)
            QTest::newRow(qPrintable(all[index].name)) << int(index);
    }

    void putUp()
    {
        QFETCH(const int, index);
        m_stage.emplace(m_engine, *m_window->contentItem());
        GalleryStates::all().at(index).make(*m_stage);
        m_window->resize(m_stage->size().toSize());
        m_stage->layOut();
        m_window->resize(m_stage->size().toSize());
        wear(AppearanceStyle::Light);
    }

    void wear(AppearanceStyle look)
    {
        Theme::shared().setStyle(look);
        m_window->setColor(Theme::shared().color()->background());
        m_stage->layOut();
    }

    QQmlEngine m_engine;
    std::optional<QQuickWindow> m_window;
    std::optional<GalleryStage> m_stage;
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::GalleryTest)
#include "GalleryTest.moc"
