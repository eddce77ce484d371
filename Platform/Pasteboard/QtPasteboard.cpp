#include "Platform/Pasteboard/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace quorvel {

using namespace Qt::StringLiterals;

void QtPasteboard::clearContents()
{
    QGuiApplication::clipboard()->clear();
}

void QtPasteboard::setSecret(const QString &text)
{
    auto *data = new QMimeData; // The clipboard takes it.
    data->setText(text);
    // The mark that clipboard managers agree on, whatever the desktop.
    data->setData(u"x-kde-passwordManagerHint"_s, "secret");
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace quorvel
