pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Every primitive and symbol once, to look at, and to prove that each can be made.
Rectangle {
    id: root

    color: Theme.color.background
    implicitHeight: column.implicitHeight
    implicitWidth: 340

    Column {
        id: column

        padding: 16
        spacing: 12
        width: parent.width

        Eyebrow {
            objectName: "eyebrow"
            title: "wi-fi"
        }

        PlainText {
            objectName: "plainText"
            text: "<b>Cà phê</b> & more"
        }

        PlainText {
            font: Theme.font.cafeName
            text: "The Workshop Coffee"
        }

        PlainText {
            font: Theme.font.tempLarge
            text: "27°"

            Credit {
                anchors.fill: parent
                credit: "Weather by Open-Meteo"
            }
        }

        SelectableText {
            text: "Quán Sách is 42 m away"
        }

        Row {
            spacing: 12

            GhostButton {
                label: "Scan again"
                objectName: "ghostButton"
            }

            GhostButton {
                focus: true
                label: "Join"
                objectName: "focusedGhostButton"
            }

            SymbolButton {
                label: "Check-ins"
                objectName: "symbolButton"
                symbol: "clock"
            }
        }

        ThemeDivider {
            objectName: "divider"
            width: 308
        }

        ToggleRow {
            label: "Off"
            objectName: "offToggle"
            width: 308
        }

        ToggleRow {
            checked: true
            label: "On"
            objectName: "onToggle"
            width: 308
        }

        RowButton {
            label: "A row"
            objectName: "rowButton"
            width: 308
        }

        ScrollArea {
            Accessible.name: "A long text"
            height: 40
            objectName: "scrollArea"
            width: 308

            PlainText {
                text: "One\nTwo\nThree\nFour\nFive"
            }
        }

        ControlsSheet {
        }

        GlyphsSheet {
        }

        SymbolsSheet {
            names: ["sun.max", "moon", "moon.stars.fill", "cloud", "cloud.sun", "cloud.moon",
                "cloud.fog", "cloud.drizzle", "cloud.rain", "cloud.snow", "cloud.bolt.rain",
                "snowflake", "cup.and.saucer", "cup.and.saucer.fill", "location.fill",
                "location.slash", "mappin.and.ellipse", "thermometer", "star", "star.fill",
                "checkmark", "checkmark.circle.fill", "circle", "largecircle.fill.circle", "xmark",
                "plus", "exclamationmark.triangle", "clock", "wifi", "wifi.slash", "lock",
                "lock.fill", "eye", "eye.slash", "power", "arrow.clockwise", "magnifyingglass",
                "chevron.left", "chevron.right", "arrow.down.to.line", "square.and.arrow.up",
                "trash", "doc.on.doc", "photo", "note.text", "calendar"]
        }
    }
}
