#include "Platform/Pasteboard/QtPasteboard.h"

#include "Platform/Errors/Outcome.h"
#include "Tests/Support/Patience.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QTest>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

class QtPasteboardTest final : public QObject
{
    Q_OBJECT

private slots:
    void aTextIsPlainAndNoSecret()
    {
        QtPasteboard().setSecret(u"before"_s);
        QtPasteboard().setText(u"<b>log</b>"_s);
        QCOMPARE(clipboard().text(), u"<b>log</b>"_s);
        QVERIFY(!clipboard().mimeData()->hasHtml());
        QVERIFY(!clipboard().mimeData()->hasFormat(u"x-kde-passwordManagerHint"_s));
    }

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

    /// On this platform the clipboard belongs to the program alone.
    void whatNoOtherProgramCanPasteIsRefused()
    {
        std::optional<Acceptance> acceptance;
        QtPasteboard pasteboard;
        pasteboard.setImage(
            QImage(2, 2, QImage::Format_RGB32), Secrecy::Open,
            [&acceptance](Outcome<Acceptance> outcome) { acceptance = outcome.take(); });
        QVERIFY(clipboard().mimeData()->hasFormat(u"image/png"_s));
        QTRY_COMPARE(acceptance, Acceptance::Refused);
    }

    void aCallThatIsOpenAtTheEndIsNotAnswered()
    {
        const auto held = std::make_shared<int>();
        {
            QtPasteboard pasteboard;
            pasteboard.setImage(QImage(2, 2, QImage::Format_RGB32), Secrecy::Open,
                                [held](Outcome<Acceptance>) { qFatal("answered"); });
        }
        QTRY_COMPARE(held.use_count(), 1);
    }

private:
    [[nodiscard]] static QClipboard &clipboard() { return *QGuiApplication::clipboard(); }
};

} // namespace quorvel::tests

QTEST_MAIN(quorvel::tests::QtPasteboardTest)
#include "QtPasteboardTest.moc"
