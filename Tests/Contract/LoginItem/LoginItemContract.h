#pragma once

#include "Platform/LoginItem/LoginItem.h"

#include <QObject>

#include <memory>

namespace quorvel::tests {

/// What every login item promises.
class LoginItemContract : public QObject
{
    Q_OBJECT

protected:
    /// One that was never registered.
    [[nodiscard]] virtual std::unique_ptr<LoginItem> make() = 0;
    /// Has the next change fail.
    virtual void breakIt() = 0;
    /// Has the user switch the item off in the desktop's own tool.
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
