#include "Platform/Pasteboard/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class QtPasteboardTest final : public QObject
{
    Q_OBJECT

private slots:
    void aSecretIsPlainTextMarkedAsOne()
    {
        clipboard().setText(u"before"_s);
        QtPasteboard().setSecret(u"<b>pass</b> word"_s);
        QCOMPARE(clipboard().text(), u"<b>pass</b> word"_s);
        QVERIFY(!clipboard().mimeData()->hasHtml());
        QCOMPARE(clipboard().mimeData()->data(u"x-kde-passwordManagerHint"_s),
                 QByteArray("secret"));
    }

    void clearingLeavesNothing()
    {
        QtPasteboard().setSecret(u"password"_s);
        QtPasteboard().clearContents();
        QCOMPARE(clipboard().text(), QString());
        const auto *left = clipboard().mimeData();
        QVERIFY(!left || !left->hasFormat(u"x-kde-passwordManagerHint"_s));
    }

private:
    [[nodiscard]] static QClipboard &clipboard() { return *QGuiApplication::clipboard(); }
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::QtPasteboardTest)
#include "QtPasteboardTest.moc"
