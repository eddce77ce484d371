#include "Core/DI/LoopServices.h"

#include "Core/DI/Facilities.h"

namespace quorvel {

LoopServices::LoopServices(const Facilities &facilities)
    : m_location(facilities.makeLocationManager())
    , m_places(facilities.map)
    , m_weather(facilities.http, facilities.clock, facilities.weatherEndpoint)
    , m_wifi(facilities.radio)
    , m_systemPasswords(facilities.radio)
    , m_keychain(SecItemKeychainStore::wifiService, facilities.keychain)
{}

Services LoopServices::roles()
{
    return {.location = m_location,
            .places = m_places,
            .weather = m_weather,
            .wifi = m_wifi,
            .systemPasswords = m_systemPasswords,
            .keychain = m_keychain};
}

} // namespace quorvel
