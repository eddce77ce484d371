#include "Platform/Keychain/WipedOnExit.h"

#include <QByteArray>
#include <QString>
#include <QTest>

namespace quorvel::tests {

using namespace Qt::StringLiterals;

class WipedOnExitTest final : public QObject
{
    Q_OBJECT

private slots:
    void bytesAreWiped()
    {
        QByteArray secret(QByteArray("ca phe").repeated(2));
        {
            const WipedOnExit wiped(secret);
            QCOMPARE(secret, "ca pheca phe");
        }
        QCOMPARE(secret, QByteArray(12, '\0'));
    }

    void everyByteOfATextIsWiped()
    {
        QString secret = u"cà phê"_s.repeated(2);
        {
            const WipedOnExit wiped(secret);
        }
        QCOMPARE(secret, QString(12, QChar(u'\0')));
    }

    void whatSomebodyElseHoldsStays()
    {
        QString secret = u"cà phê"_s.repeated(2);
        const QString other = secret;
        {
            const WipedOnExit wiped(secret);
        }
        QCOMPARE(other, u"cà phêcà phê"_s);
    }
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::WipedOnExitTest)
#include "WipedOnExitTest.moc"
