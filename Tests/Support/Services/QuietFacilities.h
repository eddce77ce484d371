#pragma once

#include "Core/DI/Facilities.h"
#include "Core/DI/WindowFacilities.h"
#include "Platform/Appearance/FakeAppearance.h"
#include "Platform/Clock/FakeClock.h"
#include "Platform/Files/FakeFileManager.h"
#include "Platform/Http/FakeHttpClient.h"
#include "Platform/Keychain/FakeKeychain.h"
#include "Platform/Location/FakeLocationManager.h"
#include "Platform/LoginItem/FakeLoginItem.h"
#include "Platform/NotificationCenter/NotificationCenter.h"
#include "Platform/Pasteboard/FakePasteboard.h"
#include "Platform/PointsOfInterest/FakePointsOfInterestSearch.h"
#include "Platform/SystemEvents/FakeSystemEvents.h"
#include "Platform/SystemSettings/FakeSystemSettings.h"
#include "Platform/Wifi/FakeWifiClient.h"
#include "Tests/Support/Instants.h"

#include <memory>

namespace quorvel::tests {

/// A system on which nothing happens: the user never decides about the location, so a panel waits
/// for ever. For tests of windows that do not depend on their content.
struct QuietFacilities
{
    QuietFacilities() = default;
    Q_DISABLE_COPY_MOVE(QuietFacilities)

    FakePointsOfInterestSearch map;
    FakeHttpClient http;
    FakeWifiClient radio;
    /// Each thread is given a copy.
    FakeKeychain keychain;
    FakeFileManager fileManager{{}};
    FakeClock clock{instant(QStringLiteral("2026-11-21T12:00:00Z"))};
    NotificationCenter center;
    /// What each location manager says when it is made.
    AuthorizationStatus status = AuthorizationStatus::NotDetermined;

    FakeAppearance appearance;
    FakePasteboard pasteboard;
    FakeSystemSettings systemSettings;
    FakeSystemEvents systemEvents;
    FakeLoginItem loginItem;

    Facilities facilities{
        .makeLocationManager =
            [this] {
                auto manager = std::make_unique<FakeLocationManager>();
                manager->status = status;
                return manager;
            },
        .map = map,
        .http = http,
        .weatherEndpoint = QUrl(QStringLiteral("https://weather.test")),
        .radio = radio,
        .keychain = keychain,
        .makeKeychain = [this] { return std::make_unique<FakeKeychain>(keychain); },
        .fileManager = fileManager,
        .clock = clock,
        .notificationCenter = center};
    WindowFacilities window{.appearance = appearance,
                            .pasteboard = pasteboard,
                            .systemSettings = systemSettings,
                            .systemEvents = systemEvents,
                            .loginItem = loginItem};
};

} // namespace quorvel::tests
