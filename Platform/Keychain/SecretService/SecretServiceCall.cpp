#include "Platform/Keychain/SecretService/SecretServiceCall.h"

#include "Platform/Keychain/SecretService/SecretAttributes.h"
#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

#include <chrono>
#include <memory>

namespace quorvel {

namespace {

constexpr std::chrono::seconds callLimit{2};

struct SecretValueUnref
{
    void operator()(SecretValue *value) const noexcept { secret_value_unref(value); }
};
/// A copy in libsecret's memory, which is not swapped out and is wiped in the end.
using Value = std::unique_ptr<SecretValue, SecretValueUnref>;

Value valueOf(const QByteArray &bytes)
{
    return Value(secret_value_new(bytes.constData(), bytes.size(), "text/plain"));
}

QByteArrayList taken(gchar **texts)
{
    QByteArrayList list;
    for (gchar **text = texts; text && *text; ++text)
        list.append(*text);
    g_strfreev(texts);
    return list;
}

/// Not done, but not an error either: somebody dismissed a prompt of the service.
void checkDone(bool done, const SecretServiceErrorSlot &error)
{
    error.check();
    if (!done)
        throw SecretServiceFailure{KeychainStatus::userCanceled};
}

} // namespace

SecretServiceCall::SecretServiceCall(SecretServiceConnection &connection)
    : m_deadline(callLimit)
    , m_service(connection.service(m_deadline.cancellable()))
{}

FoundItems SecretServiceCall::items(const KeychainIdentity &identity) const
{
    SecretServiceErrorSlot error;
    const auto attributes = SecretAttributes::of(identity);
    gchar **unlocked = nullptr;
    gchar **locked = nullptr;
    secret_service_search_for_dbus_paths_sync(m_service, &SecretAttributes::schema(),
                                              attributes.get(), m_deadline.cancellable(), &unlocked,
                                              &locked, error);
    FoundItems found{.unlocked = taken(unlocked), .locked = taken(locked)};
    error.check();
    return found;
}

GLibObject<SecretCollection> SecretServiceCall::defaultCollection() const
{
    SecretServiceErrorSlot error;
    GLibObject<SecretCollection> collection(
        secret_collection_for_alias_sync(m_service, SECRET_COLLECTION_DEFAULT,
                                         SECRET_COLLECTION_NONE, m_deadline.cancellable(), error));
    // The alias may name a deleted collection.
    if (error.status() != KeychainStatus::itemNotFound)
        error.check();
    return collection;
}

void SecretServiceCall::create(SecretCollection &collection, const KeychainItem &item) const
{
    SecretServiceErrorSlot error;
    const auto attributes = SecretAttributes::of(item.identity);
    const GLibObject<SecretItem> created(secret_item_create_sync(
        &collection, &SecretAttributes::schema(), attributes.get(),
        SecretAttributes::label(item.identity).constData(), valueOf(item.valueData).get(),
        SECRET_ITEM_CREATE_NONE, m_deadline.cancellable(), error));
    checkDone(created != nullptr, error);
}

QByteArray SecretServiceCall::secret(const QByteArray &path) const
{
    SecretServiceErrorSlot error;
    const Value value(secret_service_get_secret_for_dbus_path_sync(
        m_service, path.constData(), m_deadline.cancellable(), error));
    error.check();
    if (!value)
        throw SecretServiceFailure{KeychainStatus::itemNotFound};
    gsize size = 0;
    const char *bytes = secret_value_get(value.get(), &size);
    return {bytes, qsizetype(size)};
}

void SecretServiceCall::setSecret(const QByteArray &path, const QByteArray &valueData) const
{
    SecretServiceErrorSlot error;
    const GLibObject<SecretItem> item(secret_item_new_for_dbus_path_sync(
        m_service, path.constData(), SECRET_ITEM_NONE, m_deadline.cancellable(), error));
    error.check();
    const bool done = secret_item_set_secret_sync(item.get(), valueOf(valueData).get(),
                                                  m_deadline.cancellable(), error);
    checkDone(done, error);
}

void SecretServiceCall::remove(const QByteArray &path) const
{
    SecretServiceErrorSlot error;
    const bool done = secret_service_delete_item_dbus_path_sync(m_service, path.constData(),
                                                                m_deadline.cancellable(), error);
    checkDone(done, error);
}

} // namespace quorvel
