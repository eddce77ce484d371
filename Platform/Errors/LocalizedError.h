#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace quorvel {

/// The base of every failure that can reach the user. It has one sentence to show.
class LocalizedError : public std::exception
{
public:
    /// The sentence for the user.
    [[nodiscard]] virtual QString errorDescription() const = 0;

    /// The same sentence in UTF-8, for code that knows only `std::exception`.
    [[nodiscard]] const char *what() const noexcept final;

private:
    mutable QByteArray m_utf8;
};

inline const char *LocalizedError::what() const noexcept
{
    m_utf8 = errorDescription().toUtf8();
    return m_utf8.constData();
}

/// The error's sentence, or `fallback` when that is empty. Empty without an error.
[[nodiscard]] inline QString sentenceOf(const LocalizedError *error, const QString &fallback)
{
    if (!error)
        return {};
    const QString sentence = error->errorDescription();
    return sentence.isEmpty() ? fallback : sentence;
}

} // namespace quorvel
