#pragma once

#include <QObject>

namespace quorvel {

/// Turns the system's requests to end (SIGTERM, SIGINT, SIGHUP) into a signal on the main thread,
/// so that the program ends as with "Quit Quorvel". One per process.
class TerminationListener final : public QObject
{
    Q_OBJECT

public:
    explicit TerminationListener(QObject *parent = nullptr);
    ~TerminationListener() override;

signals:
    void terminationRequested();

private:
    void drain();

    int m_event;
};

} // namespace quorvel
