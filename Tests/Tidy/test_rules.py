"""Every rule is tried on trees that break it, and on trees that do not."""

import unittest

from source import Tree
from tidy import RULES, findings_of

HEADER = "#pragma once\n\nnamespace quorvel {\n\nclass Cup\n{\n};\n\n}\n"
FACILITY = {
    "Platform/Radio/Radio.h":
        "class Radio\n{\n    static const Radio &standard();\n"
        "    static std::unique_ptr<Radio> makeDetached();\n};\n",
    "Platform/Radio/LongWaveRadio.h": "class LongWaveRadio final : public Radio\n{\n};\n",
}
QML = "pragma ComponentBehavior: Bound\nimport QtQuick\n"

# For each rule: trees with exactly one finding, then trees with none.
SAMPLES = {
    "includes_stay_below": (
        [
            {"Models/Cafe.h": '#include "Core/Support/AppError.h"\n'},
            {"Platform/Files/FileManager.h": '#include "Models/Cafe.h"\n'},
            {"Core/Support/Tasks/Task.h": '#include "Core/DI/AppEnvironment.h"\n'},
            {"Services/Wifi/Wifi.cpp": '#include "Features/MenuBar/MenuBarRoot.h"\n'},
            {"Features/MenuBar/Label.cpp": '#include "Quorvel/QuorvelApp.h"\n'},
            {"Services/Wifi/Wifi.cpp": '#include "Core/DI/Facilities.h"\n'},
            {"Features/MenuBar/Loop/Loop.cpp": '#include "Features/CheckIn/Form.h"\n'},
            {"Features/MenuBar/Loop/Loop.cpp": '#include "Features/MenuBar/Icon/Icon.h"\n'},
            {"Features/MenuBar/Icon/Icon.cpp": '#include "Features/MenuBar/Loop/Loop.h"\n'},
            {"Features/CheckIn/Form.cpp": '#include "Features/MenuBar/Panel/Panel.h"\n'},
            {"Features/CheckIn/Form.cpp": '#include "Features/History/List.h"\n'},
            {"Features/MenuBar/Panel/Panel.cpp": '#include "Features/History/List.h"\n'},
            {"Features/MenuBar/Panel/Panel.cpp": '#include "Features/Terminal/Commands.h"\n'},
            {"Features/History/List.cpp": '#include "Features/CheckIn/Form.h"\n'},
            {"Features/Terminal/Commands.cpp": '#include "Features/MenuBar/Panel/Panel.h"\n'},
            {"Features/CheckIn/Form.cpp": '#include "Features/Weather/Weather.h"\n'},
        ],
        [
            {"Models/Cafe.h": '#include "Platform/Clock/Clock.h"\n#include <QString>\n'},
            {"Core/DI/AppEnvironment.h": '#include "Core/Persistence/Repository.h"\n'},
            {"Core/DI/LoopServices.h": '#include "Services/Wifi/WifiModels.h"\n'},
            {"Features/CheckIn/Form.cpp": '#include "Features/MenuBar/Loop/Loop.h"\n'},
            {"Features/MenuBar/Panel/Panel.cpp": '#include "Features/CheckIn/Form.h"\n'},
            {"Features/MenuBar/Panel/Panel.cpp": '#include "Features/MenuBar/Loop/Loop.h"\n'},
            {"Features/Terminal/Commands.cpp": '#include "Features/CheckIn/Form.h"\n'},
            {"Features/Terminal/Commands.cpp": '#include "Features/History/List.h"\n'},
            {"_Probes/Probe.cpp": '#include "Features/History/List.h"\n'},
            {"Quorvel/main.cpp": '#include "Features/MenuBar/MenuBarRoot.h"\n'},
            {"Models/Cafe.h": '// #include "Core/Support/AppError.h"\n'},
        ],
    ),
    "platform_headers_stay_in_platform": (
        [
            {"Core/Support/Tasks/Task.h": f"#include <{header}>\n"}
            for header in ("QDBusConnection", "QtDBus/QDBusMessage", "QNetworkAccessManager",
                           "QProcess", "QClipboard", "QSystemTrayIcon", "SQLiteCpp/Database.h",
                           "sqlite3.h", "libsecret/secret.h", "gio/gio.h", "glib.h",
                           "qrcodegen/qrcodegen.hpp", "xcb/xcb.h", "QLocalServer",
                           "unistd.h", "sys/stat.h")
        ],
        [
            {"Platform/Wifi/Wifi.cpp": "#include <QDBusConnection>\n#include <unistd.h>\n"},
            {"Tests/Core/CrashTest.cpp": "#include <QProcess>\n"},
            {"Core/Support/Tasks/Task.h": "#include <QObject>\n#include <chrono>\n"},
            {"Quorvel/main.cpp": "#include <unistd.h>\n"},
        ],
    ),
    "live_backends_are_picked_in_one_place": (
        [
            {**FACILITY, "Features/History/List.cpp": "LongWaveRadio radio;\n"},
            {**FACILITY, "Core/DI/AppEnvironment.cpp": "make<LongWaveRadio>();\n"},
            {**FACILITY, "Features/History/List.cpp": "listen(Radio::standard());\n"},
            {**FACILITY, "Services/Music/Music.cpp": "auto radio = Radio::makeDetached();\n"},
            {"Features/History/List.cpp": "auto bus = SessionBus::connection();\n"},
            {"Core/DI/Start.cpp": "read(QProcessEnvironment::systemEnvironment());\n"},
        ],
        [
            {**FACILITY, "Quorvel/QuorvelApp.cpp": "LongWaveRadio radio;\n"},
            {**FACILITY, "Quorvel/QuorvelApp.cpp": "listen(Radio::standard());\n"},
            {**FACILITY, "Tests/RadioTest.cpp": "listen(Radio::standard());\n"},
            {**FACILITY, "Features/History/List.cpp": "Radio &radio; // a LongWaveRadio\n"},
            {**FACILITY, "Features/History/List.cpp": "Shelf::standard();\n"},
        ],
    ),
    "defaults_pick_no_live_backend": (
        [
            {**FACILITY, "Platform/Music/Music.h": "Music(Radio &radio = Radio::standard());\n"},
            {**FACILITY, "Quorvel/Music.h": "void play(Radio & = Radio::standard(),\n int);\n"},
            {**FACILITY, "Quorvel/Music.h": "Music(Maker make = &Radio::makeDetached);\n"},
            {"Platform/Music/Music.h": "Music(Bus bus = SystemBus::connection());\n"},
        ],
        [
            {**FACILITY, "Quorvel/Music.cpp": "auto &radio = Radio::standard();\n"},
            {**FACILITY, "Quorvel/Music.cpp": "Music{.radio = Radio::standard(), .on = true};\n"},
            {**FACILITY, "Platform/Music/Music.h": "Music(Shelf shelf = Shelf::standard());\n"},
            {**FACILITY, "Tests/RadioTest.cpp": "void f(Radio & = Radio::standard());\n"},
        ],
    ),
    "fakes_stay_out_of_the_product": (
        [{"Core/Support/Tasks/Task.cpp": '#include "Platform/Clock/FakeClock.h"\n'}],
        [
            {"Tests/Core/TaskTest.cpp": '#include "Platform/Clock/FakeClock.h"\n'},
            {"Platform/Clock/FakeClock.cpp": '#include "Platform/Clock/FakeClock.h"\n'},
        ],
    ),
    "coroutine_library_has_one_door": (
        [{"Core/DI/Wait.h": "#include <QCoroTask>\n"}, {"Core/DI/Wait.cpp": "qCoro(reply);\n"}],
        [
            {"Core/Support/Tasks/Task.h": "#include <QCoroTask>\n"},
            {"Core/Support/CMakeLists.txt": "target_link_libraries(task QCoro6::Core)\n"},
        ],
    ),
    "headers_have_one_shape": (
        [
            {"Models/Cup.h": "// A cup.\n" + HEADER},
            {"Models/Cup.h": HEADER + "using namespace Qt::StringLiterals;\n"},
            {"Models/Cup.h": "#pragma once\nclass Cup;\n"},
            {"Models/Mug.h": HEADER},
            {"Models/MugModels.h": HEADER},
        ],
        [
            {"Models/Cup.h": HEADER},
            {"Models/CuModels.h": HEADER},
            {"Models/Cup.cpp": "using namespace Qt::StringLiterals;\n"},
            {"Models/Cup.h": HEADER.replace("{\n}", "{\n    using QObject::QObject;\n}")},
        ],
    ),
    "includes_name_files_from_the_root": (
        [
            {"Models/Cup.cpp": '#include "Models/Mug.h"\n'},
            {"Models/Cup.h": HEADER, "Models/Mug.cpp": '#include "Cup.h"\n'},
            {"Models/Cup.h": HEADER, "Models/Cup.cpp": "#include <QObject>\n"},
        ],
        [
            {"Models/Cup.h": HEADER, "Models/Cup.cpp": '#include "Models/Cup.h"\n'},
            {"Tests/Models/CupTest.cpp": '#include "CupTest.moc"\n'},
        ],
    ),
    "files_include_what_they_name": (
        [
            {"Models/Cup.h": f"{named}\n"}
            for named in ("std::optional<int> sugar;", "std::ranges::sort(cups);",
                          "using namespace std::chrono_literals;", "std::unheard_of<int> cup;",
                          "QString name;", "QUrl url; QUrl other;", "QVariantMap cups;")
        ] + [
            {"Models/Cup.cpp": 'auto name = u"cup"_s;\n'},
            {"Models/Cup.cpp": "#include <QString>\nQUrl url;\n"},
            {"Tests/CupTest.cpp": "QVERIFY(cup);\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "Cup cup;\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "class Cup;\n",
             "Models/Tray.cpp": "Cup cup;\n"},
            {"Models/Tray.h": "#include <vector>\n",
             "Models/Bar.cpp": '#include "Models/Tray.h"\nstd::vector<int> cups;\n'},
        ],
        [
            {"Models/Cup.h": "#include <optional>\nstd::optional<int> sugar;\n"},
            {"Models/Cup.h": "#include <QtCore/QUrl>\nQUrl url;\nQString name;\n"},
            {"Models/Cup.h": "#include <vector>\nstd::size_t count = std::size(cups);\n"},
            {"Models/Cup.h": "class QUrl;\nvoid fill(const QUrl &from);\n"},
            {"Models/Cup.h": "#include <QVariant>\nQVariantMap cups;\n"},
            {"Models/Cup.h": "#include <QVariantMap>\nQVariantMap cups;\n"},
            {"Models/Cup.h": 'log("QUrl std::optional"); // QUrl\n'},
            {"Models/Cup.h": "#include <vector>\n", "Models/Cup.cpp": "std::vector<int> cups;\n"},
            {"Models/Cup.h": "#include <vector>\n", "Models/Cup+Tea.cpp": "std::vector<int> v;\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": '#include "Models/Cup.h"\nCup cup;\n'},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "class Cup;\nCup *cup;\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "enum class Kind { Tea, Cup };\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "Kind kind = Kind::Cup;\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": '#include "Models/Cup.h"\n',
             "Models/Bar.cpp": '#include "Models/Tray.h"\nCup cup;\n'},
        ],
    ),
    "files_use_what_they_include": (
        [
            {"Models/Cup.h": "#include <optional>\nint sugar;\n"},
            {"Models/Cup.h": "#include <vector>\nvector cups;\n"},
            {"Models/Cup.h": HEADER, "Models/Tray.h": '#include "Models/Cup.h"\n'},
        ],
        [
            {"Models/Cup.h": "#include <optional>\nauto sugar = std::nullopt;\n"},
            {"Models/Cup.h": "#include <cmath>\nauto sugar = floor(2.5);\n"},
            {"Models/Cup.h": "#include <csignal>\nstop(SIGTERM);\n"},
            {"Models/Cup.h": "#include <QUrl>\n#include <unistd.h>\n"},
            {"Models/Cup.h": "struct Cup\n{\n};\n", "Models/Cup.cpp": '#include "Models/Cup.h"\n'},
            {"Models/Cup.h": "struct Sugar\n{\n};\n",
             "Models/Tray.h": '#include "Models/Cup.h"\nSugar sugar;\n'},
            {"Models/Cup.h": "int sugarOf(int cup);\n",
             "Models/Tray.h": '#include "Models/Cup.h"\nint sugar = sugarOf(1);\n'},
            {"Models/Cup.h": HEADER, "Models/Tray.h": "class Cup;\nclass Tray;\n",
             "Models/Bar.cpp": '#include "Models/Cup.h"\n#include "Models/Tray.h"\nTray tray;\n'},
        ],
    ),
    "product_has_one_build": (
        [
            {"Models/Cup.cpp": "#ifdef Q_OS_LINUX\n"},
            {"Models/Cup.cpp": "#if defined(TESTING)\n"},
        ],
        [{"Models/Cup.cpp": "if (cup) {\n}\n"}, {"Tests/A.cpp": "#ifdef Q_OS_LINUX\n"}],
    ),
    "borrowed_names_are_used": (
        [
            {"Models/Cup.cpp": "using std::chrono::seconds;\n"},
            {"Models/Cup.cpp": "using std::byte;\nstd::byte drop;\n"},
        ],
        [
            {"Models/Cup.cpp": "using std::chrono::seconds;\nseconds pause;\n"},
            {"Models/Cup.cpp": "using namespace Qt::StringLiterals;\n"},
            {"Models/Cup.h": HEADER.replace("{\n}", "{\n    using QObject::QObject;\n}")},
        ],
    ),
    "looks_live_in_the_design_system": (
        [
            {"Features/History/Day.qml": f"{QML}Item {{ {look} }}\n"}
            for look in ('color: "#e08a3c"', "tint: Qt.rgba(1, 0, 0, 1)", 'color: "white"',
                         "font.pixelSize: 12", "font { bold: true }")
        ] + [
            {"Quorvel/Icon.cpp": "painter.setBrush(QColor(224, 138, 60));\n"},
            {"Quorvel/Icon.cpp": "painter.setPen(Qt::white);\n"},
        ],
        [
            {"Core/DesignSystem/Theme.qml": f'{QML}Item {{ property color dot: "#e08a3c" }}\n'},
            {"Features/History/Day.qml": f"{QML}Item {{ color: Theme.ink }}\n"},
            {"Features/History/Day.qml": f'{QML}Item {{ color: "transparent" }} // was "#fff"\n'},
            {"Quorvel/Icon.cpp": "image.fill(Qt::transparent);\n"},
        ],
    ),
    "awaits_stand_alone": (
        [
            {"Core/Cup.cpp": f"Task<> pour() {{ {statement}; }}\n"}
            for statement in ("return co_await cup", "auto x = a ? co_await b : c",
                              "auto x = co_await fill(Cup{1})", "auto x = co_await cups[0]",
                              "use(co_await cup)", "co_await fill(next())")
        ] + [{"Core/Cup.cpp": "QCoro::waitFor(task);\n"}],
        [
            {"Core/Cup.cpp": f"Task<> pour() {{ {statement}; }}\n"}
            for statement in ("co_await cup", "auto x = co_await cup", "const auto x = co_await c",
                              "auto x = co_await m_bar->fill(cup, amount)", "co_await fill()",
                              'log("co_await (")')
        ] + [{"Core/Cup.cpp": "if (empty) {\n    co_await fill(cup);\n}\n"},
             {"Core/Cup.h": "auto operator co_await() { return Awaiter(m_cup); }\n"}],
    ),
    "product_has_no_locks": (
        [{"Core/Cup.h": "std::mutex m_mutex;\n"}, {"Core/Cup.h": "QMutex m_mutex;\n"}],
        [{"Tests/CupTest.cpp": "QMutex mutex;\n"}, {"Core/Cup.h": "// no QMutex\n"}],
    ),
    "product_knows_no_test": (
        [{"Core/Cup.h": "friend class CupTest;\n"}],
        [{"Core/Cup.h": "friend class Saucer;\n"}],
    ),
    "tests_do_not_sleep": (
        [{"Tests/CupTest.cpp": call} for call in ("QTest::qWait(10);\n", "QThread::msleep(1);\n",
                                                   "std::this_thread::sleep_for(1s);\n")]
        + [{"Tests/cup_test.py": text} for text in ("import time\ntime.sleep(1)\n",
                                                    "from time import sleep\nsleep(1)\n")],
        [{"Tests/CupTest.cpp": "QTRY_VERIFY(cup.isFull());\n"},
         {"Tests/cup_test.py": "# Not time.sleep(1)\nwait_for(cup.is_full)\n"},
         {"Tests/Support/Session/patience.py": "time.sleep(POLL_SECONDS)\n"},
         {"Benchmarks/cup_benchmark.py": "time.sleep(1)\n"}],
    ),
    "tests_measure_no_time": (
        [{"Tests/CupTest.cpp": text} for text in ("QElapsedTimer timer;\n",
                                                  "auto now = std::chrono::steady_clock::now();\n")]
        + [{"Tests/cup_test.py": "begun = time.monotonic()\n"},
           {"Tests/cup_test.py": "from time import perf_counter\n"}],
        [{"Tests/CupTest.cpp": "const Instant now = m_clock.now();\n"},
         {"Tests/cup_test.py": "today = time.strftime('%Y')\nspent = time.process_time()\n"},
         {"Tests/Mutants/cups.py": "begun = time.monotonic()\n"},
         {"Benchmarks/Cup.cpp": "QElapsedTimer timer;\n"}],
    ),
    "tests_are_patient": (
        [{"Tests/CupTest.cpp": text} for text in (
            "QTRY_VERIFY(cup.isFull());\n", "QTRY_COMPARE(cups, 1);\n",
            "QVERIFY(QTest::qWaitFor(isFull));\n", "QVERIFY(filled.wait());\n",
            "QVERIFY(filled.wait(20'000));\n",
            "QVERIFY(QTest::qWaitForWindowActive(window()));\n")],
        [{"Tests/CupTest.cpp": '#include "Tests/Support/Patience.h"\nQTRY_VERIFY(cup.isFull());\n'},
         {"Tests/CupTest.cpp": "QVERIFY(filled.wait(patienceMilliseconds));\n"},
         {"Tests/CupTest.cpp":
          "QVERIFY(QTest::qWaitForWindowActive(&window(), patienceMilliseconds));\n"}],
    ),
    "qml_binds_its_components": (
        [
            {"Features/Cup.qml": "import QtQuick\nItem {\n}\n"},
            {"Features/Cup.qml": QML + "Item { property var cup }\n"},
        ],
        [{"Features/Cup.qml": QML + "Item { property int cups }\n"}],
    ),
    "qml_data_is_plain_text": (
        [
            {"Features/Cup.qml": QML + "Text {\n}\n"},
            {"Features/Cup.qml": QML + "Label {\n}\n"},
            {"Features/Cup.qml": QML + "Body { textFormat: 3 }\n"},
        ],
        [
            {"Core/DesignSystem/Body.qml": QML + "Text { textFormat: Text.PlainText }\n"},
            {"Features/Cup.qml": QML + "BodyText {\n}\n"},
        ],
    ),
    "files_stay_readable": (
        [
            {"Core/Cup.h": 151 * "\n"},
            {"Core/Cup.cpp": 301 * "\n"},
            {"Features/Cup.qml": 151 * "\n"},
        ],
        [
            {"Core/Cup.h": 150 * "\n"},
            {"Core/Cup.cpp": 300 * "\n"},
            {"Tests/CupTest.cpp": 301 * "\n"},
        ],
    ),
    "lines_fit": (
        [{"dev": 101 * "x"}, {"Core/Cup.h": "\tint cups;"}, {"README.md": "cups \n"}],
        [{"dev": 100 * "é"}, {"README.md": 101 * "x"}],
    ),
    "files_end_in_one_newline": (
        [{"dev": "exit"}, {"dev": "exit\n\n"}],
        [{"dev": "exit\n"}, {"Core/CMakeLists.txt": ""}],
    ),
    "nothing_is_left_for_later": (
        [{"Core/Cup.h": "// TO" + "DO: pour\n"}, {"dev": "# FIX" + "ME\n"}],
        [{"Core/Cup.h": "// a todo list is what the user keeps\n"}],
    ),
    "the_tree_speaks_for_itself": (
        [
            {"Core/Cup.h": "// as Part 5." + "1 says\n"},
            {"Core/Cup.h": "// see the sp" + "ec\n"},
            {"README.md": "spec." + "md\n"},
            {"README.md": "for issue " + "2\n"},
        ],
        [{"README.md": "part of the tray; Part one\n"}],
    ),
    "folders_have_names_of_their_own": (
        [{"Core/Utils/Cup.h": ""}, {"Tests/Helpers/Cup.h": ""}],
        [{"Core/Support/Cup.h": ""}],
    ),
    "the_map_is_true": (
        [
            {"ARCHITECTURE.md": "`Core/Cup/` holds the cup\n"},
            {"ARCHITECTURE.md": 151 * "\n"},
        ],
        [
            {"ARCHITECTURE.md": "`Core/Cup/`, `Core/Cup/Cup.h`, `a`\n", "Core/Cup/Cup.h": ""},
            {"README.md": "`Core/Cup/` holds the cup\n"},
        ],
    ),
    "the_map_is_complete": (
        [
            {"ARCHITECTURE.md": "the rooms\n", "Core/Cup/Cup.h": ""},
            {"ARCHITECTURE.md": "`Platform/Cupboard/`\n", "Platform/Cup/Cup.h": ""},
            {"ARCHITECTURE.md": "Services/Cup/\n", "Services/Cup/Cup.h": ""},
        ],
        [
            {"ARCHITECTURE.md": "`Core/Cup/`\n", "Core/Cup/Cup.h": "", "Core/CMakeLists.txt": ""},
            {"ARCHITECTURE.md": "`Features/Cup/Cup.h`\n", "Features/Cup/Cup.h": ""},
            {"ARCHITECTURE.md": "`Core/Cup/`\n", "Core/Cup/Small/Cup.h": ""},
            {"ARCHITECTURE.md": "the rooms\n", "Tests/Cup/Cup.h": "", "Docs/Cup/cup.md": ""},
        ],
    ),
    "links_lead_somewhere": (
        [
            {"README.md": "[the cup](Docs/cup.md)\n"},
            {"Docs/cup.md": "[the tree](README.md)\n", "README.md": ""},
            {"README.md": "[hot](Docs/cup.md#hot)\n", "Docs/cup.md": "# Cold\n"},
            {"README.md": "[hot](#hot)\n"},
            {"README.md": '<img src="cup.svg">\n'},
            {"README.md": '<source srcset="Docs/cup.svg">\n', "cup.svg": ""},
        ],
        [
            {"README.md": "[the cup](Docs/cup.md) [web](https://cup.example)\n", "Docs/cup.md": ""},
            {"Docs/cup.md": "[the tree](../README.md)\n", "README.md": ""},
            {"README.md": "[hot](cup.md#hot--cold-too)\n", "cup.md": "## Hot & cold, too\n"},
            {"README.md": "`cup[hot](cold)`\n"},
            {"README.md": "[hot](#hot)\n\n# Hot\n"},
            {"README.md": '<img src="cup.svg"> <img src="https://cup.example">\n', "cup.svg": ""},
            {"cup.cpp": "cups[number](saucer);\n"},
        ],
    ),
    "documents_name_what_exists": (
        [{"README.md": "`Core/Cup/` holds the cup\n", "Core/Saucer/Saucer.h": ""}],
        [
            {"README.md": "`Core/Cup/`, `build/cup`, `Core`\n", "Core/Cup/Cup.h": ""},
            {"Core/Saucer/Saucer.h": "// `Core/Cup/`\n"},
        ],
    ),
}


class RulesTest(unittest.TestCase):
    def test_every_rule_has_samples(self):
        self.assertEqual({rule.__name__ for rule in RULES}, set(SAMPLES))

    def test_each_rule_finds_its_violations_and_nothing_else(self):
        for rule in RULES:
            bad, good = SAMPLES[rule.__name__]
            for texts in bad:
                with self.subTest(rule=rule.__name__, bad=texts):
                    self.assertEqual(len(findings_of(rule, Tree(texts))), 1)
            for texts in good:
                with self.subTest(rule=rule.__name__, good=texts):
                    self.assertEqual(findings_of(rule, Tree(texts)), [])

    def test_a_finding_names_its_line(self):
        rule = next(rule for rule in RULES if rule.__name__ == "awaits_stand_alone")
        tree = Tree({"Core/Cup.cpp": "/* one\n * two */\n\nreturn\n    co_await cup;\n"})
        self.assertIn("Core/Cup.cpp:5:", findings_of(rule, tree)[0])


if __name__ == "__main__":
    unittest.main()
