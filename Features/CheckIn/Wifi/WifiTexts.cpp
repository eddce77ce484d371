#include "Features/CheckIn/Wifi/WifiTexts.h"

namespace quorvel::WifiTexts {

using namespace Qt::StringLiterals;

QString header(std::optional<qsizetype> found)
{
    return found ? QString::number(*found) + u" found"_s : u"Scanning…"_s;
}

QString detail(const WifiNetwork &network)
{
    return network.signal().label + u" · "_s + QString::number(network.rssiDBm) + u" dBm"_s;
}

QString description(bool isConnected, bool isSaved, const QString &detail)
{
    return (isConnected ? u"connected, "_s : QString()) + (isSaved ? u"saved, "_s : QString()) +
           detail;
}

QString prompt(const QString &ssid)
{
    return u"Enter the password for "_s + ssid + u" — saved to your Keychain for next time."_s;
}

QString submitTitle(bool requiresConnect)
{
    return requiresConnect ? u"Save & Connect"_s : u"Save"_s;
}

QString cannotConnect()
{
    return u"Couldn't connect — check the password."_s;
}

QString revealTitle(bool isRevealed)
{
    return isRevealed ? u"Hide password"_s : u"Show password"_s;
}

QString stored(const std::optional<QString> &revealed)
{
    // Deliberate: the same number of bullets for every password, so that its length stays unknown.
    return revealed.value_or(u"••••••••••"_s);
}

QString storedSpoken(const std::optional<QString> &revealed)
{
    return revealed.value_or(u"Password hidden"_s);
}

QString copyTitle(bool isCopied)
{
    return isCopied ? u"Copied!"_s : u"Copy"_s;
}

} // namespace quorvel::WifiTexts
