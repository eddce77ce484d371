// The cost of a long history for its window, compared with a short one.

#include "Benchmarks/Comparison.h"
#include "Benchmarks/Store/DataFolder.h"
#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Features/History/HistoryScreen.h"
#include "Tests/Support/Services/QuietFacilities.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QVariant>

#include <cmath>
#include <memory>
#include <optional>

namespace quorvel::benchmarks {

namespace {

using namespace Qt::StringLiterals;

constexpr int fewVisits = 100;
constexpr int manyVisits = 100'000;
constexpr int openRounds = 9;
constexpr int scrollRounds = 101;
constexpr double scrolledPoints = 37;

/// Searches the item and its children; null if there is none.
QQuickItem *listIn(QQuickItem *item)
{
    if (item->inherits("QQuickListView"))
        return item;
    for (QQuickItem *child : item->childItems())
        if (QQuickItem *list = listIn(child))
            return list;
    return nullptr;
}

/// A user's visits on a disk, and the window that lists them.
class History final
{
public:
    explicit History(int visitCount) { m_folder.fill(visitCount); }

    /// From the request for the window to its first frame.
    Milliseconds open(QQmlEngine &engine)
    {
        m_window.reset();
        m_screen.reset();
        m_repository.emplace(m_folder.repository());
        return timeOf([this, &engine] {
            m_screen.emplace(&*m_repository, m_system.facilities, m_system.pasteboard,
                             CardRenderer());
            const QVariantMap properties{{u"screen"_s, QVariant::fromValue(&*m_screen)}};
            m_window = ViewFactory::make(engine, u"History"_s, u"HistoryWindow"_s, properties);
            window().show();
            QCoreApplication::processEvents();
            if (window().grabWindow().isNull() || m_screen->kind() != HistoryScreen::Kind::List)
                qFatal("The history does not show");
        });
    }

    /// The next frame while scrolling.
    Milliseconds scroll()
    {
        QQuickItem &list = view();
        const double end = list.property("contentHeight").toDouble() - list.height();
        m_offset = std::fmod(m_offset + scrolledPoints, end);
        return timeOf([this, &list] {
            list.setProperty("contentY", m_offset);
            QCoreApplication::processEvents();
            (void)window().grabWindow();
        });
    }

private:
    [[nodiscard]] QQuickWindow &window() { return static_cast<QQuickWindow &>(*m_window); }
    [[nodiscard]] QQuickItem &view()
    {
        QQuickItem *list = listIn(window().contentItem());
        if (!list)
            qFatal("The history has no list");
        return *list;
    }

    DataFolder m_folder;
    tests::QuietFacilities m_system;
    // Order: the window is destroyed before the objects that it is bound to.
    std::optional<SwiftDataCheckInRepository> m_repository;
    std::optional<HistoryScreen> m_screen;
    std::unique_ptr<QObject> m_window;
    double m_offset = 0;
};

void measure(History &many, History &few)
{
    QQmlEngine engine;
    // The first run compiles the views.
    (void)few.open(engine);
    const auto opening = interleaved(
        openRounds, [&] { return many.open(engine); }, [&] { return few.open(engine); });
    const auto scrolling = interleaved(
        scrollRounds, [&] { return many.scroll(); }, [&] { return few.scroll(); });
    printHeading("the window of the history, 100,000 visits against 100");
    printRow("wish to first frame", opening);
    printRow("wish to first frame, more than on 100", (opening.ours - opening.reference).count(),
             "ms", "< 250 ms");
    printRow("a frame while scrolling", scrolling);
    printRow("a frame while scrolling", scrolling.ours.count(), "ms", "< 16.7 ms");
}

} // namespace

} // namespace quorvel::benchmarks

int main(int argc, char **argv)
{
    using namespace quorvel::benchmarks;
    // Order: fill them first, in processes that are forked while this one has no threads.
    History many(manyVisits);
    History few(fewVisits);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    measure(many, few);
    return 0;
}
