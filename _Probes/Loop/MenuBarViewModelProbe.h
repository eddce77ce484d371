#pragma once

#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include <qqmlintegration.h>

namespace quorvel {

/// One daily loop under manual control: its state as text, and its inputs.
class MenuBarViewModelProbe final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the window")
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool isError READ isError NOTIFY changed)
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    MenuBarViewModelProbe(const Services &services, const Clock &clock, QObject *parent = nullptr);

    /// As if the panel opened. A second press ends the first load.
    Q_INVOKABLE void run();
    /// Offered while the state is an error.
    Q_INVOKABLE void retry();
    Q_INVOKABLE void cancel();

    [[nodiscard]] bool isLoading() const { return m_vm.state().isLoading(); }
    [[nodiscard]] bool isError() const { return m_vm.state().isError(); }
    [[nodiscard]] bool isLoaded() const { return m_vm.state().isLoaded(); }
    /// The state in one line; in four with a result.
    [[nodiscard]] QString text() const;

signals:
    void changed();

private:
    MenuBarViewModel m_vm;
};

} // namespace quorvel
