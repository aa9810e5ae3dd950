pragma Singleton
import QtQuick

// Every colour, size and duration of the window. Sizes are in points and grow with the text.
QtObject {
    property bool dark: false
    property real textScale: 1
    property bool highContrast: false
    /// Nothing slides, grows or shakes: it fades.
    property bool reducedMotion: false

    readonly property string family: "Inter"
    readonly property int body: Math.round(17 * textScale)
    // A bar has to hold three texts beside each other: they grow less.
    readonly property real barScale: Math.min(textScale, 1.3)
    readonly property int barText: Math.round(17 * barScale)
    readonly property int small: Math.round(13 * textScale)

    readonly property color ground: dark ? "#000000" : "#f2f2f7"
    readonly property color card: dark ? "#1c1c1e" : "#ffffff"
    readonly property color pressed: dark ? "#2c2c2e" : "#d9d9de"
    readonly property color bar: dark ? "#161618" : "#f9f9f9"
    readonly property color label: dark ? "#ffffff" : "#000000"
    readonly property color secondary: shade("#6d6d72", "#8e8e93", "#48484c", "#c7c7cc")
    readonly property color value: shade("#8a8a8e", "#98989f", "#48484c", "#c7c7cc")
    readonly property color placeholder: shade("#bcbcc0", "#5f5f63", "#6d6d72", "#98989f")
    readonly property color separator: shade("#c6c6c8", "#38383a", "#8a8a8e", "#7c7c80")
    readonly property color chevron: shade("#c4c4c7", "#5a5a5e", "#6d6d72", "#aeaeb2")
    readonly property color tint: shade("#007aff", "#0a84ff", "#0040dd", "#409cff")
    readonly property color destructive: shade("#ff3b30", "#ff453a", "#c40013", "#ff6961")
    readonly property color on: shade("#34c759", "#30d158", "#248a3d", "#30db5b")
    readonly property color off: shade("#e9e9ea", "#39393d", "#aeaeb2", "#6c6c70")
    readonly property color sheet: dark ? "#2c2c2e" : "#f4f4f4"
    readonly property color field: dark ? "#1c1c1e" : "#ffffff"
    readonly property color search: dark ? "#1c1c1e" : "#e3e3e8"
    readonly property color scrim: "#66000000"
    readonly property color focus: dark ? "#800a84ff" : "#80007aff"

    readonly property int rowHeight: Math.max(44, Math.round(44 * textScale))
    readonly property int barHeight: Math.max(52, Math.round(52 * barScale))
    readonly property int margin: 16
    readonly property int inset: 16
    readonly property int corner: 10
    readonly property int icon: 29
    readonly property int widest: 720

    function shade(day, night, strongDay, strongNight) {
        if (highContrast)
            return dark ? strongNight : strongDay;
        return dark ? night : day;
    }

    // The margin that keeps a column readable on a wide window.
    function sideMargin(width) {
        return Math.max(margin, Math.round((width - widest) / 2));
    }
}
