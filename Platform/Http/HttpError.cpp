#include "Platform/Http/HttpError.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

HttpError HttpError::transport(QString sentence)
{
    return HttpError(Case::Transport, std::move(sentence));
}

HttpError::HttpError(Case kind)
    : HttpError(kind, {})
{}

QString HttpError::errorDescription() const
{
    switch (m_kind) {
    case Case::Transport:
        return m_sentence.isEmpty() ? u"The connection failed."_s : m_sentence;
    case Case::TimedOut:
        return u"The request timed out."_s;
    case Case::BodyTooLarge:
        return u"The answer is too large."_s;
    case Case::TooManyRedirects:
        return u"The server redirected too many times."_s;
    case Case::InsecureRedirect:
        return u"The server redirected to an address that is not secure."_s;
    case Case::Cancelled:
        return u"The request was cancelled."_s;
    }
    Q_UNREACHABLE();
}

HttpError::HttpError(Case kind, QString sentence)
    : m_kind(kind)
    , m_sentence(std::move(sentence))
{}

bool operator==(const HttpError &left, const HttpError &right)
{
    return left.m_kind == right.m_kind && left.m_sentence == right.m_sentence;
}

} // namespace quorvel
