#pragma once

#include "Platform/SingleInstance/SingleInstance.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QVariant>
#include <QVariantMap>

namespace quorvel {

/// The standard bus interface of a desktop application: it brings the program forward or runs an
/// action of its desktop entry.
class ApplicationAdaptor final : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(SingleInstance *instance);

    /// The name of the action for this request.
    [[nodiscard]] static QString action(Request request);
    [[nodiscard]] static QVariantMap platformData(const Activation &activation);

public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData,
              const QDBusMessage &message);
    void ActivateAction(const QString &name, const QVariantList &parameter,
                        const QVariantMap &platformData, const QDBusMessage &message);

private:
    void activate(const QVariantMap &platformData, Request request);

    SingleInstance *m_instance;
};

} // namespace quorvel
