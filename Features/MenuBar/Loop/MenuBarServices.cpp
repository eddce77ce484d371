#include "Features/MenuBar/Loop/MenuBarServices.h"

namespace quorvel {

MenuBarServices::MenuBarServices(const MenuBarFacilities &facilities)
    : m_facilities(facilities)
    , m_location(facilities.makeLocationManager())
    , m_places(*facilities.map)
    , m_weather(*facilities.http, *facilities.clock, facilities.weatherEndpoint)
    , m_wifi(*facilities.radio)
    , m_systemPasswords(*facilities.radio)
    , m_keychain(SecItemKeychainStore::wifiService, *facilities.keychain)
{}

MenuBarViewModel::Services MenuBarServices::loop()
{
    return {.location = m_location,
            .places = m_places,
            .weather = m_weather,
            .wifi = m_wifi,
            .keychain = m_keychain};
}

MenuBarRoles MenuBarServices::roles(CheckInRepository *checkInRepository)
{
    return {.checkInRepository = checkInRepository,
            .loop = loop(),
            .systemPasswords = m_systemPasswords,
            .pasteboard = *m_facilities.pasteboard,
            .systemSettings = *m_facilities.systemSettings,
            .systemEvents = *m_facilities.systemEvents,
            .clock = *m_facilities.clock};
}

} // namespace quorvel
