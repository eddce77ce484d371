#include "Features/MenuBar/Loop/SecondLook.h"

#include <chrono>
#include <utility>

namespace quorvel {

using namespace std::chrono_literals;

namespace {

/// The wait for repeated signals, and for a network whose names cannot be resolved yet.
constexpr std::chrono::milliseconds networkInterval = 1s;
/// The network returns some time after the radio or the machine. All of that is one return.
constexpr std::chrono::milliseconds radioInterval = 8s;

std::chrono::milliseconds settlingAfter(Returning what)
{
    return what == Returning::Network ? networkInterval : radioInterval;
}

} // namespace

SecondLook::SecondLook(MenuBarViewModel &viewModel, SystemEvents &systemEvents,
                       MayInterrupt mayInterrupt, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
    , m_systemEvents(systemEvents)
    , m_mayInterrupt(std::move(mayInterrupt))
    , m_settling(new QTimer(this))
{
    m_settling->setObjectName(QStringLiteral("settling"));
    m_settling->setSingleShot(true);
    connect(m_settling, &QTimer::timeout, this, &SecondLook::look);
    connect(&m_systemEvents, &SystemEvents::cameBack, this, &SecondLook::noteReturn);
    connect(&m_viewModel, &MenuBarViewModel::stateChanged, this, &SecondLook::followWhileItMatters);
    connect(&m_viewModel, &MenuBarViewModel::isLocatingChanged, this, [this] {
        followWhileItMatters();
        reconsider();
    });
}

void SecondLook::appear()
{
    m_isShown = true;
    followWhileItMatters();
}

void SecondLook::disappear()
{
    m_isShown = false;
    followWhileItMatters();
}

void SecondLook::reconsider()
{
    // Not at once: a user who leaves a field is often on the way to another one.
    if (m_isDue && !m_settling->isActive())
        m_settling->start(networkInterval);
}

void SecondLook::noteReturn(Returning what)
{
    if (!matters())
        return;
    m_isDue = true;
    const auto interval = settlingAfter(what);
    if (!m_settling->isActive() || interval <= m_settling->intervalAsDuration())
        m_settling->start(interval);
}

void SecondLook::followWhileItMatters()
{
    if (matters()) {
        m_systemEvents.follow();
        return;
    }
    m_systemEvents.rest();
    m_settling->stop();
    m_isDue = false;
}

void SecondLook::look()
{
    // A return during a load may be too late for that load, so it waits for the load's end.
    if (!m_isDue || m_viewModel.isLocating() || !m_mayInterrupt())
        return;
    m_isDue = false;
    m_viewModel.send(MenuBarInput::retry());
}

bool SecondLook::matters() const
{
    return m_isShown && (m_viewModel.isLocating() || isLacking());
}

bool SecondLook::isLacking() const
{
    const auto *shown = m_viewModel.state().loadedValue();
    if (!shown)
        return false;
    if (!shown->selectedCafe)
        return true;
    // Keep a café that the user has chosen, even if its weather is missing.
    const auto &candidates = shown->nearbyCandidates;
    return !shown->weather && !candidates.empty() && shown->selectedCafe == candidates.front();
}

} // namespace quorvel
