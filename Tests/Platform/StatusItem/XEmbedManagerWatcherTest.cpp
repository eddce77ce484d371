#include "Platform/StatusItem/XEmbedManagerWatcher.h"

#include "Tests/Support/Patience.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

using namespace quorvel;
using namespace Qt::StringLiterals;

namespace {

enum class Announced { No, Yes };

/// A tray manager without a tray, on a connection of its own.
class FakeManager
{
public:
    explicit FakeManager(Announced announced, const QByteArray &selection = "_NET_SYSTEM_TRAY_S0")
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
        , m_window(xcb_generate_id(m_connection))
        , m_selection(atom(selection))
    {
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(m_connection, m_window, m_selection, XCB_CURRENT_TIME);
        if (announced == Announced::Yes)
            announce();
        // Order: the server has done all of the above when it answers this.
        atom(selection);
    }
    ~FakeManager() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(FakeManager)

private:
    xcb_atom_t atom(const QByteArray &name)
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, std::uint16_t(name.size()), name.constData());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr), &std::free);
        return reply->atom;
    }

    void announce()
    {
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_root;
        message.type = atom("MANAGER");
        message.data.data32[1] = m_selection;
        message.data.data32[2] = m_window;
        xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char *>(&message));
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    xcb_window_t m_window;
    xcb_atom_t m_selection;
};

} // namespace

class XEmbedManagerWatcherTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::platformName(), u"xcb"_s); }

    void managerThatIsThereIsSeenAtOnce()
    {
        const FakeManager manager(Announced::No);
        const XEmbedManagerWatcher watcher;
        QVERIFY(watcher.isPresent());
    }

    void managerThatGoesIsMissed()
    {
        auto manager = std::make_unique<FakeManager>(Announced::No);
        const XEmbedManagerWatcher watcher;
        const QSignalSpy isPresentChanged(&watcher, &XEmbedManagerWatcher::isPresentChanged);
        manager.reset();
        QTRY_VERIFY(!watcher.isPresent());
        QCOMPARE(isPresentChanged.size(), 1);
    }

    void managerThatComesLaterIsSeenAndMissedWhenItGoes()
    {
        const XEmbedManagerWatcher watcher;
        const QSignalSpy isPresentChanged(&watcher, &XEmbedManagerWatcher::isPresentChanged);
        QVERIFY(!watcher.isPresent());
        auto manager = std::make_unique<FakeManager>(Announced::Yes);
        QTRY_VERIFY(watcher.isPresent());
        QCOMPARE(isPresentChanged.size(), 1);
        manager.reset();
        QTRY_VERIFY(!watcher.isPresent());
        QCOMPARE(isPresentChanged.size(), 2);
    }

    void successorIsFollowedToItsEnd()
    {
        auto former = std::make_unique<FakeManager>(Announced::No);
        const XEmbedManagerWatcher watcher;
        const QSignalSpy isPresentChanged(&watcher, &XEmbedManagerWatcher::isPresentChanged);
        auto successor = std::make_unique<FakeManager>(Announced::No);
        former.reset();
        successor.reset();
        QTRY_VERIFY(!watcher.isPresent());
        QCOMPARE(isPresentChanged.size(), 1);
    }

    void managerOfAnotherKindIsIgnored()
    {
        const XEmbedManagerWatcher watcher;
        const QSignalSpy isPresentChanged(&watcher, &XEmbedManagerWatcher::isPresentChanged);
        const FakeManager other(Announced::Yes, "_NET_SYSTEM_TRAY_S1");
        const FakeManager manager(Announced::Yes);
        QTRY_VERIFY(watcher.isPresent());
        QCOMPARE(isPresentChanged.size(), 1);
    }
};

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication application(argc, argv);
    XEmbedManagerWatcherTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "XEmbedManagerWatcherTest.moc"
