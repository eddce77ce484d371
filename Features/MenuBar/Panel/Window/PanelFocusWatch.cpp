#include "Features/MenuBar/Panel/Window/PanelFocusWatch.h"

#include <QEvent>
#include <QWindow>

#include <utility>

namespace quorvel {

namespace {

/// The time that a window may take to show and to get the focus, on a busy machine.
constexpr int patiencesUntilFocus = 4;

} // namespace

PanelFocusWatch::PanelFocusWatch(QWindow &window, std::function<bool()> isOnTheWay,
                                 std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_isOnTheWay(std::move(isOnTheWay))
    , m_limit(patience)
    , m_patience(new QTimer(this))
{
    m_patience->setObjectName(QStringLiteral("patience"));
    m_patience->setSingleShot(true);
    connect(m_patience, &QTimer::timeout, this, &PanelFocusWatch::lost);
    connect(&m_window, &QWindow::activeChanged, this, &PanelFocusWatch::followFocus);
    m_window.installEventFilter(this);
}

bool PanelFocusWatch::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
        m_isReached = false;
        // The focus may come and go before Qt looks. Then Qt reports neither.
        if (m_isOnTheWay())
            m_patience->start(patiencesUntilFocus * m_limit);
        break;
    case QEvent::Hide:
        m_patience->stop();
        break;
    case QEvent::Enter:
    case QEvent::KeyPress:
        m_isReached = true;
        m_patience->stop();
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
        m_patience->start(m_limit);
}

} // namespace quorvel
