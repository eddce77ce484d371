#include "Tests/Gallery/GalleryStage.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Core/Support/AppError.h"
#include "Features/History/Share/VisitPicture.h"
#include "Platform/LoginItem/LoginItem.h"
#include "Tests/Support/QuickTest.h"

#include <QAbstractItemModel>
#include <QMetaObject>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSizeF>
#include <QVariant>

#include <initializer_list>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal panelWidth = 340;
constexpr qreal contentHeight = 540;
constexpr QSizeF historySize(600, 540);
constexpr QSizeF probeSize(560, 560);
constexpr qreal formMargin = 16;
constexpr int manyAnswers = 200;

QSizeF implicitSize(const QQuickItem &item)
{
    return {item.implicitWidth(), item.implicitHeight()};
}

} // namespace

GalleryStage::GalleryStage(QQmlEngine &engine, QQuickItem &place)
    : m_engine(engine)
    , m_place(place)
{
    m_world.loginItem.scriptedStatus = LoginItem::Status::Enabled;
}

GalleryStage::~GalleryStage() = default;

void GalleryStage::openPanel()
{
    m_scene.reset(new MenuBarScene(m_world.makeScene()));
    m_scene->appear();
    LoopWorld::settle();
}

void GalleryStage::showPanel()
{
    put(ViewFactory::make(m_engine, u"MenuBar"_s, u"MenuBarRootView"_s,
                          {{u"scene"_s, QVariant::fromValue(m_scene.get())}}),
        {}, 0);
}

void GalleryStage::showContent()
{
    put(ViewFactory::make(m_engine, u"MenuBar"_s, u"PanelContent"_s,
                          {{u"scene"_s, QVariant::fromValue(m_scene.get())}}),
        {panelWidth, contentHeight}, 0);
}

void GalleryStage::showWifi()
{
    wifi().appear();
    LoopWorld::settle();
    put(ViewFactory::make(m_engine, u"CheckIn"_s, u"WifiPasswordField"_s,
                          {{u"section"_s, QVariant::fromValue(&wifi())}}),
        {panelWidth - 2 * formMargin, 0}, formMargin);
}

void GalleryStage::showHistory()
{
    m_history.emplace(&m_historyWorld.repository, m_historyWorld.facilities,
                      m_historyWorld.pasteboard, m_historyWorld.renderCard);
    m_history->appear();
    put(ViewFactory::make(m_engine, u"History"_s, u"HistoryView"_s,
                          {{u"screen"_s, QVariant::fromValue(&*m_history)}}),
        historySize, 0);
}

void GalleryStage::showVisit()
{
    showHistory();
    m_history->openVisit(1);
    HistoryWorld::finishLoading();
}

QImage GalleryStage::cardPicture()
{
    return VisitPicture::image(m_engine, *m_history->openVisit());
}

void GalleryStage::showProbe()
{
    m_probe.reset(new ProbeViewModel(m_probeWorld.makeViewModel()));
    put(ViewFactory::make(m_engine, u"Probes"_s, u"ProbeView"_s,
                          {{u"probe"_s, QVariant::fromValue(m_probe.get())}}),
        probeSize, 0);
}

void GalleryStage::show(const QString &module, const QString &view, const QVariantMap &properties)
{
    put(ViewFactory::make(m_engine, module, view, properties), {panelWidth, contentHeight}, 0);
}

void GalleryStage::showSheet()
{
    QQmlComponent component(&m_engine, QUrl(u"qrc:/Sheet.qml"_s));
    put(std::unique_ptr<QObject>(component.create()), {}, 0);
}

void GalleryStage::press(const QString &label)
{
    QMetaObject::invokeMethod(QuickTest::find(m_view.get(), "label", label), "press");
    LoopWorld::settle();
}

void GalleryStage::scrollToEnd()
{
    layOut();
    QQuickItem *area = QuickTest::find(m_view.get(), "canScroll", true);
    if (!area)
        qFatal("there is nothing to scroll");
    area->setProperty("contentY", area->property("contentHeight").toReal() - area->height());
}

void GalleryStage::keepAnswering()
{
    for (int count = 0; count < manyAnswers; ++count) {
        m_world.loop.willFindAll();
        m_world.willHear({{u"Cà phê Gió Sông"_s, -55}});
        m_world.loop.wifi.joins.willFail(AppError::network(u"refused"_s));
        m_world.loop.systemPasswords.passwords.willSucceed(std::nullopt);
        m_probeWorld.loop.willFindAll();
        m_probeWorld.willLocate(LoopWorld::home());
        m_probeWorld.places.calls.willSucceed(LoopWorld::found());
    }
}

void GalleryStage::layOut()
{
    // Each frame lays out the changes before it. The second frame lays out what grew in the first.
    for (int frame = 0; frame < 2; ++frame) {
        LoopWorld::settle();
        m_place.window()->grabWindow();
    }
}

QStringList GalleryStage::names()
{
    QStringList names;
    for (const auto &visit : m_historyWorld.repository.visits)
        names << (visit->cafe() ? visit->cafe()->name() : QString()) << visit->note();
    if (!m_scene || !m_scene->located())
        return names;
    for (const QAbstractItemModel *rows : std::initializer_list<QAbstractItemModel *>{
             m_scene->located()->candidates(), m_scene->located()->wifi()->rows()})
        for (int row = 0; row < rows->rowCount(); ++row)
            for (const char *role : {"name", "ssid"})
                names.append(rows->index(row, 0).data(rows->roleNames().key(role)).toString());
    return names;
}

QSizeF GalleryStage::size() const
{
    return m_view->size().grownBy({m_margin, m_margin, m_margin, m_margin});
}

void GalleryStage::put(std::unique_ptr<QObject> view, const QSizeF &size, qreal margin)
{
    m_view.reset(qobject_cast<QQuickItem *>(view.release()));
    m_margin = margin;
    m_view->setParentItem(&m_place);
    m_view->setPosition({margin, margin});
    // By default a view gets the size that it asks for.
    if (!size.isEmpty())
        m_view->setSize(size);
    else if (size.width() > 0)
        m_view->setWidth(size.width());
    else
        m_view->setSize(implicitSize(*m_view));
    LoopWorld::settle();
}

} // namespace quorvel::tests
