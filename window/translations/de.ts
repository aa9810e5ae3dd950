<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AddButton</name>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>AttachmentRow</name>
    <message>
        <source>Shows the attachment</source>
        <translation>Zeigt den Anhang</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Byte</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>BackButton</name>
    <message>
        <source>Back to %1</source>
        <translation>Zurück zu %1</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>Bundles</name>
    <message>
        <source>There are no settings bundles on this device.</source>
        <translation>Auf diesem Gerät gibt es keine Einstellungspakete.</translation>
    </message>
    <message>
        <source>Cannot Open %1</source>
        <translation>%1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>1 more is not shown.</source>
        <translation>1 weiteres wird nicht angezeigt.</translation>
    </message>
    <message>
        <source>%1 more are not shown.</source>
        <translation>%1 weitere werden nicht angezeigt.</translation>
    </message>
    <message>
        <source>“%1” is not shown: %2.</source>
        <translation>„%1“ wird nicht angezeigt: %2.</translation>
    </message>
    <message>
        <source>its Info.plist cannot be read</source>
        <translation>Info.plist kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>its Info.plist names no module</source>
        <translation>Info.plist nennt kein Modul</translation>
    </message>
    <message>
        <source>its Info.plist names no principal class</source>
        <translation>Info.plist nennt keine Hauptklasse</translation>
    </message>
</context>
<context>
    <name>ClearButton</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>ComposerSheet</name>
    <message>
        <source>New Message</source>
        <translation>Neue Nachricht</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Sending</source>
        <translation>Wird gesendet</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>An:</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Betreff:</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Discard this message?</source>
        <translation>Diese Nachricht verwerfen?</translation>
    </message>
    <message>
        <source>What you have written will be lost.</source>
        <translation>Der geschriebene Text geht verloren.</translation>
    </message>
    <message>
        <source>Keep Writing</source>
        <translation>Weiterschreiben</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>GuideSheet</name>
    <message>
        <source>User Guide</source>
        <translation>Benutzerhandbuch</translation>
    </message>
</context>
<context>
    <name>KeypadDots</name>
    <message>
        <source>%1 of 4 digits entered</source>
        <translation>%1 von 4 Ziffern eingegeben</translation>
    </message>
</context>
<context>
    <name>KeypadSheet</name>
    <message>
        <source>Emergency</source>
        <translation>Notruf</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Wrong passcode. The keypad is closed.</source>
        <translation>Falscher Code. Die Eingabe ist geschlossen.</translation>
    </message>
    <message>
        <source>Wrong passcode</source>
        <translation>Falscher Code</translation>
    </message>
</context>
<context>
    <name>Mail</name>
    <message>
        <source>No mail program could be reached.</source>
        <translation>Es war kein E-Mail-Programm erreichbar.</translation>
    </message>
    <message>
        <source>The system cannot create another thread.</source>
        <translation>Das System kann keinen weiteren Thread starten.</translation>
    </message>
    <message>
        <source>The attachments could not be copied to %1: %2.</source>
        <translation>Die Anhänge konnten nicht nach %1 kopiert werden: %2.</translation>
    </message>
    <message>
        <source>The mail could not be saved in %1: %2.</source>
        <translation>Die E-Mail konnte nicht in %1 gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>The mail was saved as %1.</source>
        <translation>Die E-Mail wurde als %1 gespeichert.</translation>
    </message>
    <message>
        <source>The mail was handed to your mail program.</source>
        <translation>Die E-Mail wurde an das E-Mail-Programm übergeben.</translation>
    </message>
    <message>
        <source>The mail was not sent: no mail program was chosen.</source>
        <translation>Die E-Mail wurde nicht gesendet: Es wurde kein E-Mail-Programm gewählt.</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Another program moved the account in the list of accounts.</source>
        <translation>Ein anderes Programm hat das Konto in der Liste verschoben.</translation>
    </message>
    <message>
        <source>Another program removed the account.</source>
        <translation>Ein anderes Programm hat das Konto entfernt.</translation>
    </message>
    <message>
        <source>Another program moved the account “%1” in the list of accounts.</source>
        <translation>Ein anderes Programm hat das Konto „%1“ in der Liste verschoben.</translation>
    </message>
    <message>
        <source>Another program removed the account “%1”.</source>
        <translation>Ein anderes Programm hat das Konto „%1“ entfernt.</translation>
    </message>
    <message>
        <source>What was being typed is not stored.</source>
        <translation>Der gerade eingegebene Text wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>Your change could not be saved: %1.</source>
        <translation>Die Änderung konnte nicht gespeichert werden: %1.</translation>
    </message>
    <message>
        <source>The settings have disappeared. Their last good version can be restored</source>
        <translation>Die Einstellungen sind verschwunden. Ihre letzte gültige Version kann wiederhergestellt werden</translation>
    </message>
    <message>
        <source>The settings are damaged. Their last good version can be restored</source>
        <translation>Die Einstellungen sind beschädigt. Ihre letzte gültige Version kann wiederhergestellt werden</translation>
    </message>
    <message>
        <source>Cannot undo: %1.</source>
        <translation>Rückgängig machen ist nicht möglich: %1.</translation>
    </message>
    <message>
        <source>Cannot redo: %1.</source>
        <translation>Wiederholen ist nicht möglich: %1.</translation>
    </message>
    <message>
        <source>Changes cannot be taken back: %1.</source>
        <translation>Änderungen können nicht rückgängig gemacht werden: %1.</translation>
    </message>
    <message>
        <source>The account was deleted</source>
        <translation>Das Konto wurde gelöscht</translation>
    </message>
    <message>
        <source>%1 was deleted</source>
        <translation>%1 wurde gelöscht</translation>
    </message>
    <message>
        <source>there is no list of accounts</source>
        <translation>Es gibt keine Liste der Konten</translation>
    </message>
</context>
<context>
    <name>NoticeContent</name>
    <message>
        <source>LTR</source>
        <extracomment>&quot;LTR&quot;, or &quot;RTL&quot; for a language that is read from right to left.</extracomment>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>Notices</name>
    <message>
        <source>Restore</source>
        <translation>Wiederherstellen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PlaceInList</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
</context>
<context>
    <name>PlainButton</name>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>Problem</name>
    <message>
        <source>no settings bundle beside this program</source>
        <translation>neben diesem Programm liegt kein Einstellungspaket</translation>
    </message>
    <message>
        <source>cannot create folder %1</source>
        <translation>der Ordner %1 kann nicht erstellt werden</translation>
    </message>
    <message>
        <source>cannot use folder %1: %2</source>
        <translation>der Ordner %1 kann nicht verwendet werden: %2</translation>
    </message>
    <message>
        <source>cannot write to the device root %1</source>
        <translation>in den Gerätestamm %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>cannot create link %1</source>
        <translation>die Verknüpfung %1 kann nicht erstellt werden</translation>
    </message>
    <message>
        <source>cannot write to folder %1</source>
        <translation>in den Ordner %1 kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>cannot list applications: %1</source>
        <translation>die Anwendungen können nicht aufgelistet werden: %1</translation>
    </message>
</context>
<context>
    <name>PullList</name>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>SearchBox</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>SearchButton</name>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
</context>
<context>
    <name>Spinner</name>
    <message>
        <source>Loading</source>
        <translation>Wird geladen</translation>
    </message>
</context>
<context>
    <name>TablePage</name>
    <message>
        <source>Nothing here</source>
        <translation>Keine Einträge</translation>
    </message>
</context>
<context>
    <name>TextMenu</name>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>TextSheet</name>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>Toggle</name>
    <message>
        <source>Not available</source>
        <translation>Nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>Undo</name>
    <message>
        <source>%1 is a link or a file, not a folder</source>
        <translation>%1 ist eine Verknüpfung oder eine Datei, kein Ordner</translation>
    </message>
    <message>
        <source>%1 belongs to another user</source>
        <translation>%1 gehört einem anderen Benutzer</translation>
    </message>
    <message>
        <source>%1 is open to other users; chmod 700 closes it</source>
        <translation>%1 ist für andere Benutzer offen; chmod 700 sperrt den Zugriff</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>there is no %1 yet; the first change creates it</source>
        <translation>%1 gibt es noch nicht; die erste Änderung erstellt den Ordner</translation>
    </message>
    <message>
        <source>the settings cannot be read: %1</source>
        <translation>Die Einstellungen können nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>the settings are missing or damaged</source>
        <translation>Die Einstellungen fehlen oder sind beschädigt</translation>
    </message>
    <message>
        <source>the passcode was changed again</source>
        <translation>Der Code wurde erneut geändert</translation>
    </message>
    <message>
        <source>%1 was changed again</source>
        <translation>%1 wurde erneut geändert</translation>
    </message>
    <message>
        <source>%1 was enabled since</source>
        <translation>%1 wurde inzwischen aktiviert</translation>
    </message>
    <message>
        <source>%1 was deleted since</source>
        <translation>%1 wurde inzwischen gelöscht</translation>
    </message>
    <message>
        <source>the passcode is changed on its own row</source>
        <translation>Der Code wird in seiner eigenen Zeile geändert</translation>
    </message>
    <message>
        <source>%1: %2 was changed again</source>
        <translation>%1: %2 wurde erneut geändert</translation>
    </message>
    <message>
        <source>%1 was changed since it was added</source>
        <translation>%1 wurde nach dem Hinzufügen geändert</translation>
    </message>
</context>
<context>
    <name>Web</name>
    <message>
        <source>The page is too complex</source>
        <translation>Die Seite ist zu komplex</translation>
    </message>
    <message>
        <source>The system cannot create another thread</source>
        <translation>Das System kann keinen weiteren Thread starten</translation>
    </message>
    <message>
        <source>The page is too large</source>
        <translation>Die Seite ist zu groß</translation>
    </message>
</context>
<context>
    <name>WebBar</name>
    <message>
        <source>Previous web page</source>
        <translation>Vorherige Webseite</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>Im Browser öffnen</translation>
    </message>
</context>
<context>
    <name>WebFailure</name>
    <message>
        <source>The page could not be loaded.</source>
        <translation>Die Seite konnte nicht geladen werden.</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>WebPage</name>
    <message>
        <source>This page has no text.</source>
        <translation>Diese Seite enthält keinen Text.</translation>
    </message>
</context>
<context>
    <name>WebText</name>
    <message>
        <source>Web page</source>
        <translation>Webseite</translation>
    </message>
</context>
<context>
    <name>Window</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
</TS>
