#include "Quorvel/TerminalModule/LiveTerminal.h"

#include "Core/Support/AppError.h"
#include "Platform/Bus/SessionBus.h"
#include "Platform/Clock/Clock.h"
#include "Platform/Files/FileManager.h"
#include "Platform/NotificationCenter/SessionNotifications.h"
#include "Quorvel/Endpoints.h"

#include <QEventLoop>
#include <QMetaObject>
#include <QProcessEnvironment>
#include <QTimer>

#include <chrono>
#include <utility>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

/// If the network service takes longer to describe the radio, the command goes on without it.
constexpr auto radioLimit = 1s;

class SetupError final : public LocalizedError
{
public:
    explicit SetupError(QString reason)
        : m_reason(std::move(reason))
    {}

    [[nodiscard]] QString errorDescription() const override { return m_reason; }

private:
    QString m_reason;
};

} // namespace

LiveTerminal::LiveTerminal()
    : m_saveObserver(NotificationCenter::standard().observe(checkInDidSave, [] {
        SessionNotifications::announce(SessionBus::connection(), checkInDidSave);
    }))
{}

CheckInRepository &LiveTerminal::repository()
{
    if (!m_environment)
        m_environment.emplace(FileManager::standard(), Clock::system());
    if (const auto &error = m_environment->setupError())
        throw SetupError(*error);
    return *m_environment->checkInRepository();
}

Services LiveTerminal::services()
{
    if (!m_services) {
        m_live.emplace(Endpoints::read(QProcessEnvironment::systemEnvironment()));
        m_services.emplace(m_live->facilities());
        waitForRadio();
    }
    return m_services->roles();
}

const FileManager &LiveTerminal::fileManager()
{
    return FileManager::standard();
}

const Clock &LiveTerminal::clock()
{
    return Clock::system();
}

NotificationCenter &LiveTerminal::notificationCenter()
{
    return NotificationCenter::standard();
}

/// A panel opens long before its user looks. A command would be finished before the network service
/// has reported the network.
void LiveTerminal::waitForRadio()
{
    QEventLoop wait;
    QTimer::singleShot(radioLimit, &wait, &QEventLoop::quit);
    // Queued: the answer may come before the loop runs.
    m_live->whenRadioIsRead(&wait, [&wait] {
        QMetaObject::invokeMethod(&wait, &QEventLoop::quit, Qt::QueuedConnection);
    });
    wait.exec();
}

} // namespace quorvel
