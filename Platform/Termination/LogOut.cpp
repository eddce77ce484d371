#include "Platform/Termination/LogOut.h"

#include <QGuiApplication>
#include <QObject>
#include <QSessionManager>

namespace quorvel {

void LogOut::agree(const QGuiApplication &application)
{
    const auto neverRestart = [](QSessionManager &manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
    };
    // Order: at once, since Qt reads the hint when the signals return.
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &application, neverRestart,
                     Qt::DirectConnection);
    QObject::connect(&application, &QGuiApplication::saveStateRequest, &application, neverRestart,
                     Qt::DirectConnection);
}

} // namespace quorvel
