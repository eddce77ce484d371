#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace quorvel {

class StatusItem;

/// Asks for the panel, once, where no status area shows the icon after a start: otherwise a person
/// who starts the program there would see nothing of it. Serves the program's entry.
class TraylessOpening final : public QObject
{
    Q_OBJECT

public:
    /// Longer than a panel takes to register as a host, at a login with everything else going on.
    static constexpr std::chrono::seconds patience{5};

    /// The item outlives this.
    explicit TraylessOpening(const StatusItem &item, std::chrono::milliseconds delay = patience,
                             QObject *parent = nullptr);

    /// Asks no more: the person came in by another way, or wants nothing opened.
    void cancel() { m_patience.stop(); }

signals:
    void openRequested();

private:
    QTimer m_patience;
};

} // namespace quorvel
