#include "Features/MenuBar/PanelFocusWatch.h"

#include <QEvent>
#include <QWindow>

namespace quorvel {

PanelFocusWatch::PanelFocusWatch(QWindow &window, std::function<bool()> isOnTheWay,
                                 std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_isOnTheWay(std::move(isOnTheWay))
    , m_patience(new QTimer(this))
{
    m_patience->setObjectName(QStringLiteral("patience"));
    m_patience->setSingleShot(true);
    m_patience->setInterval(patience);
    connect(m_patience, &QTimer::timeout, this, &PanelFocusWatch::lost);
    connect(&m_window, &QWindow::activeChanged, this, &PanelFocusWatch::followFocus);
    m_window.installEventFilter(this);
}

bool PanelFocusWatch::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
        m_isReached = false;
        break;
    case QEvent::Hide:
        m_patience->stop();
        break;
    case QEvent::Enter:
    case QEvent::KeyPress:
        m_isReached = true;
        break;
    default:
        break;
    }
    return false;
}

void PanelFocusWatch::followFocus()
{
    if (m_window.isActive() || !m_window.isVisible())
        m_patience->stop();
    else if (m_isReached || !m_isOnTheWay())
        emit lost();
    else
        m_patience->start();
}

} // namespace quorvel
