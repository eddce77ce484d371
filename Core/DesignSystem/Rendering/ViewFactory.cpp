#include "Core/DesignSystem/Rendering/ViewFactory.h"

#include <QObject>
#include <QQmlComponent>
#include <QQmlEngine>

using namespace Qt::StringLiterals;

namespace quorvel {

std::unique_ptr<QObject> ViewFactory::make(QQmlEngine &engine, const QString &module,
                                           const QString &view,
                                           const QVariantMap &requiredProperties)
{
    const QUrl url(u"qrc:/qt-project.org/imports/Quorvel/%1/%2.qml"_s.arg(module, view));
    QQmlComponent component(&engine, url);
    // Check first: Qt 6.4 crashes when it creates a component that it could not load.
    std::unique_ptr<QObject> object(
        component.isReady() ? component.createWithInitialProperties(requiredProperties) : nullptr);
    if (!object)
        throw ViewError(component.errorString().trimmed());
    return object;
}

} // namespace quorvel
