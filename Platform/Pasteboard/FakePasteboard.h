#pragma once

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
    }
    void setSecret(const QString &text) override
    {
        calls.append(QStringLiteral("secret"));
        secret = text;
    }

    QString secret;
    QStringList calls;
};

} // namespace quorvel
