#include "Platform/Keychain/KeychainStatus.h"

namespace quorvel::KeychainStatus {

using namespace Qt::StringLiterals;

std::optional<QString> message(Code status)
{
    switch (status) {
    case invalidParameter:
        return u"One or more parameters passed to a function were not valid."_s;
    case userCanceled:
        return u"User canceled the operation."_s;
    case notAvailable:
        return u"No keychain is available. You may need to restart your computer."_s;
    case authenticationFailed:
        return u"The user name or passphrase you entered is not correct."_s;
    case duplicateItem:
        return u"The specified item already exists in the keychain."_s;
    case itemNotFound:
        return u"The specified item could not be found in the keychain."_s;
    case noDefaultKeychain:
        return u"A default keychain could not be found."_s;
    case interactionNotAllowed:
        return u"User interaction is not allowed."_s;
    default:
        return std::nullopt;
    }
}

} // namespace quorvel::KeychainStatus
