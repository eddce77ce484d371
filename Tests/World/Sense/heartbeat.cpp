// Calls the program's services on request, and answers a beat in every turn of the event loop in
// which it is asked for one. heartbeat.py controls it.

#include "Core/Support/Tasks/Task.h"
#include "Platform/Errors/LocalizedError.h"
#include "Platform/Geodesy/Coordinate.h"
#include "Platform/Location/Location.h"
#include "Tests/World/Sense/LiveServices.h"

#include <QCoreApplication>
#include <QObject>
#include <QProcessEnvironment>
#include <QSocketNotifier>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace quorvel::tests {

namespace {

using namespace Qt::StringLiterals;

constexpr Coordinate district{.latitude = 10.7769, .longitude = 106.7009};
constexpr double radiusMeters = 100;

void print(const QString &line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

template <class Value>
Task<> report(Task<Value> call, QString name)
{
    try {
        co_await call;
        print(u"ended: %1"_s.arg(name));
    } catch (const LocalizedError &error) {
        print(u"failed: %1: %2"_s.arg(name, error.errorDescription()));
    }
}

Task<Location> locate(LiveServices *services)
{
    co_await services->location.requestAuthorization();
    const auto location = co_await services->location.currentLocation();
    co_return location;
}

void askAll(LiveServices *services)
{
    const QString ssid = services->wifi.currentSSID().value_or(QString());
    spawn(report(locate(services), u"position"_s));
    spawn(report(services->places.nearbyCafes(district, radiusMeters), u"cafés"_s));
    spawn(report(services->weather.currentWeather(district), u"weather"_s));
    spawn(report(services->wifi.scanNearbyNetworks(), u"scan"_s));
    spawn(report(services->systemPasswords.password(ssid), u"password"_s));
}

void obey(LiveServices *services, const QString &order)
{
    if (order == "ask"_L1)
        askAll(services);
    else if (order.startsWith("join "_L1))
        spawn(report(services->wifi.connect(order.sliced(5), QString()), u"join"_s));
    else if (order == "beat"_L1)
        print(order);
    else
        qFatal("no such order: %s", qUtf8Printable(order));
}

/// Ends the program when there are no more orders.
void readOrders(LiveServices *services, QByteArray *rest)
{
    char buffer[256];
    const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
    if (count <= 0)
        QCoreApplication::quit();
    rest->append(buffer, std::max(count, ssize_t(0)));
    for (qsizetype end = 0; (end = rest->indexOf('\n')) >= 0; rest->remove(0, end + 1))
        obey(services, QString::fromUtf8(rest->first(end)));
}

Task<> listen(LiveServices *services, QSocketNotifier *orders)
{
    co_await untilRadioIsKnown(services);
    orders->setEnabled(true);
}

int run()
{
    LiveServices services(Endpoints::read(QProcessEnvironment::systemEnvironment()));
    QSocketNotifier orders(STDIN_FILENO, QSocketNotifier::Read);
    orders.setEnabled(false);
    QByteArray rest;
    QObject::connect(&orders, &QSocketNotifier::activated, &orders,
                     [&services, &rest] { readOrders(&services, &rest); });
    spawn(listen(&services, &orders));
    return QCoreApplication::exec();
}

} // namespace

} // namespace quorvel::tests

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    return quorvel::tests::run();
}
