#pragma once

#include "Core/Support/Tasks/Task.h"
#include "Features/History/Share/ShareState.h"
#include "Platform/Files/FileManager.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <qqmlintegration.h>

#include <chrono>
#include <functional>

namespace quorvel {

/// What the Share button of an open visit does: the card becomes a picture on the clipboard, or,
/// only when that is refused, in the Downloads folder. Whatever fails ends in silence.
class VisitShare final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the open visit")
    Q_PROPERTY(QString label READ label NOTIFY stateChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY stateChanged)
    Q_PROPERTY(bool isSharing READ isSharing NOTIFY stateChanged)

public:
    /// The card, null when it cannot be drawn, and whether a password can be read from it.
    struct Picture
    {
        QImage image;
        Secrecy secrecy;
    };

    /// Where the visit comes from. Each is called once a share: the slug at the press, the other in
    /// a turn of its own, so that the button answers first.
    struct Source
    {
        std::function<QString()> slug;
        std::function<Picture()> picture;
    };

    static constexpr std::chrono::milliseconds tellingInterval{2200};

    /// The pasteboard and the files outlive this, and whatever it started.
    VisitShare(Source source, Pasteboard &pasteboard, const FileManager &files,
               std::chrono::milliseconds telling = tellingInterval, QObject *parent = nullptr);

    /// Ignored while another one is under way, and while its outcome is told. It goes on to its end
    /// when this is destroyed, once there is a picture.
    Q_INVOKABLE void shareCard();

    [[nodiscard]] ShareState state() const { return m_state; }
    [[nodiscard]] QString label() const { return ShareTexts::label(m_state); }
    [[nodiscard]] QString symbol() const { return ShareTexts::symbol(m_state); }
    [[nodiscard]] bool isSharing() const { return m_state == ShareState::Working; }

signals:
    void stateChanged();

private:
    [[nodiscard]] static Task<> run(QPointer<VisitShare> self, QString slug);
    void setState(ShareState state);
    void tell(ShareState outcome);

    Source m_source;
    Pasteboard &m_pasteboard;
    const FileManager &m_files;
    ShareState m_state = ShareState::Idle;
    QTimer *m_telling; ///< The child "telling".
};

} // namespace quorvel
