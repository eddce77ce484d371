#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

namespace quorvel::tests {

/// A web server on the loopback that gives a test's answers, even invalid ones.
class ScriptedHttpServer final : public QObject
{
    Q_OBJECT

public:
    struct Request
    {
        QByteArray method;
        QByteArray target;
        QHash<QByteArray, QByteArray> headers; ///< names in lower case
        QByteArray body;
    };
    using Answer = std::function<void(const Request &request, QTcpSocket &socket)>;

    explicit ScriptedHttpServer(Answer answer, std::optional<QSslConfiguration> tls = {});

    [[nodiscard]] QUrl url(const QString &target = QStringLiteral("/")) const;
    /// The text of a complete answer.
    [[nodiscard]] static QByteArray text(int status, const QByteArray &body,
                                         const QByteArray &headers = {});
    /// Writes this text.
    [[nodiscard]] static Answer whole(int status, const QByteArray &body,
                                      const QByteArray &headers = {});
    /// Writes these bytes and closes the connection.
    [[nodiscard]] static Answer raw(const QByteArray &bytes);

    QList<Request> requests;

private:
    void listen(QTcpSocket *socket);
    [[nodiscard]] static std::optional<Request> take(QByteArray &received);

    Answer m_answer;
    QString m_scheme;
    std::unique_ptr<QTcpServer> m_server;
};

} // namespace quorvel::tests
