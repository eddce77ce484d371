// Prints what the program senses: one position, the cafés around it, the weather, the current
// network and the networks nearby. It asks the services of this machine or, inside the district,
// the simulated ones. It never prints a password.

#include "Core/Support/Tasks/Task.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Services/Places/PlacesRanking.h"
#include "Tests/World/Sense/LiveServices.h"

#include <QCoreApplication>
#include <QProcessEnvironment>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace quorvel::tests {

namespace {

using namespace Qt::StringLiterals;

constexpr int usageError = 2;
constexpr double radiusMeters = 100;

constexpr auto usage = "usage: sense [--join NETWORK]\n"
                       "\n"
                       "Prints one fix, the cafés around it, the weather, the current network and\n"
                       "those nearby. With --join it first joins the network, with the password\n"
                       "that it reads from its input, and remembers it in the keychain.\n";

int failures = 0;

void print(const QString &line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

void printFailure(const char *what, const LocalizedError &error)
{
    ++failures;
    print(u"%1: failed: %2"_s.arg(QString::fromUtf8(what), error.errorDescription()));
}

QString described(const PlaceCandidate &cafe)
{
    return u"  %1 m  %2 [%3] %4, %5"_s.arg(cafe.distanceMeters, 0, 'f', 2)
        .arg(cafe.name, cafe.id, cafe.category, cafe.address.value_or(u"no address"_s));
}

Task<std::optional<Coordinate>> printFix(LiveServices *services)
{
    try {
        const auto status = co_await services->location.requestAuthorization();
        print(u"authorization: %1"_s.arg(int(status)));
        const auto fix = co_await services->location.currentLocation();
        print(u"position: %1, %2, within %3 m"_s.arg(fix.latitude, 0, 'f', 4)
                  .arg(fix.longitude, 0, 'f', 4)
                  .arg(fix.accuracyMeters, 0, 'f', 0));
        co_return Coordinate{.latitude = fix.latitude, .longitude = fix.longitude};
    } catch (const LocalizedError &error) {
        printFailure("position", error);
    }
    co_return std::nullopt;
}

Task<> printCafes(LiveServices *services, Coordinate around)
{
    try {
        const auto found = co_await services->places.nearbyCafes(around, radiusMeters);
        const auto cafes = PlacesRanking::sortedWithinRadius(found, radiusMeters);
        print(u"cafés: %1"_s.arg(cafes.size()));
        for (const PlaceCandidate &cafe : cafes)
            print(described(cafe));
    } catch (const LocalizedError &error) {
        printFailure("cafés", error);
    }
}

Task<> printWeather(LiveServices *services, Coordinate at)
{
    try {
        const auto weather = co_await services->weather.currentWeather(at);
        print(u"weather: %1 °C, feels like %2 °C, code %3, by %4"_s.arg(weather.temperatureC)
                  .arg(weather.apparentTemperatureC)
                  .arg(weather.weatherCode)
                  .arg(weather.isDay ? u"day"_s : u"night"_s));
    } catch (const LocalizedError &error) {
        printFailure("weather", error);
    }
}

void printRemembered(LiveServices *services, const QString &ssid)
{
    try {
        const bool isRemembered = services->keychain.password(ssid).has_value();
        print(u"password: %1"_s.arg(isRemembered ? u"remembered"_s : u"not remembered"_s));
    } catch (const LocalizedError &error) {
        printFailure("password", error);
    }
}

void printCurrentNetwork(LiveServices *services)
{
    const auto ssid = services->wifi.currentSSID();
    const auto signal = services->wifi.currentSignal();
    print(u"network: %1"_s.arg(ssid.value_or(u"none"_s)));
    print(signal ? u"signal: %1 dBm, %2"_s.arg(signal->rssiDBm).arg(signal->label)
                 : u"signal: none"_s);
    if (ssid)
        printRemembered(services, *ssid);
}

Task<> printScan(LiveServices *services)
{
    try {
        const auto networks = co_await services->wifi.scanNearbyNetworks();
        print(u"nearby: %1"_s.arg(networks.size()));
        for (const WifiNetwork &network : networks)
            print(u"  %1 dBm  %2"_s.arg(network.rssiDBm).arg(network.ssid));
    } catch (const LocalizedError &error) {
        printFailure("nearby", error);
    }
}

Task<> join(LiveServices *services, QString ssid, QString password)
{
    try {
        co_await services->wifi.connect(ssid, password);
        print(u"join: done"_s);
        services->keychain.savePassword(password, ssid);
        const auto stored = co_await services->systemPasswords.password(ssid);
        print(u"stored by the system: %1"_s.arg(stored == password ? u"yes"_s : u"no"_s));
    } catch (const LocalizedError &error) {
        printFailure("join", error);
    }
}

Task<> sense(LiveServices *services, QString joined, QString password)
{
    co_await untilRadioIsKnown(services);
    if (!joined.isEmpty()) {
        co_await join(services, joined, password);
    }
    const auto position = co_await printFix(services);
    if (position) {
        const Coordinate here = *position;
        co_await printCafes(services, here);
        co_await printWeather(services, here);
    }
    printCurrentNetwork(services);
    co_await printScan(services);
    QCoreApplication::exit(failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
}

QString readPassword()
{
    char line[256] = {};
    if (!std::fgets(line, sizeof line, stdin))
        return {};
    return QString::fromUtf8(line).remove(u'\n');
}

int run(const QStringList &arguments)
{
    const bool isJoin = arguments.size() == 3 && arguments[1] == "--join"_L1;
    if (arguments.size() != 1 && !isJoin) {
        std::fputs(usage, stderr);
        return usageError;
    }
    try {
        LiveServices services(Endpoints::read(QProcessEnvironment::systemEnvironment()));
        const QString joined = isJoin ? arguments[2] : QString();
        const QString password = isJoin ? readPassword() : QString();
        spawn(sense(&services, joined, password));
        return QCoreApplication::exec();
    } catch (const EndpointError &error) {
        std::fprintf(stderr, "sense: %s\n", error.what());
        return usageError;
    }
}

} // namespace

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return quorvel::tests::run(QCoreApplication::arguments());
}
