#pragma once

#include "Platform/StatusItem/StatusHostGate.h"
#include "Platform/StatusItem/StatusItem.h"

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace quorvel {

class StatusHostWatcher;

/// The icon in the desktop's tray. Make it early, before anything slow: it looks for a host at
/// once, and appears in the first turns of the event loop if there is one.
class TrayStatusItem final : public StatusItem
{
    Q_OBJECT

public:
    explicit TrayStatusItem(const StatusHostLimits &limits = {}, QObject *parent = nullptr);
    ~TrayStatusItem() override;

    void setIcon(const QIcon &icon) override;
    [[nodiscard]] bool isShown() const override { return m_isShown; }
    [[nodiscard]] QRect geometry() const override;

private:
    void update();
    void makeTrayIcon();
    [[nodiscard]] std::unique_ptr<QMenu> makeMenu();

    QIcon m_icon;
    bool m_isShown = false;
    StatusHostWatcher *m_hosts;
    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_trayIcon; ///< Absent until a host is there.
};

} // namespace quorvel
