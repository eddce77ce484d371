#include "_Probes/Loop/MenuBarViewModelProbe.h"

#include "_Probes/Log/ProbeTexts.h"

namespace quorvel {

MenuBarViewModelProbe::MenuBarViewModelProbe(const MenuBarViewModel::Services &services,
                                             const Clock &clock, QObject *parent)
    : QObject(parent)
    , m_vm(services, clock)
{
    connect(&m_vm, &MenuBarViewModel::stateChanged, this, &MenuBarViewModelProbe::changed);
}

void MenuBarViewModelProbe::run()
{
    m_vm.send(MenuBarInput::start());
}

void MenuBarViewModelProbe::retry()
{
    m_vm.send(MenuBarInput::retry());
}

void MenuBarViewModelProbe::cancel()
{
    m_vm.send(MenuBarInput::cancel());
}

QString MenuBarViewModelProbe::heading()
{
    return QStringLiteral("PHASE 8 — DAILY LOOP");
}

QString MenuBarViewModelProbe::text() const
{
    const auto &state = m_vm.state();
    if (const auto *snapshot = state.loadedValue())
        return ProbeTexts::located(*snapshot).join(QChar(u'\n'));
    if (const auto *error = state.errorValue())
        return ProbeTexts::error(error);
    return state.isLoading() ? QStringLiteral("Locating")
                             : QStringLiteral("idle — bấm Run để bắt đầu daily loop");
}

} // namespace quorvel
