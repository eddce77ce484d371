#include "Platform/SystemSettings/DesktopSystemSettings.h"

#include "Tests/Support/Patience.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace quorvel::tests {

/// Settings programs in a folder that is the whole path. Each records how it was started.
class DesktopSystemSettingsTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_environment.insert(u"PATH"_s, m_folder->path());
        m_environment.remove(u"XDG_CURRENT_DESKTOP"_s);
    }

    void settingsOfTheRunningDesktopAreOpened_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("started");
        QTest::newRow("GNOME") << u"GNOME"_s << u"gnome-control-center location"_s;
        QTest::newRow("Ubuntu") << u"ubuntu:GNOME"_s << u"gnome-control-center location"_s;
        QTest::newRow("Cinnamon") << u"X-Cinnamon"_s << u"cinnamon-settings privacy"_s;
        QTest::newRow("KDE") << u"KDE"_s << u"systemsettings "_s;
        QTest::newRow("Xfce") << u"XFCE"_s << u"xfce4-settings-manager "_s;
        QTest::newRow("unknown") << u"river"_s << u"gnome-control-center location"_s;
    }

    void settingsOfTheRunningDesktopAreOpened()
    {
        QFETCH(QString, desktop);
        QFETCH(QString, started);
        for (const auto &program : {u"gnome-control-center"_s, u"systemsettings"_s,
                                    u"cinnamon-settings"_s, u"xfce4-settings-manager"_s})
            install(program);
        m_environment.insert(u"XDG_CURRENT_DESKTOP"_s, desktop);
        QVERIFY(openLocationPrivacy());
        QTRY_COMPARE(written(), started);
    }

    void settingsOfAnotherDesktopServeWhereTheOwnAreMissing()
    {
        install(u"lxqt-config"_s);
        m_environment.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
        QVERIFY(openLocationPrivacy());
        QTRY_COMPARE(written(), u"lxqt-config "_s);
    }

    void nothingIsOpenedWithoutASettingsProgram() { QVERIFY(!openLocationPrivacy()); }

    void unknownAddressOpensNothing()
    {
        install(u"gnome-control-center"_s);
        QVERIFY(!DesktopSystemSettings(m_environment).open(QUrl(u"https://example.org"_s)));
    }

private:
    bool openLocationPrivacy()
    {
        const QUrl address{QString(SystemSettings::locationPrivacy)};
        return DesktopSystemSettings(m_environment).open(address);
    }

    void install(const QString &program)
    {
        QFile file(m_folder->filePath(program));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("#!/bin/sh\nprintf '%s %s' \"${0##*/}\" \"$*\" >'" +
                   m_folder->filePath(u"started.new"_s).toUtf8() + "'\n/bin/mv '" +
                   m_folder->filePath(u"started.new"_s).toUtf8() + "' '" +
                   m_folder->filePath(u"started"_s).toUtf8() + "'\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    [[nodiscard]] QString written() const
    {
        QFile file(m_folder->filePath(u"started"_s));
        return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
};

} // namespace quorvel::tests

QTEST_GUILESS_MAIN(quorvel::tests::DesktopSystemSettingsTest)
#include "DesktopSystemSettingsTest.moc"
