#pragma once

#include "Platform/SystemSettings/SystemSettings.h"

#include <QProcessEnvironment>

namespace quorvel {

/// The settings program of the desktop that runs, or of any desktop that is installed. What it
/// starts lives on without this program.
class DesktopSystemSettings final : public SystemSettings
{
public:
    explicit DesktopSystemSettings(
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());

    [[nodiscard]] bool open(const QUrl &address) override;

private:
    QProcessEnvironment m_environment;
};

} // namespace quorvel
