pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// A visit's card, in the window and in the shared picture. Its width is fixed, so that both are the
// same. Its shadow takes no room in the layout.
Item {
    id: root

    required property VisitDetail detail
    readonly property visitCard card: root.detail.card
    readonly property real cornerRadius: 16
    readonly property real innerWidth: root.width - 2 * content.padding

    implicitHeight: banner.height + content.height
    implicitWidth: banner.implicitWidth
    objectName: "VisitCardView"

    SoftShadow {
        id: shadow

        anchors.fill: parent
        anchors.margins: -shadow.reach
        cornerRadius: root.cornerRadius
    }

    // It starts under the banner: beside the banner's round corners it would show as a fringe.
    Rectangle {
        anchors.fill: parent
        anchors.topMargin: banner.height / 2
        color: Theme.color.surface
        radius: root.cornerRadius
    }

    VisitBanner {
        id: banner

        cornerRadius: root.cornerRadius
        detail: root.detail
        width: parent.width
    }

    VisitChips {
        anchors.fill: banner
        anchors.margins: 12
        card: root.card
    }

    Column {
        id: content

        anchors.top: banner.bottom
        padding: 18
        spacing: 15
        width: parent.width

        VisitHeading {
            moment: root.card.moment
            title: root.card.title
            width: root.innerWidth
        }

        VisitAddress {
            address: root.card.address
            coordinates: root.card.coordinates
            visible: address !== "" || coordinates !== ""
            width: root.innerWidth
        }

        VisitRatings {
            labels: root.card.ratingLabels
            values: root.card.ratingValues
            width: root.innerWidth
        }

        VisitNote {
            text: root.card.note
            visible: text !== ""
            width: root.innerWidth
        }

        VisitWifi {
            detail: root.detail
            visible: root.detail.hasWifiQR
            width: root.innerWidth
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            padding: 3
            spacing: 6

            CupGlyph {
                anchors.verticalCenter: parent.verticalCenter
                size: 14
            }

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.color.accent
                font: Theme.font.captionSemibold
                text: "Logged with Quorvel"
            }
        }
    }

    Rectangle {
        anchors.fill: parent
        border.color: Theme.color.border
        border.width: 1
        color: "transparent"
        radius: root.cornerRadius
    }
}
