#include "Core/Keychain/KeychainError.h"
#include "Core/Keychain/SecItemKeychainStore.h"

#include <QCoreApplication>
#include <QFile>

#include <exception>
#include <iostream>
#include <string>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

const QString ssid = u"Quán Cà Phê"_s;

/// Executes one order. Never prints a password.
QByteArray answerTo(const std::string &order, QString &saved)
{
    SecItemKeychainStore store(SecItemKeychainStore::wifiService, Keychain::standard());
    const auto blank = order.find(' ');
    if (order.starts_with("save ")) {
        saved = QString::fromStdString(order.substr(blank + 1));
        store.savePassword(saved, ssid);
        return "saved";
    }
    if (order == "delete") {
        store.deletePassword(ssid);
        return "deleted";
    }
    const auto password = store.password(ssid);
    if (!password)
        return "absent";
    return *password == saved ? "the same" : "another";
}

} // namespace

/// Handles passwords as the real program does, on a test's orders. It reads orders ("save
/// PASSWORD", "read", "delete") from its input, and writes their outcomes to the file descriptor of
/// the given number. Its standard output stays free for messages of the libraries.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QFile answers;
    if (argc != 2 || !answers.open(QByteArray(argv[1]).toInt(), QIODevice::WriteOnly))
        return 2;
    QString saved;
    for (std::string order; std::getline(std::cin, order);) {
        // As the event loop does between two clicks.
        QCoreApplication::processEvents();
        try {
            answers.write(answerTo(order, saved));
        } catch (const std::exception &error) {
            answers.write(error.what());
        }
        answers.write("\n");
        answers.flush();
    }
    return 0;
}
