#include "Platform/Keychain/SecretService/SecretAttributes.h"

namespace quorvel::SecretAttributes {

namespace {

constexpr auto serviceKey = "service";
constexpr auto accountKey = "account";

bool isHeldAsIs(const QString &text)
{
    return text.isValidUtf16() && !text.contains(QChar(u'\0'));
}

} // namespace

// Accessibility and synchronisation have no counterpart: the service keeps every item in a file on
// this machine, readable while its collection is unlocked, even behind a locked screen.
const SecretSchema &schema()
{
    static const SecretSchema schema = [] {
        SecretSchema ours = {};
        ours.name = "com.zantho.quorvel.wifi";
        ours.flags = SECRET_SCHEMA_NONE;
        ours.attributes[0] = {serviceKey, SECRET_SCHEMA_ATTRIBUTE_STRING};
        ours.attributes[1] = {accountKey, SECRET_SCHEMA_ATTRIBUTE_STRING};
        return ours;
    }();
    return schema;
}

bool canHold(const KeychainIdentity &identity)
{
    return isHeldAsIs(identity.service) && isHeldAsIs(identity.account);
}

Table of(const KeychainIdentity &identity)
{
    return Table(secret_attributes_build(&schema(), serviceKey,
                                         identity.service.toUtf8().constData(), accountKey,
                                         identity.account.toUtf8().constData(), nullptr));
}

QByteArray label(const KeychainIdentity &identity)
{
    return "Wi-Fi password for " + identity.account.toUtf8();
}

} // namespace quorvel::SecretAttributes
