import QtQuick
import Wardlock.Native

// What the application itself offers and reports, over the pages.
Item {
    id: notices
    /// Whether something covers the pages, which an offer is about.
    property bool underSheet: false
    /// The key that moves the keyboard focus on was pressed in a notice.
    signal tabbed(var event, bool forward)

    /// How much of the window's lower end is covered: what is beneath can be scrolled out of there.
    readonly property real covered: !offer.visible && !notice.visible ? 0
        : anchors.bottomMargin + (notice.visible ? notice.height : 0) + (offer.visible ? offer.height : 0)
          + (notice.visible && offer.visible ? 8 : 0)

    /// What takes the keyboard focus.
    function stops() {
        return offer.stops().concat(notice.stops());
    }

    NoticeBar {
        id: offer
        objectName: "offer"
        width: parent.width
        // Not a column, which moves its items only when the next picture is drawn.
        anchors.bottom: parent.bottom
        anchors.bottomMargin: notice.visible ? notice.height + 8 : 0
        text: settings.offer
        // It returns when the notice has been read.
        fits: !notice.visible || notice.height + 8 + height <= notices.y + notices.height - 8
        available: !notices.underSheet
        readonly property bool restores: settings.offeredAction === "restore"
        button: restores ? qsTr("Restore") : qsTr("Undo")
        refusal: restores ? qsTr("Not Now") : ""
        onPressed: restores ? settings.restore() : settings.undo()
        onRefused: settings.dismissOffer()
        onTabbed: (event, forward) => notices.tabbed(event, forward)
    }
    NoticeBar {
        id: notice
        objectName: "notice"
        width: parent.width
        anchors.bottom: parent.bottom
        text: settings.notice
        button: qsTr("OK")
        onPressed: settings.dismissNotice()
        onTabbed: (event, forward) => notices.tabbed(event, forward)
    }
}
