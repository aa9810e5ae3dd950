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
                                    || guide.active
    onCoveredChanged: if (!covered) pages.forceActiveFocus()

    readonly property alias textMenu: textMenu

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
            LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
            LayoutMirroring.childrenInherit: true

            Layer {
                id: pages
                anchors.fill: parent
                focus: true
                covered: settings.alert !== null || settings.composer !== null || guide.active
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
            Loader {
                id: composer
                anchors.fill: parent
                active: settings.composer !== null
                focus: active
                sourceComponent: ComposerSheet {
                    composer: settings.composer
                    covered: settings.alert !== null
                }
            }
            Loader {
                anchors.fill: parent
                active: settings.alert !== null
                focus: active
                sourceComponent: AlertSheet { alert: settings.alert }
            }
            Loader {
                id: guide
                anchors.fill: parent
                active: false
                focus: active
                sourceComponent: GuideSheet { onClosed: guide.active = false }
            }
            Keys.onMenuPressed: textMenu.openAtCursor(window.activeFocusItem)
            Notices {
                id: notices
                width: Math.min(parent.width - 2 * Theme.margin, 520)
                anchors.horizontalCenter: parent.horizontalCenter
                anchors.bottom: parent.bottom
                anchors.bottomMargin: 24
                onTabbed: (event, forward) => {
                    const top = window.covered ? null : stack.topView();
                    event.accepted = top !== null && top.moveFocus(forward);
                }
            }
        }
        Loader {
            anchors.fill: parent
            active: settings.keypad !== null
            focus: active
            sourceComponent: KeypadSheet {
                keypad: settings.keypad
                backdrop: root
                onRefused: (words) => window.announce(words)
            }
        }
        TextMenu {
            id: textMenu
            LayoutMirroring.enabled: root.LayoutMirroring.enabled
            LayoutMirroring.childrenInherit: true
        }
        Loader {
            id: announcement
            active: false
            sourceComponent: SpokenText {}
        }
    }
    DesktopKeys {
        covered: window.covered
        onGuideAsked: guide.active = true
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
        onActivated: settings.undo()
    }
    Shortcut {
        sequences: [StandardKey.Redo]
        enabled: !window.covered
        onActivated: settings.redo()
    }
    Shortcut {
        // Not the platform's sequences for it: Backspace is one of them.
        sequences: ["Alt+Left"]
        enabled: !window.covered
        onActivated: stack.goBack()
    }
}
