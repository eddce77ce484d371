#pragma once

#include "Platform/Errors/FakeAnswers.h"
#include "Platform/Pasteboard/Pasteboard.h"

#include <QStringList>

#include <utility>

namespace quorvel {

/// A pasteboard that records its calls.
class FakePasteboard final : public Pasteboard
{
public:
    void clearContents() override
    {
        calls.append(QStringLiteral("clear"));
        text.clear();
        secret.clear();
        image = QImage();
    }
    void setText(const QString &offered) override
    {
        calls.append(QStringLiteral("text"));
        text = offered;
    }
    void setSecret(const QString &offered) override
    {
        calls.append(QStringLiteral("secret"));
        secret = offered;
    }
    void setImage(const QImage &offered, Secrecy secrecy,
                  Completion<Acceptance> completion) override
    {
        const bool isSecret = secrecy == Secrecy::Secret;
        calls.append(isSecret ? QStringLiteral("secret image") : QStringLiteral("image"));
        image = offered;
        acceptances.call(std::move(completion));
    }

    QString text;
    QString secret;
    QImage image;
    QStringList calls;
    /// The result of offering an image.
    FakeAnswers<Acceptance> acceptances{"FakePasteboard::setImage"};
};

} // namespace quorvel
