import QtQuick
import QtQuick.Window
import Wardlock.Native

Window {
    id: window
    title: settings.title
    width: 390
    height: 844
    minimumWidth: 280
    minimumHeight: 360
    color: Theme.ground

    onWidthChanged: Theme.windowWidth = width

    onClosing: (closing) => closing.accepted = (composer.item === null || composer.item.mayClose()) && settings.close()

    // When what covered the pages disappears, they take the keyboard focus back where it was.
    readonly property bool covered: settings.alert !== null || settings.composer !== null || settings.keypad !== null
                                    || guide.needed
    onCoveredChanged: if (!covered) pages.forceActiveFocus()

    /// Returns the menu of the text fields, which is created at its first use.
    function textMenu() {
        textMenuLoader.active = true;
        return textMenuLoader.item;
    }

    /// Has a screen reader say the words, wherever the user is.
    function announce(words) {
        if (!settings.isAssisted())
            return;
        announcement.active = true;
        announcement.item.say(words);
    }

    // All that a screen reader finds in the window.
    Layer {
        id: screen
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Grouping

        Layer {
            id: root
            anchors.fill: parent
            focus: true
            covered: settings.keypad !== null
            Accessible.role: Accessible.Grouping
            Accessible.ignored: true
            // Not by an enumerator of `Qt`: the first one has the engine register them all.
            LayoutMirroring.enabled: Theme.mirrored
            LayoutMirroring.childrenInherit: true

            Layer {
                id: pages
                anchors.fill: parent
                focus: true
                covered: settings.alert !== null || settings.composer !== null || guide.needed
                Accessible.role: Accessible.Grouping
                Keys.onEscapePressed: stack.goBack()
                Keys.onBackPressed: stack.goBack()
                PageStack {
                    id: stack
                    anchors.fill: parent
                    notices: notices
                    onPageShown: (title) => window.announce(title)
                }
            }
            OnDemand {
                id: composer
                anchors.fill: parent
                needed: settings.composer !== null
                focus: needed
                file: "ComposerSheet.qml"
                properties: ({
                    composer: Qt.binding(() => settings.composer),
                    covered: Qt.binding(() => settings.alert !== null),
                    hidden: Qt.binding(() => notices.covered)
                })
            }
            OnDemand {
                anchors.fill: parent
                needed: settings.alert !== null
                focus: needed
                file: "AlertSheet.qml"
                properties: ({ alert: Qt.binding(() => settings.alert) })
            }
            OnDemand {
                id: guide
                anchors.fill: parent
                focus: needed
                file: "GuideSheet.qml"
                onLoaded: item.closed.connect(() => guide.needed = false)
            }
            Keys.onMenuPressed: window.textMenu().openAtCursor(window.activeFocusItem)
            Notices {
                id: notices
                underSheet: window.covered
                width: Math.min(parent.width - 2 * Theme.margin, 520)
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.bottom: parent.bottom
                readonly property Item page: stack.shownPage !== null ? stack.shownPage.content : null
                anchors.bottomMargin: 24 + (page !== null && page.barBelow !== undefined ? page.barBelow : 0)
                onTabbed: (event, forward) => {
                    const top = window.covered ? null : stack.topView();
                    event.accepted = top !== null && top.moveFocus(forward);
                }
            }
        }
        OnDemand {
            anchors.fill: parent
            needed: settings.keypad !== null
            focus: needed
            file: "KeypadSheet.qml"
            properties: ({ keypad: Qt.binding(() => settings.keypad), backdrop: root })
            onLoaded: item.refused.connect(window.announce)
        }
        Loader {
            id: textMenuLoader
            anchors.fill: parent
            active: false
            source: "TextMenu.qml"
            LayoutMirroring.enabled: root.LayoutMirroring.enabled
            LayoutMirroring.childrenInherit: true
        }
        // Its file is read when the first text is to be shown.
        Loader {
            anchors.fill: parent
            active: fullText.text !== ""
            source: "FullTextTip.qml"
        }
        Loader {
            id: announcement
            active: false
            source: "SpokenText.qml"
        }
    }
    DesktopKeys {
        covered: window.covered
        onGuideAsked: guide.needed = true
        onCloseAsked: window.close()
    }
    Shortcut {
        sequences: [StandardKey.Find]
        enabled: !window.covered
        onActivated: {
            const top = stack.topView();
            if (top && top.content && top.content.search)
                top.content.search();
        }
    }
    Shortcut {
        sequences: [StandardKey.Undo]
        enabled: !window.covered
        onActivated: keptInput.callAtRest(() => settings.undo())
    }
    Shortcut {
        sequences: [StandardKey.Redo]
        enabled: !window.covered
        onActivated: keptInput.callAtRest(() => settings.redo())
    }
    Shortcut {
        // Not the platform's sequences for it: Backspace is one of them.
        sequences: ["Alt+Left"]
        enabled: !window.covered
        onActivated: keptInput.callAtRest(() => stack.goBack())
    }
}
