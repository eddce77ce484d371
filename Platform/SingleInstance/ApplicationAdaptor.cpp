#include "Platform/SingleInstance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QMetaObject>
#include <QVariant>

#include <algorithm>
#include <array>

namespace quorvel {

using namespace Qt::StringLiterals;

namespace {

const QString tokenKey = u"activation-token"_s;
const QString startupIdKey = u"desktop-startup-id"_s;

struct Action
{
    QLatin1StringView name;
    Request request;
};

constexpr std::array actions{
    Action{"check-in"_L1, Request::Panel},
    Action{"history"_L1, Request::History},
    Action{"diagnostics"_L1, Request::Diagnostics},
};

void refuse(const QDBusMessage &message, QDBusError::ErrorType type, const QString &reason)
{
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(message.createErrorReply(type, reason));
}

} // namespace

ApplicationAdaptor::ApplicationAdaptor(SingleInstance *instance)
    : QDBusAbstractAdaptor(instance)
    , m_instance(instance)
{}

QString ApplicationAdaptor::action(Request request)
{
    return std::ranges::find(actions, request, &Action::request)->name;
}

QVariantMap ApplicationAdaptor::platformData(const Activation &activation)
{
    QVariantMap data;
    if (!activation.token.isEmpty())
        data.insert(tokenKey, activation.token);
    if (!activation.startupId.isEmpty())
        data.insert(startupIdKey, activation.startupId);
    return data;
}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    activate(platformData, Request::Panel);
}

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &, const QDBusMessage &message)
{
    refuse(message, QDBusError::NotSupported, u"Quorvel opens no files."_s);
}

void ApplicationAdaptor::ActivateAction(const QString &name, const QVariantList &,
                                        const QVariantMap &platformData,
                                        const QDBusMessage &message)
{
    const auto *const found = std::ranges::find(actions, name, &Action::name);
    if (found == actions.end())
        refuse(message, QDBusError::InvalidArgs, u"Quorvel has no action “%1”."_s.arg(name));
    else
        activate(platformData, found->request);
}

void ApplicationAdaptor::activate(const QVariantMap &platformData, Request request)
{
    const Activation activation{.token = platformData.value(tokenKey).toString(),
                                .startupId = platformData.value(startupIdKey).toString(),
                                .request = request};
    // Queued: the caller gets its answer at once, even if the windows take long to open.
    QMetaObject::invokeMethod(
        m_instance, [instance = m_instance, activation] { emit instance->activated(activation); },
        Qt::QueuedConnection);
}

} // namespace quorvel
