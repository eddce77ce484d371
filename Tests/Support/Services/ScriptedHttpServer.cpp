#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <QHostAddress>
#include <QMetaObject>
#include <QObject>
#include <QSslServer>

#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QTcpServer> makeServer(const std::optional<QSslConfiguration> &tls)
{
    if (!tls)
        return std::make_unique<QTcpServer>();
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(*tls);
    return server;
}

} // namespace

ScriptedHttpServer::ScriptedHttpServer(Answer answer, std::optional<QSslConfiguration> tls)
    : m_answer(std::move(answer))
    , m_scheme(tls ? u"https"_s : u"http"_s)
    , m_server(makeServer(tls))
{
    connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket *socket = m_server->nextPendingConnection())
            listen(socket);
    });
    if (!m_server->listen(QHostAddress::LocalHost))
        qFatal("no port to listen on");
}

QUrl ScriptedHttpServer::url(const QString &target) const
{
    return QUrl(u"%1://127.0.0.1:%2%3"_s.arg(m_scheme).arg(m_server->serverPort()).arg(target));
}

QByteArray ScriptedHttpServer::text(int status, const QByteArray &body, const QByteArray &headers)
{
    return "HTTP/1.1 " + QByteArray::number(status) + " Scripted\r\n" + headers +
           "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

ScriptedHttpServer::Answer ScriptedHttpServer::whole(int status, const QByteArray &body,
                                                     const QByteArray &headers)
{
    return [=](const Request &, QTcpSocket &socket) { socket.write(text(status, body, headers)); };
}

ScriptedHttpServer::Answer ScriptedHttpServer::raw(const QByteArray &bytes)
{
    return [=](const Request &, QTcpSocket &socket) {
        socket.write(bytes);
        socket.disconnectFromHost();
    };
}

void ScriptedHttpServer::listen(QTcpSocket *socket)
{
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    const auto read = [this, socket, received = QByteArray()]() mutable {
        received += socket->readAll();
        while (const auto request = take(received)) {
            requests.append(*request);
            m_answer(*request, *socket);
        }
    };
    connect(socket, &QTcpSocket::readyRead, this, read);
    // Data that arrived before the connection was handed over is not announced again.
    QMetaObject::invokeMethod(socket, &QTcpSocket::readyRead, Qt::QueuedConnection);
}

std::optional<ScriptedHttpServer::Request> ScriptedHttpServer::take(QByteArray &received)
{
    const qsizetype headEnd = received.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return std::nullopt;
    QList<QByteArray> lines = received.first(headEnd).split('\n');
    const QList<QByteArray> words = lines.takeFirst().trimmed().split(' ');
    Request request{.method = words.value(0), .target = words.value(1), .headers = {}, .body = {}};
    for (const QByteArray &line : lines) {
        const qsizetype colon = line.indexOf(':');
        request.headers.insert(line.first(colon).toLower(), line.sliced(colon + 1).trimmed());
    }
    const qsizetype bodyBegin = headEnd + 4;
    const qsizetype bodySize = request.headers.value("content-length").toLongLong();
    if (received.size() < bodyBegin + bodySize)
        return std::nullopt;
    request.body = received.sliced(bodyBegin, bodySize);
    received.remove(0, bodyBegin + bodySize);
    return request;
}

} // namespace quorvel::tests
