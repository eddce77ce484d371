#include "Platform/Wifi/WifiError.h"

#include <utility>

namespace quorvel {

using namespace Qt::StringLiterals;

WifiError::WifiError(Code code, QString reason)
    : m_code(code)
    , m_reason(std::move(reason))
{}

QString WifiError::errorDescription() const
{
    switch (m_code) {
    case Code::NoInterface:
        return u"No WiFi interface available"_s;
    case Code::RadioOff:
        return u"WiFi is turned off"_s;
    case Code::NotAllowed:
        return u"The system does not allow this use of WiFi"_s;
    case Code::TimedOut:
        return u"WiFi took too long to answer"_s;
    case Code::NotFound:
        return u"The network is no longer nearby"_s;
    case Code::WrongPassword:
        return u"The password of the network is wrong"_s;
    case Code::EnterpriseNetwork:
        return u"The network needs a user name, which Quorvel cannot give"_s;
    case Code::UnsupportedSecurity:
        return u"The network is protected in a way that is no longer supported"_s;
    case Code::NoAddress:
        return u"The network gave this computer no address"_s;
    case Code::Interrupted:
        return u"The connection was ended before it was made"_s;
    case Code::ServiceGone:
        return u"The network service is not running"_s;
    case Code::Failed:
        return u"WiFi failed: "_s + m_reason;
    }
    Q_UNREACHABLE();
}

} // namespace quorvel
