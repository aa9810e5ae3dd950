import QtQuick
import Wardlock.Native

// One page: its bar and what it shows.
FocusScope {
    id: view
    required property var page

    readonly property alias content: content.item
    /// The notices over the pages.
    required property Item notices

    // Rows are created as they come into sight, so the window's own order of focus has only some of them, in any order. A
    // page of text keeps that order.
    readonly property bool hasStops: content.item !== null
                                     && (content.item.stepRow !== undefined || content.item.takeFocus !== undefined)

    /// Moves the keyboard focus to the next of the bar's buttons, the search, the page's rows or links, and the notices, in
    /// a circle. Returns false on a page that keeps the window's own order.
    function moveFocus(forward) {
        if (!hasStops)
            return false;
        const shown = content.item;
        // Null is the place of the rows or links.
        const stops = bar.stops().concat(shown.stopsBefore ? shown.stopsBefore() : [], [null], notices.stops());
        const held = stops.findIndex((stop) => stop !== null && stop.activeFocus);
        if (held < 0 && shown.stepRow && shown.stepRow(forward))
            return true;
        const start = held < 0 ? stops.indexOf(null) : held;
        for (let i = 1; i <= stops.length; ++i) {
            const stop = stops[(start + i * (forward ? 1 : stops.length - 1)) % stops.length];
            if (stop !== null)
                stop.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
            else if (shown.takeFocus)
                shown.takeFocus(forward);
            else if (!shown.enterRows(forward))
                continue;
            break;
        }
        return true;
    }
    Keys.onTabPressed: (event) => event.accepted = moveFocus(true)
    Keys.onBacktabPressed: (event) => event.accepted = moveFocus(false)

    Rectangle {
        anchors.fill: parent
        color: Theme.ground
    }
    // First, as it is read first; the content is clipped and never covers it.
    NavigationBar {
        id: bar
        inWindowOrder: !view.hasStops
        width: parent.width
        page: view.page
        onSearchRequested: content.item.search()
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
    Binding {
        target: content.item
        property: "covered"
        value: view.notices.covered
    }
    Connections {
        target: content.item && content.item.tabbedOut ? content.item : null
        function onTabbedOut(forward) { view.moveFocus(forward); }
    }
}
