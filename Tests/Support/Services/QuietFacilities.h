#pragma once

#include "Features/MenuBar/Loop/MenuBarFacilities.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Http/FakeHttpClient.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/Location/FakeLocationManager.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Platform/PointsOfInterest/FakePointsOfInterestSearch.h"
#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Platform/SystemSettings/FakeSystemSettings.h"
#include "Platform/Wifi/FakeWifiClient.h"

namespace quorvel::tests {

/// A system on which nothing happens: the user never decides about the location, so a panel waits
/// for ever. For tests of windows that do not depend on their content.
struct QuietFacilities
{
    [[nodiscard]] MenuBarFacilities menuBar()
    {
        return {.makeLocationManager = [] { return std::make_unique<FakeLocationManager>(); },
                .map = &map,
                .http = &http,
                .weatherEndpoint = QUrl(QStringLiteral("https://weather.test")),
                .radio = &radio,
                .keychain = &keychain,
                .makeKeychain = [] { return std::make_unique<FakeKeychain>(); },
                .pasteboard = &pasteboard,
                .systemSettings = &systemSettings,
                .systemEvents = &systemEvents,
                .clock = &clock};
    }

    FakePointsOfInterestSearch map;
    FakeHttpClient http;
    FakeWifiClient radio;
    FakeKeychain keychain;
    FakePasteboard pasteboard;
    FakeSystemSettings systemSettings;
    FakeSystemEvents systemEvents;
    FakeClock clock{Instant()};
};

} // namespace quorvel::tests
