pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A field for several lines of text. It is three lines high, grows to six, and then scrolls. It
// shows `text` and reports each edit; the owner keeps the text.
FocusScope {
    id: root

    required property string label
    property string text
    property string placeholder
    readonly property real padding: 10
    readonly property real lineHeight: input.contentHeight / Math.max(1, input.lineCount)

    signal edited(string text)

    function follow(cursor: rect) {
        if (scrolled.contentY > cursor.y)
            scrolled.contentY = cursor.y;
        else if (scrolled.contentY + scrolled.height < cursor.y + cursor.height)
            scrolled.contentY = cursor.y + cursor.height - scrolled.height;
    }

    implicitHeight: Math.min(Math.max(input.contentHeight, 3 * root.lineHeight),
                             6 * root.lineHeight) + 2 * root.padding
    implicitWidth: 200

    InputFrame {
        field: root
    }

    Flickable {
        id: scrolled

        anchors.fill: parent
        anchors.margins: root.padding
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: input.height
        contentWidth: width

        TextEdit {
            id: input

            Accessible.role: Accessible.EditableText
            Accessible.name: root.label
            Accessible.editable: true
            Accessible.focusable: root.enabled
            Accessible.multiLine: true
            activeFocusOnTab: root.enabled
            color: Theme.color.textPrimary
            focus: true
            font: Theme.font.body
            height: Math.max(contentHeight, scrolled.height)
            selectByMouse: true
            selectedTextColor: Theme.color.textPrimary
            selectionColor: Theme.color.starOff
            text: root.text
            textFormat: TextEdit.PlainText
            width: scrolled.width
            wrapMode: TextEdit.Wrap

            // Tab moves to the next control, as everywhere in a form.
            Keys.onBacktabPressed: input.nextItemInFocusChain(false).forceActiveFocus()
            Keys.onTabPressed: input.nextItemInFocusChain().forceActiveFocus()
            onCursorRectangleChanged: root.follow(input.cursorRectangle)
            onTextChanged: if (input.text !== root.text)
                root.edited(input.text)
        }
    }

    PlainText {
        Accessible.ignored: true
        anchors.left: scrolled.left
        anchors.right: scrolled.right
        anchors.top: scrolled.top
        color: Theme.color.textTertiary
        text: root.placeholder
        visible: input.text === "" && input.preeditText === ""
        wrapMode: Text.Wrap
    }
}
