#include "_Probes/ProbeScreen.h"

namespace quorvel {

ProbeScreen::ProbeScreen(const ProbeRoles &roles, QObject *parent)
    : QObject(parent)
    , m_viewModel(roles)
    , m_loop(roles.loop, roles.clock)
{
    connect(&m_viewModel, &ProbeViewModel::changed, this, &ProbeScreen::follow);
    follow();
}

void ProbeScreen::follow()
{
    m_log.setRecords(m_viewModel.logLines());
    emit changed();
}

} // namespace quorvel
