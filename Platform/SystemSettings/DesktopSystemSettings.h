#pragma once

#include "Platform/SystemSettings/SystemSettings.h"

#include <QProcessEnvironment>
#include <QUrl>

namespace quorvel {

/// The settings program of the running desktop, or of any installed desktop. The started program
/// outlives this one.
class DesktopSystemSettings final : public SystemSettings
{
public:
    explicit DesktopSystemSettings(const QProcessEnvironment &environment);

    [[nodiscard]] bool open(const QUrl &address) override;

private:
    QProcessEnvironment m_environment;
};

} // namespace quorvel
