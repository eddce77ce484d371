#pragma once

#include "Core/DI/Scenes.h"

#include <QObject>
#include <qqmlintegration.h>

namespace quorvel {

/// The footer's toggle: shows what the login item says of itself, never what was asked of it.
class LaunchAtLoginToggle final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the panel")
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)

public:
    explicit LaunchAtLoginToggle(LaunchAtLoginSwitch loginItem, QObject *parent = nullptr);

    /// Reads the status again: another program may have changed it.
    void refresh();
    /// Asks for the change, then shows what came of it.
    Q_INVOKABLE void setEnabled(bool enabled);

    [[nodiscard]] bool isEnabled() const { return m_enabled; }

signals:
    void enabledChanged();

private:
    LaunchAtLoginSwitch m_loginItem;
    bool m_enabled = false;
};

} // namespace quorvel
