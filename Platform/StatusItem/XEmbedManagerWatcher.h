#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <cstdint>

struct xcb_connection_t;

namespace quorvel {

/// Follows the tray manager of our X screen for `StatusHostWatcher`. On other window systems there
/// is never one.
class XEmbedManagerWatcher final : public QObject, private QAbstractNativeEventFilter
{
    Q_OBJECT

public:
    explicit XEmbedManagerWatcher(QObject *parent = nullptr);
    ~XEmbedManagerWatcher() override;

    [[nodiscard]] bool isPresent() const { return m_manager != 0; }

signals:
    void isPresentChanged();

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;
    void lookUp();

    xcb_connection_t *m_connection = nullptr;
    std::uint32_t m_announcement = 0; ///< The message type in which a manager announces itself.
    std::uint32_t m_selection = 0;    ///< What the tray manager of our screen owns.
    std::uint32_t m_manager = 0;      ///< The manager's window; 0 while there is none.
};

} // namespace quorvel
