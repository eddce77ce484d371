pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.Probes

// The separate requests to the services.
Flow {
    id: root

    required property ProbeViewModel probe

    spacing: 8

    SecondaryButton {
        busy: root.probe.isLocating
        label: "Locate"
        symbol: "mappin.and.ellipse"

        onClicked: root.probe.locate()
    }

    SecondaryButton {
        busy: root.probe.isSearching
        label: "Search cafés"
        symbol: "magnifyingglass"

        onClicked: root.probe.searchCafes()
    }

    SecondaryButton {
        label: "Read check-ins"
        symbol: "calendar"

        onClicked: root.probe.readCheckIns()
    }

    SecondaryButton {
        label: "Copy log"
        symbol: "doc.on.doc"

        onClicked: root.probe.copyLog()
    }
}
