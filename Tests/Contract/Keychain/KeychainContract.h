#pragma once

#include "Platform/Keychain/Keychain.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// The promises of every keychain.
class KeychainContract : public QObject
{
    Q_OBJECT

protected:
    [[nodiscard]] virtual std::unique_ptr<Keychain> makeEmpty() = 0;

private slots:
    void init() { m_keychain = makeEmpty(); }
    void cleanup() { m_keychain.reset(); }

    void atFirstNothingIsFound();
    void whatWasAddedIsFound();
    void addingTwiceIsADuplicateThatChangesNothing();
    void anUpdateReplacesTheValue();
    void whatWasRemovedIsGoneAndCanBeAddedAgain();
    void identitiesThatDifferInOneLetterAreDifferentItems();
    void namesAndValuesComeBackToTheLetter_data();
    void namesAndValuesComeBackToTheLetter();
    void manyItemsKeepApart();

private:
    [[nodiscard]] QByteArray value(const KeychainIdentity &identity);

    std::unique_ptr<Keychain> m_keychain;
};

} // namespace quorvel::tests
