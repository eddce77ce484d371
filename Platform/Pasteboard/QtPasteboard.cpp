#include "Platform/Pasteboard/QtPasteboard.h"

#include "Platform/Pasteboard/PictureOffer.h"
#include "Platform/X11/X11Server.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

namespace quorvel {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// A Wayland compositor that refuses an offer withdraws it within a tenth of a second.
constexpr std::chrono::milliseconds withdrawalInterval = 200ms;

QClipboard &clipboard()
{
    return *QGuiApplication::clipboard();
}

/// Whether the X server asks us when somebody pastes; nothing on another window system. The server
/// silently rejects a claim that is older than the current one.
std::optional<bool> isX11SelectionOurs()
{
    xcb_connection_t *const server = X11Server::connection();
    if (!server)
        return std::nullopt;
    const xcb_atom_t selection = X11Server::atom(server, "CLIPBOARD");
    return X11Server::isOurs(server, X11Server::selectionOwner(server, selection));
}

} // namespace

void QtPasteboard::clearContents()
{
    clipboard().clear();
}

void QtPasteboard::setText(const QString &text)
{
    clipboard().setText(text);
}

void QtPasteboard::setSecret(const QString &text)
{
    auto *data = new QMimeData; // The clipboard takes it.
    data->setText(text);
    data->setData(PictureOffer::secretMark, PictureOffer::secret);
    clipboard().setMimeData(data);
}

void QtPasteboard::setImage(const QImage &image, Secrecy secrecy, Completion<Acceptance> completion)
{
    // A compositor reports nothing to a program that never had the focus.
    const bool isInFront = QGuiApplication::focusWindow() != nullptr;
    clipboard().setMimeData(new PictureOffer(image, secrecy)); // The clipboard takes it.
    const std::optional<bool> verdict = isX11SelectionOurs();
    const auto answer = [isInFront, verdict, completion = std::move(completion)] {
        const bool isOurs = verdict.value_or(isInFront && clipboard().ownsClipboard());
        completion(
            Outcome<Acceptance>::success(isOurs ? Acceptance::Accepted : Acceptance::Refused));
    };
    QTimer::singleShot(verdict ? 0ms : withdrawalInterval, &m_open, answer);
}

} // namespace quorvel
