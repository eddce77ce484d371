pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.Probes

// What can be asked of the services one by one.
Flow {
    id: root

    required property ProbeScreen screen

    spacing: 8

    SecondaryButton {
        busy: root.screen.isLocating
        label: "Locate"
        symbol: "mappin.and.ellipse"

        onClicked: root.screen.locate()
    }

    SecondaryButton {
        busy: root.screen.isSearching
        label: "Search cafés"
        symbol: "magnifyingglass"

        onClicked: root.screen.searchCafes()
    }

    SecondaryButton {
        label: "Read check-ins"
        symbol: "calendar"

        onClicked: root.screen.readCheckIns()
    }

    SecondaryButton {
        label: "Copy log"
        symbol: "doc.on.doc"

        onClicked: root.screen.copyLog()
    }
}
