#include "Tests/Features/CheckIn/Wifi/WifiSectionCase.h"

#include "Core/Support/AppError.h"
#include "Tests/Support/RunTask.h"

#include <QCoreApplication>
#include <QTest>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvel::tests {

WifiSectionCase::WifiSectionCase()
    : three{{u"A"_s, -65}, {u"B"_s, -75}, {u"C"_s, -85}}
    , cannotConnect(u"Couldn't connect — check the password."_s)
{}

WifiSectionCase::~WifiSectionCase() = default;

void WifiSectionCase::init()
{
    m_section.reset();
    m_services.emplace();
    m_connected = 0;
    m_section.emplace(WifiScanSection::Inputs{.keychainStore = m_services->keychain,
                                              .systemPasswordReader = m_services->reader,
                                              .wifiService = m_services->wifi,
                                              .pasteboard = m_services->pasteboard,
                                              .onConnected = [this] { ++m_connected; },
                                              .copiedInterval = 0ms});
}

void WifiSectionCase::cleanup()
{
    m_section.reset();
}

void WifiSectionCase::settle()
{
    for (int turn = 0; turn < 12; ++turn)
        turnEventLoop();
}

void WifiSectionCase::settleBriefly()
{
    for (int turn = 0; turn < 12; ++turn)
        QCoreApplication::sendPostedEvents();
}

void WifiSectionCase::show(const Networks &networks)
{
    m_services->wifi.scans.willSucceed(networks);
    m_section->appear();
    settle();
}

void WifiSectionCase::showAgain(const Networks &networks)
{
    m_section->disappear();
    show(networks);
}

void WifiSectionCase::openSaved()
{
    m_services->keychain.passwords.insert(u"A"_s, u"stored word"_s);
    show(three);
    m_section->toggle(u"A"_s);
    QVERIFY(rows()[0].isSaved);
}

void WifiSectionCase::hold(const QString &ssid, const QString &password)
{
    m_services->wifi.joins.willHold();
    m_section->setConnectPasswordDraft(password);
    m_section->connectTo(ssid);
}

void WifiSectionCase::endJoin()
{
    m_services->wifi.joins.willSucceed({});
    m_services->wifi.joins.release();
    settle();
}

void WifiSectionCase::failJoin()
{
    m_services->wifi.joins.willFail(AppError::network(u"refused"_s));
    m_services->wifi.joins.release();
    settle();
}

void WifiSectionCase::answerFill(const std::optional<QString> &password)
{
    m_services->reader.passwords.willSucceed(password);
    m_services->reader.passwords.release();
    settle();
}

} // namespace quorvel::tests
