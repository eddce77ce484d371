#pragma once

#include "Platform/Errors/LocalizedError.h"

#include <QUrl>
#include <QVariantMap>

#include <memory>
#include <utility>

class QObject;
class QQmlEngine;

namespace quorvel {

/// A view could not be made. Our views are part of the program, so one of Qt Quick's own modules is
/// missing on this system.
class ViewError final : public LocalizedError
{
public:
    explicit ViewError(QString description)
        : m_description(std::move(description))
    {}

    [[nodiscard]] QString errorDescription() const override { return m_description; }

private:
    QString m_description;
};

/// Makes the root object of a scene, for the owners of scenes.
namespace ViewFactory {

/// Makes `view` of the module `Quorvel.<module>` with its required properties. Throws ViewError.
[[nodiscard]] std::unique_ptr<QObject> make(QQmlEngine &engine, const QString &module,
                                            const QString &view,
                                            const QVariantMap &requiredProperties = {});

} // namespace ViewFactory
} // namespace quorvel
