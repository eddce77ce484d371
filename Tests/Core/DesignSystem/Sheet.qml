pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Every primitive and symbol once, to look at and to prove that each can be made.
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

        ControlsSheet {
        }

        Repeater {
            model: ["cup.and.saucer.fill", "clock"]

            Row {
                id: sizes

                required property string modelData

                spacing: 12

                Repeater {
                    model: [11, 13, 16, 18, 24, 32, 64]

                    Symbol {
                        required property int modelData

                        color: Theme.color.accent
                        name: sizes.modelData
                        size: modelData
                    }
                }

                Symbol {
                    color: Theme.color.textSecondary
                    name: sizes.modelData
                    size: 24
                }
            }
        }
    }
}
