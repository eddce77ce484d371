#pragma once

#include <QObject>

namespace quorvel {

/// The two appearances that the program shows. Every desktop counts as one of them: dark, or else
/// light.
enum class AppearanceStyle : bool { Light, Dark };

/// Whether the desktop is light or dark right now. The theme follows it.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual AppearanceStyle style() const = 0;

signals:
    void styleChanged();
};

} // namespace quorvel
