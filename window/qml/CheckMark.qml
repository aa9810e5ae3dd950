import QtQuick
import Wardlock.Native

// The mark of the chosen row.
Item {
    implicitWidth: 16
    implicitHeight: 14
    Rectangle { x: 0; y: 8; width: 7; height: 2; radius: 1; rotation: 45; antialiasing: true; color: Theme.tint }
    Rectangle { x: 3; y: 6; width: 13; height: 2; radius: 1; rotation: -50; antialiasing: true; color: Theme.tint }
}
