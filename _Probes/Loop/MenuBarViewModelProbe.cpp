#include "_Probes/Loop/MenuBarViewModelProbe.h"

#include "_Probes/Log/ProbeTexts.h"

namespace quorvel {

MenuBarViewModelProbe::MenuBarViewModelProbe(const Services &services, const Clock &clock,
                                             QObject *parent)
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

QString MenuBarViewModelProbe::text() const
{
    return ProbeTexts::loop(m_vm.state());
}

} // namespace quorvel
