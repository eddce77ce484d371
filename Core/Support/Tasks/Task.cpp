#include "Core/Support/Tasks/Task.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>

#include <exception>

namespace quorvel {

namespace {

Task<> endIfItThrows(Task<> task)
{
    try {
        co_await task;
    } catch (const Abandoned &) {
        // Silent on purpose: the facility is gone, and so is the caller.
    } catch (const std::exception &error) {
        qFatal("A task nobody awaits threw: %s", error.what());
    } catch (...) {
        qFatal("A task nobody awaits threw something that is no exception");
    }
}

} // namespace

const char *Abandoned::what() const noexcept
{
    return "nobody is left to answer";
}

void postToMainThread(std::function<void()> action)
{
    QMetaObject::invokeMethod(qApp, std::move(action), Qt::QueuedConnection);
}

void spawn(Task<> task)
{
    endIfItThrows(std::move(task));
}

void unwindAbandonedTasks()
{
    QCoreApplication::sendPostedEvents(qApp, QEvent::MetaCall);
}

} // namespace quorvel
