#pragma once

#include "Core/Support/Task.h"
#include "Features/History/ShareState.h"
#include "Platform/Files/FileManager.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QPointer>
#include <QTimer>

namespace quorvel {

/// What the Share button of an open visit does: the card becomes a picture on the clipboard, or,
/// only when that is refused, in the Downloads folder. Whatever fails ends in silence.
class VisitShare final : public QObject
{
    Q_OBJECT

public:
    /// The card of a visit, as it is when the button is pressed.
    struct Card
    {
        /// Null when there is none. Called in a turn of the event loop of its own.
        std::function<QImage()> render;
        Secrecy secrecy;
        QString slug;
    };

    static constexpr std::chrono::milliseconds tellingInterval{2200};

    /// The card is asked for once a share. The pasteboard and the files outlive the tasks.
    VisitShare(std::function<Card()> card, Pasteboard &pasteboard, const FileManager &files,
               std::chrono::milliseconds telling = tellingInterval, QObject *parent = nullptr);

    /// Ignored while another one is under way, and while its outcome is told. It goes on to its end
    /// when this is destroyed, once there is a picture.
    void share();

    [[nodiscard]] ShareState state() const { return m_state; }

signals:
    void stateChanged();

private:
    [[nodiscard]] static Task<> run(QPointer<VisitShare> self, Card card);
    void setState(ShareState state);
    void tell(ShareState outcome);

    std::function<Card()> m_card;
    Pasteboard &m_pasteboard;
    const FileManager &m_files;
    ShareState m_state = ShareState::Idle;
    QTimer *m_telling; ///< The child "telling".
};

} // namespace quorvel
