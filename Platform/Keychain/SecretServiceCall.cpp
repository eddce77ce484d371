#include "Platform/Keychain/SecretServiceCall.h"

#include "Platform/Keychain/SecretAttributes.h"
#include "Platform/Keychain/SecretServiceFailure.h"

namespace quorvel {

namespace {

constexpr std::chrono::seconds callLimit{2};

struct SecretValueUnref
{
    void operator()(SecretValue *value) const noexcept { secret_value_unref(value); }
};
/// A copy in memory of libsecret's that is not swapped out, and wiped in the end.
using Value = std::unique_ptr<SecretValue, SecretValueUnref>;

Value valueOf(const QByteArray &bytes)
{
    return Value(secret_value_new(bytes.constData(), bytes.size(), "text/plain"));
}

/// Not done, and yet no error: someone dismissed a question that the service had asked.
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

std::vector<GLibObject<SecretItem>> SecretServiceCall::items(const KeychainIdentity &identity) const
{
    SecretServiceErrorSlot error;
    const auto attributes = SecretAttributes::of(identity);
    GList *found =
        secret_service_search_sync(m_service, &SecretAttributes::schema(), attributes.get(),
                                   SECRET_SEARCH_ALL, m_deadline.cancellable(), error);
    error.check();
    std::vector<GLibObject<SecretItem>> items;
    for (const GList *entry = found; entry; entry = entry->next)
        items.emplace_back(SECRET_ITEM(entry->data));
    g_list_free(found);
    return items;
}

GLibObject<SecretCollection> SecretServiceCall::defaultCollection() const
{
    SecretServiceErrorSlot error;
    GLibObject<SecretCollection> collection(
        secret_collection_for_alias_sync(m_service, SECRET_COLLECTION_DEFAULT,
                                         SECRET_COLLECTION_NONE, m_deadline.cancellable(), error));
    // The alias may name a collection that was deleted.
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

QByteArray SecretServiceCall::secret(SecretItem &item) const
{
    SecretServiceErrorSlot error;
    secret_item_load_secret_sync(&item, m_deadline.cancellable(), error);
    error.check();
    const Value value(secret_item_get_secret(&item));
    if (!value)
        throw SecretServiceFailure{KeychainStatus::itemNotFound};
    gsize size = 0;
    const char *bytes = secret_value_get(value.get(), &size);
    return {bytes, qsizetype(size)};
}

void SecretServiceCall::setSecret(SecretItem &item, const QByteArray &valueData) const
{
    SecretServiceErrorSlot error;
    const bool done = secret_item_set_secret_sync(&item, valueOf(valueData).get(),
                                                  m_deadline.cancellable(), error);
    checkDone(done, error);
}

void SecretServiceCall::remove(SecretItem &item) const
{
    SecretServiceErrorSlot error;
    const bool done = secret_item_delete_sync(&item, m_deadline.cancellable(), error);
    checkDone(done, error);
}

} // namespace quorvel
