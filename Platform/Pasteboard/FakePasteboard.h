#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QStringList>

namespace quorvel {

/// A pasteboard that notes what was done to it.
class FakePasteboard final : public Pasteboard
{
public:
    void clearContents() override
    {
        calls.append(QStringLiteral("clear"));
        secret.clear();
        image = QImage();
    }
    void setSecret(const QString &text) override
    {
        calls.append(QStringLiteral("secret"));
        secret = text;
    }
    void setImage(const QImage &offered, Secrecy secrecy,
                  Completion<Acceptance> completion) override
    {
        const bool isSecret = secrecy == Secrecy::Secret;
        calls.append(isSecret ? QStringLiteral("secret image") : QStringLiteral("image"));
        image = offered;
        acceptances.call(std::move(completion));
    }

    QString secret;
    QImage image;
    QStringList calls;
    /// What becomes of the images.
    FakeAnswers<Acceptance> acceptances{"FakePasteboard::setImage"};
};

} // namespace quorvel
