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

/// The action of an open visit's Share button: the card goes to the clipboard as a picture or, if
/// that is refused, into the Downloads folder. Failures are silent.
class VisitShare final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with the open visit")
    Q_PROPERTY(QString label READ label NOTIFY stateChanged)
    Q_PROPERTY(QString symbol READ symbol NOTIFY stateChanged)
    Q_PROPERTY(bool isSharing READ isSharing NOTIFY stateChanged)

public:
    /// The card, null if it cannot be drawn, and whether it shows a password.
    struct Picture
    {
        QImage image;
        Secrecy secrecy;
    };

    /// The sources of the visit's data. Each is called once per share: the slug at the press, the
    /// card in a later turn, so that the button reacts first.
    struct Source
    {
        std::function<QString()> slug;
        std::function<Picture()> picture;
    };

    static constexpr std::chrono::milliseconds tellingInterval{2200};

    /// The pasteboard and the files must outlive this and everything that it started.
    VisitShare(Source source, Pasteboard &pasteboard, const FileManager &files,
               std::chrono::milliseconds telling = tellingInterval, QObject *parent = nullptr);

    /// Ignored while a share runs and while its result is shown. Once there is a picture, it
    /// finishes even if this is destroyed.
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
