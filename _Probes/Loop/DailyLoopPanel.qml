pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.Probes

// The state of one daily loop as text, and its inputs.
FocusScope {
    id: root

    required property MenuBarViewModelProbe loop

    implicitHeight: card.implicitHeight

    Card {
        id: card

        color: Theme.color.surface
        width: parent.width

        Column {
            spacing: 8
            width: parent.width

            Eyebrow {
                Accessible.role: Accessible.Heading
                title: "PHASE 8 — DAILY LOOP"
            }

            Row {
                spacing: 6
                width: parent.width

                ProgressIndicator {
                    id: progress

                    size: 14
                    visible: root.loop.isLoading
                }

                PlainText {
                    color: root.loop.isError ? Theme.color.error : Theme.color.textPrimary
                    font: root.loop.isLoaded ? Theme.font.caption : Theme.font.body
                    lineHeight: root.loop.isLoaded ? 1.25 : 1
                    text: root.loop.text
                    width: parent.width - (progress.visible ? progress.width + parent.spacing : 0)
                    wrapMode: Text.Wrap
                }
            }

            Row {
                spacing: 8

                SecondaryButton {
                    focus: true
                    label: "Run"
                    symbol: "location.fill"
                    symbolColor: Theme.color.accent

                    onClicked: root.loop.run()
                }

                SecondaryButton {
                    label: "Retry"
                    symbol: "arrow.clockwise"
                    visible: root.loop.isError

                    onClicked: root.loop.retry()
                }

                SecondaryButton {
                    label: "Cancel"
                    symbol: "xmark"

                    onClicked: root.loop.cancel()
                }
            }
        }
    }
}
