#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace quorvel {

class StatusItem;

/// Asks once for the panel if no status area shows the icon after a start. Otherwise the user would
/// see nothing. Serves the program's entry.
class TraylessOpening final : public QObject
{
    Q_OBJECT

public:
    /// Longer than a desktop's bar takes to register as a host during a busy login.
    static constexpr std::chrono::seconds patience{5};

    /// The item must outlive this.
    explicit TraylessOpening(const StatusItem &item, std::chrono::milliseconds delay = patience,
                             QObject *parent = nullptr);

    /// Never asks from now on: the user came in another way, or wants nothing to open.
    void cancel() { m_patience.stop(); }

signals:
    void openRequested();

private:
    QTimer m_patience;
};

} // namespace quorvel
