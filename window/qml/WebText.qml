import QtQuick
import Wardlock.Native

// The text of a web page, laid out to be read, with its links.
ListView {
    id: text
    required property QtObject web

    /// The keyboard focus leaves the text at its last or first link.
    signal tabbedOut(bool forward)

    /// The link that had the keyboard focus last: its row and its place there; -1 for none.
    property int atRow: -1
    property int atLink: -1
    /// The row at the top of each page that can be returned to, and of the page whose followed link has not been
    /// loaded yet; -1 for none.
    property var places: []
    property int leftAt: -1
    property bool goesBack: false

    /// How much of the lower end is covered by notices.
    property real covered: 0

    objectName: "web"
    model: web.text
    clip: true
    focus: true
    currentIndex: -1
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    boundsBehavior: Flickable.DragAndOvershootBounds
    bottomMargin: 28 + covered
    cacheBuffer: 400
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Web page")

    /// The links are destroyed when another page is shown, and the keyboard focus with them.
    function leaveLink() {
        const line = atRow >= 0 ? itemAtIndex(atRow) : null;
        if (line && atLink < line.linkCount)
            line.linkAt(atLink).focus = false;
    }
    function follow(link) {
        leaveLink();
        leftAt = Math.max(0, indexAt(width / 2, contentY));
        goesBack = false;
        web.follow(link);
    }
    function goBack() {
        leaveLink();
        goesBack = true;
        web.goBack();
    }
    Connections {
        target: text.web.text
        function onModelReset() {
            text.atRow = text.atLink = text.currentIndex = -1;
            text.positionViewAtBeginning();
            // The view itself follows the model later, and has no such row before.
            if (text.goesBack)
                Qt.callLater(text.positionViewAtIndex, text.leftAt >= 0 ? text.leftAt : text.places.pop() || 0,
                             ListView.Beginning);
            else if (text.leftAt >= 0)
                text.places.push(text.leftAt);
            text.leftAt = -1;
            text.goesBack = false;
        }
    }

    function takeFocus(forward) {
        atRow = atLink = -1;
        step(forward);
    }
    function step(forward) {
        const here = atRow >= 0 ? itemAtIndex(atRow) : null;
        const next = atLink + (forward ? 1 : -1);
        if (here && next >= 0 && next < here.linkCount)
            return focusLink(atRow, next);
        const start = atRow >= 0 ? atRow : forward ? indexAt(width / 2, contentY) - 1 : count;
        const row = web.text.nextLink(Math.max(-1, start), forward ? 1 : -1);
        if (row >= 0)
            return focusLink(row, forward ? 0 : -1);
        atRow = atLink = -1;
        tabbedOut(forward);
    }
    /// Of a negative number the last link.
    function focusLink(row, number) {
        // The row is kept while it is the current one, wherever its neighbours' heights move it.
        currentIndex = row;
        positionViewAtIndex(row, ListView.Contain);
        const line = currentItem;
        const link = line.linkAt(number < 0 ? line.linkCount - 1 : number);
        link.forceActiveFocus(Qt.TabFocusReason);
        const top = link.mapToItem(contentItem, 0, 0).y;
        if (top < contentY)
            contentY = top - 20;
        else if (top + link.height > contentY + height)
            contentY = top + link.height - height + 20;
    }
    function scrollBy(way) {
        const first = originY - topMargin;
        const last = Math.max(first, originY + contentHeight + bottomMargin - height);
        contentY = Math.max(first, Math.min(contentY + way, last));
    }
    Keys.onPressed: (event) => {
        const page = height - 40;
        const ways = { [Qt.Key_Down]: 40, [Qt.Key_Up]: -40, [Qt.Key_PageDown]: page, [Qt.Key_PageUp]: -page,
                       [Qt.Key_Space]: page };
        if (ways[event.key] !== undefined)
            scrollBy(ways[event.key]);
        else if (event.key === Qt.Key_Home)
            positionViewAtBeginning();
        else if (event.key === Qt.Key_End)
            positionViewAtEnd();
        else if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab)
            step(event.key === Qt.Key_Tab);
        else
            return;
        event.accepted = true;
    }

    delegate: Item {
        id: line
        required property var entry
        required property int index

        readonly property real above: index === 0 ? 20 : entry.kind === "heading" ? (entry.apart ? 26 : 10)
            : entry.kind === "link" && !entry.first ? 0 : entry.kind === "item" && entry.lists > 1 ? 6
            : entry.apart ? 14 : entry.kind === "text" ? 0 : 6
        readonly property int linkCount: block.item ? block.item.linkCount : 0
        function linkAt(number) { return block.item.linkAt(number); }

        width: text.width
        height: above + (block.item ? block.item.implicitHeight : 0)

        Loader {
            id: block
            x: Theme.sideMargin(line.width)
            y: line.above
            width: line.width - 2 * x
            sourceComponent: line.entry.kind === "link" ? row : words
        }
        Component {
            id: row
            WebLinkRow {
                entry: line.entry
                onFollowed: (link) => text.follow(link)
                onEntered: (link) => { text.atRow = line.index; text.atLink = link; }
            }
        }
        Component {
            id: words
            WebTextBlock {
                entry: line.entry
                onFollowed: (link) => text.follow(link)
                onEntered: (link) => { text.atRow = line.index; text.atLink = link; }
            }
        }
    }
}
