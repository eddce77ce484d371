#include "Platform/Http/HttpResponse.h"
#include "Platform/Http/QtHttpClient.h"
#include "Tests/Support/Heard.h"
#include "Tests/Support/Services/ScriptedHttpServer.h"

#include <QFile>
#include <QProcess>
#include <QSsl>
#include <QSslCertificate>
#include <QSslKey>
#include <QTemporaryDir>

#include <memory>
#include <utility>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

namespace {

using Server = ScriptedHttpServer;

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A server's side of TLS, with a new self-signed certificate.
QSslConfiguration selfSigned(const QString &subject)
{
    const QTemporaryDir folder;
    const QString key = folder.filePath(u"key.pem"_s);
    const QString certificate = folder.filePath(u"certificate.pem"_s);
    QProcess openssl;
    openssl.start(u"openssl"_s,
                  {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-noenc"_s, u"-subj"_s,
                   u"/CN=quorvel test"_s, u"-addext"_s, u"subjectAltName="_s + subject,
                   u"-keyout"_s, key, u"-out"_s, certificate});
    if (!openssl.waitForFinished() || openssl.exitCode() != 0)
        qFatal("openssl made no certificate");
    QSslConfiguration tls;
    tls.setPrivateKey(QSslKey(contents(key), QSsl::Rsa));
    tls.setLocalCertificate(QSslCertificate(contents(certificate)));
    return tls;
}

std::shared_ptr<Heard<HttpResponse>> ask(const QUrl &url)
{
    QtHttpClient client;
    return hear<HttpResponse>([&](Completion<HttpResponse> completion) {
        client.send({.url = url}, std::move(completion));
    });
}

} // namespace

class QtHttpClientTlsTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_here = selfSigned(u"IP:127.0.0.1"_s);
        m_elsewhere = selfSigned(u"DNS:elsewhere.example"_s);
    }

    void cleanup() { QSslConfiguration::setDefaultConfiguration(m_machine); }

    void aCertificateThatNobodyVouchesForIsRefused()
    {
        Server server(Server::whole(200, "secret"), m_here);
        const auto heard = ask(server.url());
        QVERIFY(!heard->value);
        QVERIFY2(heard->error.contains(u"self-signed"_s), qPrintable(heard->error));
        QVERIFY(server.requests.isEmpty());
    }

    void aTrustedCertificateIsAccepted()
    {
        trust(m_here);
        Server server(Server::whole(200, "secret"), m_here);
        const auto heard = ask(server.url());
        QCOMPARE(heard->error, QString());
        QCOMPARE(heard->value->body, "secret");
    }

    void theCertificateOfAnotherHostIsRefused()
    {
        trust(m_elsewhere);
        Server server(Server::whole(200, "secret"), m_elsewhere);
        const auto heard = ask(server.url());
        QVERIFY(!heard->value);
        QVERIFY2(heard->error.contains(u"host name"_s), qPrintable(heard->error));
        QVERIFY(server.requests.isEmpty());
    }

    void aRedirectOutOfTheEncryptionIsNotFollowed()
    {
        trust(m_here);
        Server plain(Server::whole(200, "overheard"));
        Server server(Server::whole(302, "", "Location: " + plain.url().toEncoded() + "\r\n"),
                      m_here);
        QCOMPARE(ask(server.url())->error,
                 u"The server redirected to an address that is not secure."_s);
        QVERIFY(plain.requests.isEmpty());
    }

    void aRedirectIntoTheEncryptionIsFollowed()
    {
        trust(m_here);
        Server server(Server::whole(200, "secret"), m_here);
        Server plain(Server::whole(302, "", "Location: " + server.url().toEncoded() + "\r\n"));
        QCOMPARE(ask(plain.url())->value->body, "secret");
    }

private:
    void trust(const QSslConfiguration &tls)
    {
        QSslConfiguration trusting = m_machine;
        trusting.addCaCertificate(tls.localCertificate());
        QSslConfiguration::setDefaultConfiguration(trusting);
    }

    QSslConfiguration m_machine = QSslConfiguration::defaultConfiguration();
    QSslConfiguration m_here;
    QSslConfiguration m_elsewhere;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::QtHttpClientTlsTest)
#include "QtHttpClientTlsTest.moc"
