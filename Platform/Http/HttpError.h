#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A request failed: there was no answer, or none that can be kept.
class HttpError final : public LocalizedError
{
public:
    enum class Case {
        /// No connection, no trust, or an incomplete answer. The text is the transport's.
        Transport,
        TimedOut,
        BodyTooLarge,
        TooManyRedirects,
        /// A redirect from an encrypted address to an unencrypted one.
        InsecureRedirect,
        /// The client was destroyed before the answer came.
        Cancelled
    };

    [[nodiscard]] static HttpError transport(QString sentence);
    /// For the other cases, which have their own sentences.
    explicit HttpError(Case kind);

    [[nodiscard]] Case kind() const { return m_kind; }
    [[nodiscard]] QString errorDescription() const override;

    friend bool operator==(const HttpError &left, const HttpError &right);

private:
    HttpError(Case kind, QString sentence);

    Case m_kind;
    QString m_sentence;
};

} // namespace quorvel
