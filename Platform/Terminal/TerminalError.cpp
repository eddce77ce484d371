#include "Platform/Terminal/TerminalError.h"

#include "Platform/Errors/SystemReason.h"

#include <cerrno>

namespace quorvel {

using namespace Qt::StringLiterals;

bool TerminalError::isReaderGone() const
{
    return m_code == EPIPE;
}

QString TerminalError::errorDescription() const
{
    return u"The output could not be written: %1."_s.arg(systemReason(m_code));
}

} // namespace quorvel
