import QtQuick
import Wardlock.Native

// A heading, a paragraph, an item of a list or lines of code of a web page, with the links in it.
Item {
    id: block
    required property var entry
    readonly property bool isHeading: entry.kind === "heading"
    readonly property bool isItem: entry.kind === "item"
    readonly property bool isCode: entry.kind === "code"
    readonly property int linkCount: links.count
    readonly property real padding: isCode ? 12 : 0

    signal followed(int link)
    /// The keyboard focus came to the link of that place.
    signal entered(int link)

    function linkAt(number) { return links.itemAt(number); }

    implicitHeight: Math.ceil(words.implicitHeight) + 2 * padding
    Accessible.role: isHeading ? Accessible.Heading : isItem ? Accessible.ListItem : Accessible.StaticText
    Accessible.name: entry.words

    function escaped(text) {
        return text.replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;");
    }
    readonly property string html: "<p style='white-space:pre-wrap; margin:0; line-height:125%'>"
        + entry.runs.map((run) => run.link > 0
            ? "<a href='" + run.link + "' style='color:" + Theme.tint + "'>" + escaped(run.text) + "</a>"
            : escaped(run.text)).join("") + "</p>"
    /// The links with the positions of their texts.
    readonly property var places: {
        let end = 0;
        return entry.runs.map((run) => ({ text: run.text, link: run.link, start: end, end: end += run.text.length }))
                         .filter((place) => place.link > 0);
    }

    Rectangle {
        visible: block.isCode
        anchors.fill: parent
        radius: Theme.corner
        color: Theme.card
    }
    Label {
        id: bullet
        visible: block.isItem
        objectName: "web:bullet"
        x: words.fromRight ? block.width - words.start + 8 : words.start - 18
        y: Math.round(words.y + (words.cursorRectangle.height - height) / 2)
        text: "•"
        color: Theme.secondary
        Accessible.ignored: true
    }
    TextEdit {
        id: words
        objectName: "web:words"
        // As the text itself is read, whatever the direction of the window.
        readonly property bool fromRight: effectiveHorizontalAlignment === TextEdit.AlignRight
        /// The indent at the side where lines begin.
        readonly property real start: block.isCode ? block.padding
            : Theme.inset + 22 * Math.min(4, block.entry.lists)
        x: fromRight ? (block.isCode ? block.padding : Theme.inset) : start
        y: block.padding
        width: block.width - start - (block.isCode ? block.padding : Theme.inset)
        text: block.html
        textFormat: TextEdit.RichText
        readOnly: true
        activeFocusOnPress: false
        wrapMode: block.isCode ? TextEdit.WrapAtWordBoundaryOrAnywhere : TextEdit.Wrap
        color: Theme.label
        font.family: block.isCode ? "monospace" : Theme.family
        readonly property int points: block.isHeading ? [28, 22, 20, 17, 17, 17][block.entry.rank - 1] : block.isCode ? 14 : 17
        // A narrow window has no room for words of a heading that is larger than large text.
        font.pixelSize: block.isHeading && block.width < 340 ? Math.max(Theme.body, Math.round(Theme.barScale * points))
                                                             : Math.round(Theme.textScale * points)
        font.weight: block.isHeading ? Font.Bold : Font.Normal
        Accessible.ignored: true
        onLinkActivated: (link) => block.followed(Number(link))
        HoverHandler { cursorShape: words.hoveredLink !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor }
    }
    Repeater {
        id: links
        model: block.places
        Item {
            id: link
            required property var modelData
            required property int index

            // Where the text is, which may take several lines.
            readonly property rect place: {
                if (words.length < modelData.end)
                    return Qt.rect(0, 0, 0, 0);
                const layout = words.width + words.contentHeight + words.font.pixelSize;
                const first = words.positionToRectangle(modelData.start);
                const last = words.positionToRectangle(modelData.end);
                const inOneLine = first.y === last.y && layout > 0;
                const left = inOneLine ? Math.min(first.x, last.x) : 0;
                const right = inOneLine ? Math.max(first.x, last.x) : words.width;
                return Qt.rect(left, first.y, right - left, last.y + last.height - first.y);
            }
            objectName: "link:" + modelData.text
            x: words.x + place.x - 4
            y: words.y + place.y - 2
            width: place.width + 8
            height: place.height + 4
            Accessible.role: Accessible.Link
            Accessible.name: modelData.text
            Accessible.focusable: true
            Accessible.onPressAction: block.followed(modelData.link)
            Keys.onReturnPressed: block.followed(modelData.link)
            Keys.onEnterPressed: block.followed(modelData.link)
            onActiveFocusChanged: if (activeFocus) block.entered(index)
            FocusRing {}
        }
    }
}
