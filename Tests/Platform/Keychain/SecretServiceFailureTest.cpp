#include "Platform/Keychain/SecretService/SecretServiceFailure.h"

#include <QTest>
#include <libsecret/secret.h>

Q_DECLARE_METATYPE(GQuark)

namespace quorvel::tests {

class SecretServiceFailureTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyErrorHasItsStatus_data()
    {
        QTest::addColumn<GQuark>("domain");
        QTest::addColumn<int>("code");
        QTest::addColumn<KeychainStatus::Code>("status");

        const auto row = [](const char *name, GQuark domain, int code,
                            KeychainStatus::Code status) {
            QTest::newRow(name) << domain << code << status;
        };
        row("locked", SECRET_ERROR, SECRET_ERROR_IS_LOCKED, KeychainStatus::interactionNotAllowed);
        row("item gone", SECRET_ERROR, SECRET_ERROR_NO_SUCH_OBJECT, KeychainStatus::itemNotFound);
        row("path gone", G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT, KeychainStatus::itemNotFound);
        row("path without methods", G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD,
            KeychainStatus::itemNotFound);
        row("no service", G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN, KeychainStatus::notAvailable);
        row("service died", G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY, KeychainStatus::notAvailable);
        row("out of time", G_IO_ERROR, G_IO_ERROR_CANCELLED, KeychainStatus::notAvailable);
        row("bus gone", G_IO_ERROR, G_IO_ERROR_CLOSED, KeychainStatus::notAvailable);
        row("nonsense", SECRET_ERROR, SECRET_ERROR_PROTOCOL, KeychainStatus::notAvailable);
        row("same number, other domain", G_IO_ERROR, SECRET_ERROR_IS_LOCKED,
            KeychainStatus::notAvailable);
    }

    void everyErrorHasItsStatus()
    {
        QFETCH(const GQuark, domain);
        QFETCH(const int, code);
        QFETCH(const KeychainStatus::Code, status);
        SecretServiceErrorSlot slot;
        QCOMPARE(slot.status(), KeychainStatus::success);
        slot.check();
        g_set_error_literal(slot, domain, code, "not for the user");
        QCOMPARE(slot.status(), status);
        try {
            slot.check();
        } catch (const SecretServiceFailure &failure) {
            QCOMPARE(failure.status, status);
            return;
        }
        QFAIL("the error went unnoticed");
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::SecretServiceFailureTest)
#include "SecretServiceFailureTest.moc"
