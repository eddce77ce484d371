#pragma once

#include "Platform/LoginItem/LoginItem.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// The promises of every login item.
class LoginItemContract : public QObject
{
    Q_OBJECT

protected:
    /// An item that was never registered.
    [[nodiscard]] virtual std::unique_ptr<LoginItem> make() = 0;
    /// Makes the next change fail.
    virtual void breakIt() = 0;
    /// Switches the item off, as the user does in the desktop's own tool.
    virtual void switchOff() = 0;

private slots:
    void init() { m_item = make(); }

    void atFirstNothingIsRegistered();
    void registeringEnables();
    void unregisteringTakesItBack();
    void registeringOverrulesAnEarlierSwitchingOff();
    void aFailedRegistrationChangesNothing();

private:
    std::unique_ptr<LoginItem> m_item;
};

} // namespace quorvel::tests
