import QtQuick

// A text field over the pages. Ctrl+Z takes back the typing as long as there is some, and the user's changes then.
TextInput {
    id: field
    /// The text was changed by the user, also by taking the typing back.
    signal changed(string text)

    onTextEdited: changed(text)
    Keys.onPressed: (event) => {
        const back = event.matches(StandardKey.Undo);
        if (!back && !event.matches(StandardKey.Redo))
            return;
        event.accepted = true;
        if (back ? !canUndo : !canRedo)
            return back ? settings.undo() : settings.redo();
        // Each of them reports the text as edited.
        back ? undo() : redo();
    }
}
