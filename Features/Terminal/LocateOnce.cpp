#include "Features/Terminal/LocateOnce.h"

#include "Models/PlaceCandidate.h"
#include "Platform/Terminal/Terminal.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace quorvel {

using namespace std::chrono_literals;

namespace {

constexpr auto progressStep = 1s;
/// Moves to the beginning of the line and clears it.
constexpr auto takeLineBack = "\r\x1b[K";

/// A line that shows that the command is waiting, and for how long.
class ProgressLine final
{
public:
    explicit ProgressLine(Terminal &terminal)
        : m_terminal(terminal)
    {
        if (!terminal.isWatched())
            return;
        show();
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_seconds += int(progressStep.count());
            show();
        });
        m_timer.start(progressStep);
    }
    Q_DISABLE_COPY_MOVE(ProgressLine)
    ~ProgressLine()
    {
        if (m_terminal.isWatched())
            m_terminal.note(takeLineBack);
    }

private:
    void show()
    {
        QByteArray line = takeLineBack + QByteArray("Finding your café…");
        if (m_seconds > 0)
            line += " " + QByteArray::number(m_seconds) + " s";
        m_terminal.note(line);
    }

    Terminal &m_terminal;
    QTimer m_timer;
    int m_seconds = 0;
};

/// Sends the input and waits for its result.
ViewState<LocatedSnapshot> answerTo(const MenuBarInput &input, MenuBarViewModel &viewModel)
{
    QEventLoop wait;
    QObject::connect(&viewModel, &MenuBarViewModel::stateChanged, &wait, [&] {
        if (!viewModel.state().isLoading())
            wait.quit();
    });
    viewModel.send(input);
    wait.exec();
    return viewModel.state();
}

} // namespace

ViewState<LocatedSnapshot> locateOnce(MenuBarViewModel &viewModel, Terminal &terminal)
{
    const ProgressLine progress(terminal);
    return answerTo(MenuBarInput::start(), viewModel);
}

ViewState<LocatedSnapshot> selectOnce(MenuBarViewModel &viewModel, const PlaceCandidate &candidate)
{
    return answerTo(MenuBarInput::selectCafe(candidate), viewModel);
}

} // namespace quorvel
