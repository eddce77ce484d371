#include "Features/History/Share/VisitShare.h"

#include "Services/Share/ClipboardImageWriter.h"

#include <QObject>

#include <chrono>
#include <utility>

namespace quorvel {

VisitShare::VisitShare(Source source, Pasteboard &pasteboard, const FileManager &files,
                       std::chrono::milliseconds telling, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_pasteboard(pasteboard)
    , m_files(files)
    , m_telling(new QTimer(this))
{
    m_telling->setObjectName(QStringLiteral("telling"));
    m_telling->setSingleShot(true);
    m_telling->setTimerType(Qt::PreciseTimer);
    m_telling->setInterval(telling);
    connect(m_telling, &QTimer::timeout, this, [this] { setState(ShareState::Idle); });
}

void VisitShare::shareCard()
{
    if (m_state != ShareState::Idle)
        return;
    setState(ShareState::Working);
    postToMainThread([self = QPointer(this), slug = m_source.slug()] {
        if (self)
            spawn(run(self, slug));
    });
}

Task<> VisitShare::run(QPointer<VisitShare> self, QString slug)
{
    auto *pasteboard = &self->m_pasteboard;
    auto *files = &self->m_files;
    const Picture picture = self->m_source.picture();
    if (picture.image.isNull()) {
        self->setState(ShareState::Idle);
        co_return;
    }
    // Order: clear the pasteboard first, so that the old content is gone even if the picture is
    // refused.
    pasteboard->clearContents();
    Pending<Acceptance> pending;
    pasteboard->setImage(picture.image, picture.secrecy, pending.completion());
    const auto acceptance = co_await pending;
    auto outcome = ShareState::Copied;
    if (acceptance == Acceptance::Refused) {
        const auto url = ClipboardImageWriter::saveToDownloads(picture.image, slug, *files);
        outcome = url ? ShareState::Saved : ShareState::Idle;
    }
    if (self)
        self->tell(outcome);
}

void VisitShare::setState(ShareState state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}

void VisitShare::tell(ShareState outcome)
{
    setState(outcome);
    if (outcome != ShareState::Idle)
        m_telling->start();
}

} // namespace quorvel
