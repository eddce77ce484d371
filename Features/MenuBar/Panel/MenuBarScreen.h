#pragma once

#include "Core/Support/AppError.h"
#include "Features/MenuBar/Loop/MenuBarViewModel.h"

#include <qqmlintegration.h>

namespace quorvel {

/// Chooses the screen in the panel's middle, for its view. The loop itself also serves the terminal
/// and knows no view.
class MenuBarScreen final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the panel")
    Q_PROPERTY(Kind kind READ kind NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(bool canOpenSettings READ canOpenSettings NOTIFY changed)

public:
    enum class Kind { Waiting, Denied, Located };
    Q_ENUM(Kind)
    /// Absent if there is no store for visits.
    enum class CheckInForm { Absent, Present };

    /// The view model must outlive the screen.
    MenuBarScreen(MenuBarViewModel &viewModel, CheckInForm form, QObject *parent = nullptr);

    Q_INVOKABLE void retry();

    [[nodiscard]] Kind kind() const;
    /// The sentence of the error; empty without one.
    [[nodiscard]] QString errorText() const;
    /// Whether the system's settings can help.
    [[nodiscard]] bool canOpenSettings() const;
    [[nodiscard]] static bool canOpenSettingsFor(const AppError *error);

signals:
    void changed();

private:
    MenuBarViewModel &m_viewModel;
    CheckInForm m_form;
};

} // namespace quorvel
