#pragma once

#include <QObject>

namespace quorvel {

/// Every appearance a desktop may have is shown as one of these two; all but dark ones are light.
enum class AppearanceStyle : bool { Light, Dark };

/// Whether the desktop is light or dark at the moment. The theme follows it.
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
