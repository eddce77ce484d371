#pragma once

#include <QByteArray>

#include <cstdlib>
#include <unistd.h>

namespace quorvel::tests {

/// Gives orders to the keyring daemon of the session that this test runs in, by the verbs of
/// `KeyringWorld`. Ends the test when one cannot be carried out.
class KeyringOrders final
{
public:
    void give(const QByteArray &verb) const
    {
        const int socket = qEnvironmentVariableIntValue("QUORVEL_KEYRING");
        const QByteArray line = verb + '\n';
        if (socket <= 0 || write(socket, line.constData(), size_t(line.size())) != line.size())
            qFatal("this test is to be run by keyring_session.py");
        const QByteArray answer = readLine(socket);
        if (answer != "done")
            qFatal("the keyring answers: %s", answer.constData());
    }

private:
    static QByteArray readLine(int socket)
    {
        QByteArray line;
        char letter = 0;
        while (read(socket, &letter, 1) == 1 && letter != '\n')
            line += letter;
        return line;
    }
};

} // namespace quorvel::tests
