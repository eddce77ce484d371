#include "Platform/Terminal/TerminalError.h"

#include <cerrno>
#include <system_error>

namespace quorvel {

using namespace Qt::StringLiterals;

bool TerminalError::isReaderGone() const
{
    return m_code == EPIPE;
}

QString TerminalError::errorDescription() const
{
    return u"The output could not be written: %1."_s.arg(
        QString::fromStdString(std::generic_category().message(m_code)));
}

} // namespace quorvel
