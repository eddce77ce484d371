pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.CheckIn
import Quorvel.DesignSystem

// The visit: café, weather, scores, note and Wi-Fi, and the button that saves it. Long content
// scrolls; the button stays.
FocusScope {
    id: root

    required property LocatedScreen screen
    property bool showingPicker

    readonly property Item focused: root.Window.activeFocusItem
    readonly property bool isChoosingOrTyping: root.showingPicker
                                               || root.focused instanceof TextInput
                                               || root.focused instanceof TextEdit
    readonly property bool isShown: root.visible && root.Window.visibility !== Window.Hidden

    implicitHeight: 540
    objectName: "LocatedView"

    Component.onCompleted: if (root.isShown)
        root.screen.appear()
    Component.onDestruction: {
        root.screen.isChoosingOrTyping = false;
        root.screen.disappear();
    }
    onIsChoosingOrTypingChanged: root.screen.isChoosingOrTyping = root.isChoosingOrTyping
    onIsShownChanged: root.isShown ? root.screen.appear() : root.screen.disappear()

    Repeater {
        model: root.showingPicker ? 1 : 0

        CafePickerView {
            candidates: root.screen.candidates
            credit: root.screen.mapCredit
            height: root.height
            width: root.width

            // Otherwise the hidden button that opened it keeps the focus.
            Component.onCompleted: forceActiveFocus()
            onCancelled: root.showingPicker = false
            onSelected: row => {
                root.screen.selectCafe(row);
                root.showingPicker = false;
            }
        }
    }

    ScrollArea {
        id: form

        Accessible.name: "Check-in form"
        anchors.bottom: edge.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        visible: !root.showingPicker

        Column {
            bottomPadding: 16
            leftPadding: 16
            spacing: 16
            topPadding: 16
            width: form.width

            CafeHeader {
                action: root.screen.headerAction
                canChange: root.screen.canChange
                credit: root.screen.mapCredit
                hasCafe: root.screen.hasCafe
                subtitle: root.screen.subtitle
                title: root.screen.title
                width: form.width - 32

                onChangeRequested: root.showingPicker = true
                onRetryRequested: root.screen.retry()
            }

            WeatherCard {
                code: root.screen.weatherCode
                credit: root.screen.weatherCredit
                feels: root.screen.feels
                hasWeather: root.screen.hasWeather
                isDay: root.screen.isDay
                temperature: root.screen.temperature
                width: form.width - 32
            }

            RatingsSection {
                screen: root.screen
                width: form.width - 32
            }

            Column {
                spacing: 8
                width: form.width - 32

                Eyebrow {
                    title: "Note"
                }

                NoteField {
                    label: "Note"
                    placeholder: "How's this spot today?"
                    text: root.screen.note
                    width: parent.width

                    onEdited: text => root.screen.note = text
                }
            }

            WifiPasswordField {
                section: root.screen.wifi
                width: form.width - 32
            }
        }
    }

    CheckInArea {
        id: area

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        buttonSymbol: root.screen.buttonSymbol
        buttonTitle: root.screen.buttonTitle
        canCheckIn: root.screen.isButtonEnabled
        error: root.screen.errorText
        hint: root.screen.hintText
        padding: 16
        topPadding: 12
        visible: !root.showingPicker

        onCheckInRequested: root.screen.checkIn()
    }

    Rectangle {
        id: edge

        anchors.bottom: area.top
        anchors.left: parent.left
        anchors.right: parent.right
        color: Theme.color.border
        height: 1
        visible: !root.showingPicker && form.canScroll
    }
}
