import QtQuick

// The pages one over another: a pushed one slides in from the side, a popped one out, the one beneath follows a little.
Item {
    id: stack
    property alias count: pages.count
    readonly property int duration: Math.round(settings.transitionSeconds * 1000)

    function topView() {
        for (let i = pages.count - 1; i >= 0; --i)
            if (pages.itemAt(i).place !== "leaving")
                return pages.itemAt(i);
        return null;
    }

    Repeater {
        id: pages
        model: settings.pages

        FocusScope {
            id: slot
            required property var page
            required property string place
            required property int index

            readonly property int direction: LayoutMirroring.enabled ? -1 : 1
            readonly property bool isTop: place === "top" || place === "entering"
            property bool ready: false
            property real rest: place === "leaving" ? direction * width
                              : place === "below" ? -direction * Math.round(width * 0.3) : 0

            objectName: "page:" + page.title
            width: stack.width
            height: stack.height
            enabled: place === "top"
            focus: isTop
            visible: isTop || place === "leaving" || index >= pages.count - 2 && covered.running
                     || index === pages.count - 2 && pages.itemAt(index + 1) !== null
                     && (pages.itemAt(index + 1).x !== 0)
            x: edge.active ? Math.max(0, direction * edge.translation.x) * direction : rest

            Behavior on x {
                enabled: slot.ready && !edge.active
                NumberAnimation { id: covered; duration: stack.duration; easing.type: Easing.OutCubic }
            }
            Component.onCompleted: {
                if (place === "entering") {
                    const target = Qt.binding(() => edge.active
                        ? Math.max(0, direction * edge.translation.x) * direction : rest);
                    x = direction * width;
                    ready = true;
                    x = target;
                } else {
                    ready = true;
                }
            }

            PageView {
                id: pageView
                objectName: "view"
                anchors.fill: parent
                page: slot.page
                focus: true
            }
            Rectangle {
                width: 1
                height: parent.height
                x: -1
                color: Look.separator
                visible: slot.x !== 0
            }
            Item {
                width: 24
                height: parent.height
                anchors.left: parent.left
                enabled: slot.place === "top" && slot.page.backTitle !== ""
                DragHandler {
                    id: edge
                    target: null
                    yAxis.enabled: false
                    onActiveChanged: if (!active && slot.direction * translation.x > slot.width * 0.4) settings.goBack()
                }
            }
            property alias content: pageView.content
        }
    }
}
