import QtQuick
import Wardlock.Native

// One page: its bar and what it shows.
FocusScope {
    id: view
    required property var page

    readonly property alias content: content.item

    Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }
    // First, as it is read first; the content is clipped and never covers it.
    NavigationBar {
        id: bar
        onTabbedOut: (forward) => {
            if (content.item && content.item.takeFocus)
                return content.item.takeFocus(forward);
            const list = content.item && content.item.focusRow ? content.item : null;
            const inList = list !== null && list.focusRow(forward ? -1 : list.list.count, forward ? 1 : -1);
            if (!inList && hasButtons)
                takeFocus(forward);
        }
        width: parent.width
        page: view.page
    }
    Loader {
        id: content
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        focus: true
        // Not also at the first change of the kind, which comes earlier: the item would be created twice.
        property bool made: false
        Component.onCompleted: {
            made = true;
            show();
        }
        function show() {
            const files = { list: "ListPage.qml", table: "TablePage.qml", text: "TextPage.qml", web: "WebPage.qml" };
            if (files[view.page.kind])
                setSource(files[view.page.kind], { page: view.page });
            else
                source = "";
        }
        readonly property string kind: view.page.kind
        onKindChanged: if (made) show()
    }
    Connections {
        target: content.item && content.item.tabbedOut ? content.item : null
        function onTabbedOut(forward) { bar.takeFocus(forward); }
    }
}
