import QtQuick
import Wardlock.Native

// The pages one over another. A pushed page slides in from the side, a popped one out; the one beneath follows a
// little. A swipe from the edge moves the topmost page with the finger.
Item {
    id: stack
    /// The notices over the pages.
    required property Item notices
    readonly property int duration: Math.round(settings.transitionSeconds * 1000)
    /// Counts pages that enter or leave: bindings on the repeater's items depend on it.
    property int changes: 0
    /// Another page is shown than before.
    signal pageShown(string title)

    readonly property Item shownPage: changes >= 0 ? topView() : null
    property Item pageBefore: null
    onShownPageChanged: {
        if (shownPage !== null && pageBefore !== null)
            pageShown(shownPage.page.title);
        pageBefore = shownPage;
    }

    function topView() {
        for (let i = pages.count - 1; i >= 0; --i)
            if (pages.itemAt(i).place !== "leaving")
                return pages.itemAt(i);
        return null;
    }

    /// Goes back within the page where it has a way back of its own, else to the page below.
    function goBack() {
        const content = topView() ? topView().content : null;
        if (!content || !content.goBack || !content.goBack())
            settings.goBack();
    }

    Repeater {
        id: pages
        model: settings.pages
        onItemAdded: ++stack.changes
        onItemRemoved: ++stack.changes

        FocusScope {
            id: slot
            required property var page
            required property string place
            required property int index

            property alias content: pageView.content
            function moveFocus(forward) {
                return pageView.moveFocus(forward);
            }
            readonly property int direction: LayoutMirroring.enabled ? -1 : 1
            readonly property bool isTop: place === "top" || place === "entering"
            readonly property Item above: stack.changes >= 0 && index + 1 < pages.count ? pages.itemAt(index + 1) : null
            /// How far the page is out of the window: 0 in its place, 1 outside.
            property real out: 0

            objectName: "page:" + page.title
            width: stack.width
            height: stack.height
            x: Theme.reducedMotion ? 0 : Math.round(direction * width * (out - (above ? 0.3 * (1 - above.out) : 0)))
            opacity: Theme.reducedMotion ? 1 - out : 1
            visible: out < 1 && (above === null || above.out > 0)
            enabled: place === "top"
            focus: isTop

            function slideTo(target) {
                slide.from = out;
                slide.to = target;
                slide.restart();
            }
            Component.onCompleted: {
                if (place !== "entering" || stack.duration === 0)
                    return;
                out = 1;
                slideTo(0);
            }
            onPlaceChanged: {
                if (place === "leaving")
                    slideTo(1);
                else if (place === "top" && slide.running)
                    // What was tapped meanwhile is passed on now, to where things are.
                    slide.complete();
            }
            NumberAnimation {
                id: slide
                target: slot
                property: "out"
                duration: stack.duration
                easing.type: Easing.OutCubic
            }

            PageView {
                id: pageView
                anchors.fill: parent
                page: slot.page
                notices: stack.notices
                focus: true
            }
            Rectangle {
                width: 1
                height: parent.height
                x: slot.direction > 0 ? -1 : slot.width
                color: Theme.separator
                visible: slot.out > 0 && !Theme.reducedMotion
            }
            Item {
                objectName: "edge"
                width: 24
                height: parent.height
                anchors.left: parent.left
                SwipeHandler {
                    id: edge
                    enabled: slot.place === "top" && slot.page.backTitle !== ""
                             && !(slot.content && slot.content.canGoBack === true)
                    grabPermissions: PointerHandler.CanTakeOverFromAnything
                    onTranslationChanged: if (active)
                        slot.out = Math.max(0, Math.min(1, slot.direction * translation.x / slot.width))
                    onBegan: slide.stop()
                    onReleased: {
                        if (slot.out > 0.4)
                            settings.goBack();
                        stay();
                    }
                    onAbandoned: stay()
                    function stay() {
                        if (slot.place === "top")
                            slot.slideTo(0);
                    }
                }
            }
        }
    }
}
