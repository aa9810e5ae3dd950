import QtQuick
import Wardlock.Native

// Text in as many lines as it takes. A word that is longer than a line ends in "…" instead of being broken, except a path,
// which is needed whole.
Label {
    id: label
    property string words

    FontMetrics {
        id: metrics
        font: label.font
    }
    function fitted(word) {
        return width <= 0 || word.includes("/") || metrics.advanceWidth(word) <= width
             ? word : metrics.elidedText(word, Text.ElideRight, width);
    }
    text: words.split(" ").map(fitted).join(" ")
    wrapMode: Text.Wrap
    elide: Text.ElideNone
}
