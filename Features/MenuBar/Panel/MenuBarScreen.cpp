#include "Features/MenuBar/Panel/MenuBarScreen.h"

#include "Core/Support/AppError.h"
#include "Features/MenuBar/Panel/PanelTexts.h"

namespace quorvel {

MenuBarScreen::MenuBarScreen(MenuBarViewModel &viewModel, CheckInForm form, QObject *parent)
    : QObject(parent)
    , m_viewModel(viewModel)
    , m_form(form)
{
    connect(&m_viewModel, &MenuBarViewModel::stateChanged, this, &MenuBarScreen::changed);
}

void MenuBarScreen::retry()
{
    m_viewModel.send(MenuBarInput::retry());
}

MenuBarScreen::Kind MenuBarScreen::kind() const
{
    if (m_viewModel.state().isError())
        return Kind::Denied;
    // Deliberate: without a form a visit cannot be saved, so the screen stays waiting for ever.
    const bool isLocated = m_viewModel.state().isLoaded() && m_form == CheckInForm::Present;
    return isLocated ? Kind::Located : Kind::Waiting;
}

QString MenuBarScreen::errorText() const
{
    return PanelTexts::error(m_viewModel.state().errorValue());
}

bool MenuBarScreen::canOpenSettings() const
{
    return canOpenSettingsFor(m_viewModel.state().errorValue());
}

bool MenuBarScreen::canOpenSettingsFor(const AppError *error)
{
    return error && error->kind() == AppError::Case::LocationDenied;
}

} // namespace quorvel
