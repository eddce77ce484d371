#include "Tests/Features/History/HistoryOnScreen.h"

#include "Core/DesignSystem/Rendering/ViewFactory.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/RunTask.h"

#include <QSGRendererInterface>
#include <QVariant>

namespace quorvel::tests {

HistoryOnScreen::HistoryOnScreen(const Visits &visits)
{
    world.repository.visits = visits;
}

HistoryOnScreen::~HistoryOnScreen() = default;

void HistoryOnScreen::open()
{
    if (QQuickWindow::sceneGraphBackend() != u"software")
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    m_window.reset(qobject_cast<QQuickWindow *>(
        ViewFactory::make(m_engine, QStringLiteral("History"), QStringLiteral("HistoryWindow"),
                          {{QStringLiteral("screen"), QVariant::fromValue(&screen)}})
            .release()));
    window().show();
    if (!QTest::qWaitForWindowActive(&window(), patienceMilliseconds))
        qFatal("the history did not open");
    settle();
}

void HistoryOnScreen::settle()
{
    for (int frame = 0; frame < 2; ++frame) {
        turnEventLoop();
        window().grabWindow();
    }
}

QQuickItem *HistoryOnScreen::shown(const char *property, const QVariant &value)
{
    return QuickTest::shown(window(), property, value);
}

QString HistoryOnScreen::focused()
{
    const QQuickItem *item = window().activeFocusItem();
    return item ? item->property("label").toString() : QString();
}

void HistoryOnScreen::click(QQuickItem *item)
{
    QuickTest::click(item);
    settle();
}

void HistoryOnScreen::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&window(), key, modifiers);
    settle();
}

} // namespace quorvel::tests
