#pragma once

#include "Platform/Errors/LocalizedError.h"

namespace quorvel {

/// A request that got no answer, or none that may be kept.
class HttpError final : public LocalizedError
{
public:
    enum class Case {
        /// No connection, no trust, or an answer cut short, in the transport's own words.
        Transport,
        TimedOut,
        BodyTooLarge,
        TooManyRedirects,
        /// A redirect from an encrypted address to one that is not.
        InsecureRedirect,
        /// The client went away before the answer came.
        Cancelled
    };

    [[nodiscard]] static HttpError transport(QString sentence);
    /// One of the other cases, which have a sentence of their own.
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
