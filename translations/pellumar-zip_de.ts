<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>Der Vorgang konnte nicht abgeschlossen werden.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>AssetPickerController</name>
    <message>
        <source>Choose photos and videos</source>
        <translation>Fotos und Videos wählen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>Fotos und Videos werden gesucht</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>In den Ordnern „Bilder“ und „Videos“ sind keine Fotos oder Videos</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>Video</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Foto</translation>
    </message>
</context>
<context>
    <name>CanKeepFiles</name>
    <message>
        <source>Keep…</source>
        <translation>Behalten …</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Bleiben</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>Entpacken</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>1 Byte</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>Eine weitere Datei konnte auch nicht hinzugefügt werden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>%Ln weitere Datei konnte auch nicht hinzugefügt werden.</numerusform>
            <numerusform>%Ln weitere Dateien konnten auch nicht hinzugefügt werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>Der Speicher ist voll. Schaffe Platz und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>Das Laufwerk, auf dem %1 liegt, meldet einen Fehler. Prüfe das Laufwerk und sein Kabel.</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>Das Laufwerk oder der Netzwerkordner, in dem %1 liegt, antwortet nicht. Verbinde es neu und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>Auf diesem Gerät sind zu viele Dateien geöffnet. Schließe andere Programme und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1 wird gerade benutzt. Schließe das Programm, das die Datei benutzt, und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>Der Name von %1 ist zu lang für dieses Laufwerk.</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1 ist nicht mehr da. Die Datei wurde vielleicht verschoben, umbenannt oder gelöscht.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>Du darfst %1 nicht lesen. Ändere die Zugriffsrechte oder frage den Eigentümer.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 ist ein Ordner, keine Datei.</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>Das Laufwerk ist schreibgeschützt. Hebe den Schutz auf oder nimm ein anderes.</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>Du darfst nicht in den Ordner dieser App schreiben. Prüfe seine Zugriffsrechte.</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1 ist größer, als eine Datei auf diesem Laufwerk sein darf.</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>Für %1 gibt es keinen Ordner mehr. Versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>Der Inhalt von %1 konnte nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>Für den Inhalt von %1 ist nicht genug Platz. Lösche, was du nicht brauchst, und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>Der Platz reicht nicht: %1 werden gebraucht, %2 sind frei.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1 ist weder Datei noch Ordner und kann nicht gepackt werden.</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1 wurde inzwischen geändert. Warte, bis nichts mehr hineinschreibt, und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1 ist keine Datei auf diesem Gerät. Kopiere sie hierher und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1 wurde beim Herunterladen oder Kopieren abgeschnitten. Besorge die Datei noch einmal.</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1 ist beschädigt: Das Inhaltsverzeichnis fehlt. Besorge die Datei noch einmal.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1 ist ein Teil eines mehrteiligen Archivs, dessen Teile nicht zusammenpassen. Besorge sie noch einmal.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1 ist ein Teil eines mehrteiligen Archivs, und %2 fehlt. Lege alle Teile in einen Ordner und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1 ist kein ZIP-Archiv. Wenn es eines sein sollte, besorge es noch einmal.</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>Etwas mit dem Namen %1 ist schon da und kann nicht ersetzt werden. Wähle einen anderen Namen.</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>In %1 liegen zwei Dinge, deren Namen dieses Laufwerk nicht unterscheiden kann: %2.</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2 ist in %1 zugleich Datei und Ordner, was kein Laufwerk speichern kann.</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%2 in %1 verweist auf einen Ort außerhalb des Archivs. Zu deiner Sicherheit wurde nichts entpackt.</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1 würde %2 an einen Ort legen, den du nicht gewählt hast. Zu deiner Sicherheit wurde nichts entpackt.</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1 braucht mehr Arbeitsspeicher, als dieses Gerät hat. Schließe andere Programme oder nimm ein größeres Gerät.</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1 ist mit einem Passwort geschützt. Ohne das Passwort wurde nichts entpackt.</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>Das Passwort passt nicht zu %1. Prüfe es und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>Für Passwörter fehlt auf diesem Gerät eine Bibliothek. Installiere das Paket libnettle und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1 ist so gepackt, dass diese Version es nicht öffnen kann. Bitte um ein gewöhnliches ZIP-Archiv.</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1 ist beschädigt. Besorge die Datei noch einmal.</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%2 in %1 ist beschädigt. Besorge das Archiv noch einmal.</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1 widerspricht sich selbst, als hätte jemand Böses vor. Nimm es nur aus einer Quelle, der du vertraust.</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>Wie gefällt dir Pellumar Zip?</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>%1 teilen</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>Der Ordner wird gelesen …</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>Dieser Ordner kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>In diesem Ordner sind keine Ordner</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>Hier gibt es nichts zur Auswahl</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>Hinauf zu %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>Archiv wird erstellt</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>Das Archiv wurde nicht behalten</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>Beim nächsten Start der App ist es weg.</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>Du hast %1 in einer anderen App geändert. Die Änderung liegt in %2.</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>Du hast %Ln Datei in anderen Apps geändert: %1. Sie liegt in %2.</numerusform>
            <numerusform>Du hast %Ln Dateien in anderen Apps geändert: %1. Sie liegen in %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>Versteckte anzeigen</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>Archive im Nu öffnen, hier oder aus jeder anderen App</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Dateien, Fotos und Videos in ein Archiv packen</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>Das Ergebnis teilen, einzeln oder alles zusammen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PasswordField</name>
    <message>
        <source>Hide the password</source>
        <translation>Passwort verbergen</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>Passwort anzeigen</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>Passwort nötig</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 ist mit einem Passwort geschützt.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>Das ist nicht das Passwort.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>Ausgewählt (%1)</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>Remarks</name>
    <message>
        <source>There is something in front of the archive that is no part of it. It was passed over.</source>
        <translation>Vor dem Archiv steht etwas, das nicht dazugehört. Es wurde übergangen.</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>Hinter dem Archiv steht etwas, das nicht dazugehört. Es wurde übergangen.</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1 ist mehrmals im Archiv. Das letzte wurde genommen.</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>Die Buchstaben des Namens %1 sind geraten.</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1 war keine gewöhnliche Datei, wurde aber als solche entpackt.</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1 verlangte besondere Rechte und hat sie nicht bekommen.</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1 hat Zeit oder Zugriffsrechte nicht zurückbekommen.</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>Das Archiv enthält etwas, das nicht in seinem Inhaltsverzeichnis steht. Es wurde übergangen.</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>Der Name %1 würde auf anderen Systemen woanders hinführen und wurde etwas geändert.</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>Es gab noch ein %1, darum bekam dieses eine Nummer.</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>Das Archiv ist beschädigt. Von %2 gefundenen Objekten sind %1 heil.</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>Das Inhaltsverzeichnis fehlt, also weiß niemand, ob noch mehr darin war.</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>Etwas, dessen Name nicht lesbar ist, ist verloren.</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>%1 ist verloren.</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>Und %Ln weiteres.</numerusform>
            <numerusform>Und %Ln weitere.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>Details kopieren</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>Alles sichern …</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>In %1 gesichert</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>In Dateien zeigen</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>Der Inhalt von %1 ist noch offen: „Zurück“ führt dorthin.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Anzeigen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln versteckte Datei steht nicht in der Liste, wird aber mitgesichert.</numerusform>
            <numerusform>%Ln versteckte Dateien stehen nicht in der Liste, werden aber mitgesichert.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>Wird gesichert</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln Datei</numerusform>
            <numerusform>%Ln Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>%1 in %2 gesichert</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>In %1 ist nicht genug Platz</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 ist nicht mehr da</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>In %1 kann nichts gesichert werden. Wähle einen anderen Ordner.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>%1 konnte nicht gesichert werden: %2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>Nutzungsdaten senden</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>Welche Tasten benutzt werden und ob Archive gelesen oder erstellt werden konnten. Nie, was darin ist. Ausgeschaltet wird nichts davon gespeichert oder gesendet. Früher Gespeichertes kann noch gesendet werden.</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>Mehr erfahren</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>Was gespeichert ist …</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>Mehr von uns</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>Unsere anderen Apps</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>Keine App öffnet diese Datei</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>Keine App für E-Mail</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 konnte nicht gestartet werden</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>Öffnen mit …</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>In Dateien zeigen</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>Die Dateiverwaltung konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>Sichern in …</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ShownName</name>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>%Ln Stern</numerusform>
            <numerusform>%Ln Sterne</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TabTitles</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>Packen/Entpacken</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>Details kopieren</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Neuer Ordner</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>Bereiche</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>Alles in diesem Archiv ist versteckt</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>In diesem Archiv war nichts</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>Was gespeichert ist</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Alles kopieren</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>„Entpacken“ wurde angetippt</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>„Packen“ wurde angetippt</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>„Dateien“ wurde angetippt</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>„Fotos“ wurde angetippt</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>Ein Archiv kam aus einer anderen App</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>Ein Archiv wurde erstellt</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>Ein Archiv konnte nicht erstellt werden</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>Ein Archiv wurde entpackt</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>Ein Archiv konnte nicht entpackt werden</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>Die Einführung wurde gezeigt</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>Die Einführung wurde verlassen</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>Die App wurde bewertet</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>„Mehr von uns“ wurde angetippt</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>Kein Ereignis wartet auf das Senden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln Ereignis. Es bleibt auf diesem Gerät, bis es gesendet wird.</numerusform>
            <numerusform>%Ln Ereignisse. Sie bleiben auf diesem Gerät, bis sie gesendet werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>Diese Installation</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>Keine Kennung</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>Eine wird erfunden, sobald ein Ereignis gespeichert wird.</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1. Erfunden; steht bei jedem Ereignis.</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sitzungen</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1, die letzte am %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>Eigenschaften, die bei jedem Ereignis stehen</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>Gruppen, zu denen diese Installation gehört</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>Was verloren ging, nach Grund</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>Das Gespeicherte kann nicht gelesen werden.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln Mal</numerusform>
            <numerusform>%Ln Mal</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>Wie oft, was nicht gesendet wird</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Ereignisse</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>Was soll es sein?</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>Deine Dateien bleiben auf diesem Gerät.</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>Entpacken</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>Ein Archiv öffnen und den Inhalt herausnehmen</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>Packen</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Dateien, Fotos und Videos in ein Archiv packen</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>Wo ist, was ins Archiv soll?</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>Alles auf diesem Gerät, viele auf einmal</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>Fotos und Videos</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>Aus den Ordnern „Bilder“ und „Videos“</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln ausgewählt</numerusform>
            <numerusform>%Ln ausgewählt</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 von %L2</translation>
    </message>
</context>
<context>
    <name>pellumar::ConfirmationPopupViewController</name>
    <message>
        <source>Do you want to unzip %1?</source>
        <translation>Möchtest du %1 entpacken?</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>1 Datei anderer Art</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln Datei anderer Art</numerusform>
            <numerusform>%Ln Dateien anderer Art</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>1 verstecktes Objekt</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln verstecktes Objekt</numerusform>
            <numerusform>%Ln versteckte Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>%1 und %2 werden nicht angezeigt</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>%1 wird nicht angezeigt</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>%1 werden nicht angezeigt</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>Die Endung von „%1“ ist großgeschrieben. Benenne die Datei so um, dass sie auf „.zip“ endet, und öffne sie noch einmal.</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>„%1“ heißt nicht wie ein ZIP-Archiv. Wenn es eines ist, lass den Namen auf „.zip“ enden; andere Archive brauchen eine andere App.</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>„%1“ kommt als Nächstes, wenn dies fertig ist</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>%Ln Archiv kommt als Nächstes, wenn dies fertig ist</numerusform>
            <numerusform>%Ln Archive kommen als Nächstes, wenn dies fertig ist</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>Das lässt sich nicht entpacken</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>pellumar::Notice</name>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>Persönlich</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Videos</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>Nicht alles konnte gerettet werden</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln Hinweis</numerusform>
            <numerusform>%Ln Hinweise</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>Was heil ist, steht in der Liste.</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>Das Archiv wurde trotzdem geöffnet.</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>%1 konnte nicht weitergegeben werden: %2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>Nichts zu teilen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Einen Moment …</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>Diese Datei ist nicht mehr da.</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>Diese Dateien sind nicht mehr da.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>%Ln weitere nicht mehr da</numerusform>
            <numerusform>%Ln weitere nicht mehr da</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>Dieser Ordner konnte nicht ganz gelesen werden</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>Ein Name hat keinen Schrägstrich</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>Länger darf ein Name nicht sein</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Anlegen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>Ein Ordner kann nicht %1 heißen</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>%1 konnte nicht angelegt werden: %2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Wird kopiert</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>Konnte nicht geöffnet werden: %1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>Sichern in</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>Archiv wählen</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>Dateien wählen</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>Hier sichern</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>Wählen (%L1)</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>Entpackte Dateien</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>Alle teilen</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln verstecktes Objekt</numerusform>
            <numerusform>%Ln versteckte Objekte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln Objekt</numerusform>
            <numerusform>%Ln Objekte</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>Entpackte Dateien</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>Nichts wurde behalten</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>Wenn du gehst, ist das Entpackte weg.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Gehen</translation>
    </message>
</context>
<context>
    <name>pellumar::ViewController</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>Packen/Entpacken</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Dateien werden komprimiert</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>Ein Archiv wird entpackt</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>Wird entpackt</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>Heiles retten</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>Wird gerettet</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>Gefällt dir Pellumar Zip?</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>Eine Bewertung im Software-Center hilft anderen, die App zu finden.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Bewerten</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>Dateien packen</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>Medien werden geholt</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>Lass die App geöffnet</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>Die Objekte konnten nicht geholt werden. Prüfe die Internetverbindung und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Dateien werden komprimiert</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>Bilder packen</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>Bilder werden komprimiert</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>Bitte gib deiner ZIP-Datei einen Titel</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>Ein Titel darf keinen Schrägstrich haben.</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>Länger darf ein Titel nicht sein.</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>Passwort hinzufügen …</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>Wer das Archiv öffnet, braucht es. Namen und Größen sind auch ohne es zu sehen.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
