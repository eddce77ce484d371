#include "Platform/Errors/Outcome.h"
#include "Platform/Pasteboard/QtPasteboard.h"
#include "Platform/X11/X11Server.h"
#include "Tests/Support/Patience.h"

#include <QColor>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSize>
#include <QTest>
#include <QWindow>

#include <optional>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

namespace {

QImage picture(QSize size = {1440, 2000})
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixelColor(x, y, QColor(x % 256, y % 256, (x * y) % 256));
    return image;
}

/// What another program gets when it pastes this format.
QByteArray pasted(const QString &format)
{
    QProcess program;
    program.start(u"xclip"_s, {u"-selection"_s, u"clipboard"_s, u"-t"_s, format, u"-o"_s});
    if (!comes([&] { return program.state() == QProcess::NotRunning; }))
        program.kill();
    return program.readAllStandardOutput();
}

/// Another client of the server that has copied something. Our program does not notice it yet.
class OtherProgram final
{
public:
    OtherProgram()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
        , m_clipboard(X11Server::atom(m_connection, "CLIPBOARD"))
    {
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_connection, m_window, m_clipboard, XCB_CURRENT_TIME);
    }
    ~OtherProgram() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(OtherProgram)

    [[nodiscard]] bool hasTheClipboard() const
    {
        return X11Server::selectionOwner(m_connection, m_clipboard) == m_window;
    }

private:
    xcb_connection_t *m_connection;
    xcb_window_t m_window;
    xcb_atom_t m_clipboard;
};

} // namespace

class QtPasteboardX11Test final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::platformName(), u"xcb"_s); }
    void init() { m_pasteboard.clearContents(); }

    void anotherProgramPastesThePicture()
    {
        QCOMPARE(copy(picture()), Acceptance::Accepted);
        QCOMPARE(QImage::fromData(pasted(u"image/png"_s), "png").convertedTo(picture().format()),
                 picture());
        QCOMPARE(QImage::fromData(pasted(u"image/bmp"_s), "bmp").size(), picture().size());
    }

    void anotherProgramIsToldWhatHoldsAPassword()
    {
        QCOMPARE(copy(picture({2, 2}), Secrecy::Open), Acceptance::Accepted);
        QVERIFY(!pasted(u"TARGETS"_s).contains("passwordManagerHint"));
        QCOMPARE(copy(picture({2, 2}), Secrecy::Secret), Acceptance::Accepted);
        QVERIFY(pasted(u"TARGETS"_s).contains("passwordManagerHint"));
        QCOMPARE(pasted(u"x-kde-passwordManagerHint"_s), QByteArray("secret"));
    }

    void thePictureTakesThePlaceOfWhatAnotherProgramCopied()
    {
        const OtherProgram other;
        QVERIFY(other.hasTheClipboard());
        letTheUserActNow();
        QCOMPARE(copy(picture({2, 2})), Acceptance::Accepted);
        QCOMPARE(pasted(u"image/png"_s).left(4), QByteArray("\x89PNG"));
    }

    void whatAnotherProgramCopiesMeanwhileStays()
    {
        const OtherProgram other;
        QVERIFY(other.hasTheClipboard());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Cannot set X11 selection owner"_s));
        QCOMPARE(copy(picture({2, 2})), Acceptance::Refused);
        QVERIFY(other.hasTheClipboard());
    }

    void aClearedClipboardHoldsNothing()
    {
        QCOMPARE(copy(picture({2, 2})), Acceptance::Accepted);
        m_pasteboard.clearContents();
        QCOMPARE(pasted(u"image/png"_s), QByteArray());
    }

private:
    /// The server dates a claim by the latest event that it sent to the program, such as a click.
    static void letTheUserActNow()
    {
        QWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window, patienceMilliseconds));
    }

    std::optional<Acceptance> copy(const QImage &image, Secrecy secrecy = Secrecy::Open)
    {
        std::optional<Acceptance> acceptance;
        m_pasteboard.setImage(image, secrecy, [&acceptance](Outcome<Acceptance> outcome) {
            acceptance = outcome.take();
        });
        if (acceptance)
            qFatal("answered before the call returned");
        (void)comes([&acceptance] { return acceptance.has_value(); });
        return acceptance;
    }

    QtPasteboard m_pasteboard;
};

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication application(argc, argv);
    quorvel::tests::QtPasteboardX11Test test;
    return QTest::qExec(&test, argc, argv);
}
#include "QtPasteboardX11Test.moc"
