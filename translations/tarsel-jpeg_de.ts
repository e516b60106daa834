<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>AcquiredPages</name>
    <message>
        <source>%1: another program has made a file of this name, which is kept. Choose another name, and scan the page again.</source>
        <translation>%1: Ein anderes Programm hat eine Datei dieses Namens angelegt, die erhalten bleibt. Wählen Sie einen anderen Namen, und scannen Sie die Seite noch einmal.</translation>
    </message>
</context>
<context>
    <name>AlbumGenerator</name>
    <message>
        <source>Working with - %1</source>
        <translation>In Arbeit – %1</translation>
    </message>
    <message>
        <source>%1 is a link to a folder that may be outside the album</source>
        <translation>%1 ist eine Verknüpfung zu einem Ordner, der außerhalb des Albums liegen kann</translation>
    </message>
</context>
<context>
    <name>AlbumNames</name>
    <message>
        <source>it contains %1</source>
        <translation>er enthält %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is too long for a file name</source>
        <translation>„%1“ ist für einen Dateinamen zu lang</translation>
    </message>
    <message>
        <source>the album has no folder</source>
        <translation>das Album hat keinen Ordner</translation>
    </message>
    <message>
        <source>the album title &quot;%1&quot; can&apos;t be part of a file name: %2</source>
        <translation>der Albumtitel „%1“ kann nicht Teil eines Dateinamens sein: %2</translation>
    </message>
    <message>
        <source>row %1, &quot;%2&quot;, can&apos;t be part of a file name: %3</source>
        <translation>Zeile %1, „%2“, kann nicht Teil eines Dateinamens sein: %3</translation>
    </message>
</context>
<context>
    <name>AlbumRows</name>
    <message>
        <source>is a link to a file that may be outside the album</source>
        <translation>ist eine Verknüpfung zu einer Datei, die außerhalb des Albums liegen kann</translation>
    </message>
    <message>
        <source>the page has no metadata: %1</source>
        <translation>die Seite hat keine Metadaten: %1</translation>
    </message>
</context>
<context>
    <name>AlbumUpdate</name>
    <message>
        <source>removed: the album no longer needs it</source>
        <translation>entfernt: Das Album braucht sie nicht mehr</translation>
    </message>
    <message>
        <source>not needed, and kept: it was changed since, or is a source</source>
        <translation>nicht gebraucht und behalten: Sie wurde seither geändert oder ist eine Quelle</translation>
    </message>
    <message>
        <source>not part of the album, and kept: no run recorded it</source>
        <translation>gehört nicht zum Album und wurde behalten: Kein Lauf hat sie verzeichnet</translation>
    </message>
</context>
<context>
    <name>Basket</name>
    <message>
        <source>File Name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>New Basket</source>
        <translation>Neuer Korb</translation>
    </message>
    <message>
        <source>%1 file(s) in basket</source>
        <translation>%1 Datei(en) im Korb</translation>
    </message>
    <message>
        <source>Adding file to basket - &apos;%1&apos;</source>
        <translation>Datei wird in den Korb gelegt – „%1“</translation>
    </message>
    <message>
        <source>Please wait... extracting multipage document - &apos;%3&apos; Pages %1 of %2</source>
        <translation>Bitte warten ... Mehrseitiges Dokument wird zerlegt – „%3“ Seite %1 von %2</translation>
    </message>
    <message>
        <source>Please wait... extracting multipage file - &apos;%3&apos; Pages %1 of %2</source>
        <translation>Bitte warten ... Mehrseitige Datei wird zerlegt – „%3“ Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>BasketActions</name>
    <message>
        <source>Image basket formats (*.ibf;*.ibd)|*.ibf;*.ibd|Image basket file (*.ibf)|*.ibf|Image basket description file (*.ibd)|*.ibd|</source>
        <translation>Bildkorbformate (*.ibf;*.ibd)|*.ibf;*.ibd|Bildkorbdatei (*.ibf)|*.ibf|Bildkorb mit Beschreibungen (*.ibd)|*.ibd|</translation>
    </message>
    <message>
        <source>There are currently files in the Basket!.
Do you want to continue?</source>
        <translation>Im Korb liegen noch Dateien.
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Descriptions are kept only in an image basket description file (*.ibd).
Do you want to save the list without them?</source>
        <translation>Beschreibungen bleiben nur in einem Bildkorb mit Beschreibungen (*.ibd) erhalten.
Möchten Sie die Liste ohne sie speichern?</translation>
    </message>
    <message>
        <source>Open Basket</source>
        <translation>Korb öffnen</translation>
    </message>
    <message>
        <source>Error opening image list!
Please select a valid image list file.</source>
        <translation>Die Bilderliste konnte nicht geöffnet werden!
Bitte wählen Sie eine gültige Bilderliste.</translation>
    </message>
    <message>
        <source>Save Basket</source>
        <translation>Korb speichern</translation>
    </message>
    <message>
        <source>Error saving image list!
Please try again!</source>
        <translation>Die Bilderliste konnte nicht gespeichert werden!
Bitte versuchen Sie es noch einmal.</translation>
    </message>
</context>
<context>
    <name>BasketFile</name>
    <message>
        <source>%1: this kind of list can&apos;t hold a name with a double quote</source>
        <translation>%1: Diese Art von Liste kann keinen Namen mit einem Anführungszeichen aufnehmen</translation>
    </message>
    <message>
        <source>%1: this kind of list can&apos;t hold a name with a line break</source>
        <translation>%1: Diese Art von Liste kann keinen Namen mit einem Zeilenumbruch aufnehmen</translation>
    </message>
    <message>
        <source>%1, line %2 holds no path</source>
        <translation>%1, Zeile %2 enthält keinen Pfad</translation>
    </message>
    <message>
        <source>%1, record %2: %3</source>
        <translation>%1, Datensatz %2: %3</translation>
    </message>
    <message>
        <source>There are no pictures in the basket.</source>
        <translation>Im Korb sind keine Bilder.</translation>
    </message>
</context>
<context>
    <name>BmpReader</name>
    <message>
        <source>compression %1 of %2 bits is not supported</source>
        <translation>Kompression %1 mit %2 Bit wird nicht unterstützt</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
    <message>
        <source>pixel data starts past the end of the file</source>
        <translation>die Bilddaten beginnen hinter dem Ende der Datei</translation>
    </message>
</context>
<context>
    <name>BmpWriter</name>
    <message>
        <source>BMP encoder: the picture is larger than 4 GB</source>
        <translation>BMP-Kodierer: Das Bild ist größer als 4 GB</translation>
    </message>
</context>
<context>
    <name>BuildFacts</name>
    <message>
        <source>windows, texts, files</source>
        <translation>Fenster, Texte, Dateien</translation>
    </message>
    <message>
        <source>JPEG files</source>
        <translation>JPEG-Dateien</translation>
    </message>
    <message>
        <source>PNG files</source>
        <translation>PNG-Dateien</translation>
    </message>
    <message>
        <source>TIFF files</source>
        <translation>TIFF-Dateien</translation>
    </message>
    <message>
        <source>colour profiles</source>
        <translation>Farbprofile</translation>
    </message>
    <message>
        <source>PDF files</source>
        <translation>PDF-Dateien</translation>
    </message>
    <message>
        <source>letters in metafiles</source>
        <translation>Buchstaben in Metadateien</translation>
    </message>
    <message>
        <source>fonts of metafiles</source>
        <translation>Schriften von Metadateien</translation>
    </message>
    <message>
        <source>locks the process that draws metafiles</source>
        <translation>sperrt den Prozess ein, der Metadateien zeichnet</translation>
    </message>
    <message>
        <source>pictures of the screen</source>
        <translation>Bildschirmfotos</translation>
    </message>
    <message>
        <source>printers</source>
        <translation>Drucker</translation>
    </message>
    <message>
        <source>scanners</source>
        <translation>Scanner</translation>
    </message>
    <message>
        <source>letters in greetings</source>
        <translation>Buchstaben in Grußbildern</translation>
    </message>
    <message>
        <source>font of greetings</source>
        <translation>Schrift der Grußbilder</translation>
    </message>
</context>
<context>
    <name>CaptureCommand</name>
    <message>
        <source>--region takes X,Y,W,H, not &quot;%1&quot;</source>
        <translation>--region erwartet X,Y,W,H, nicht „%1“</translation>
    </message>
    <message>
        <source>there is no monitor &quot;%1&quot;; --list names them</source>
        <translation>es gibt keinen Bildschirm „%1“; --list nennt sie</translation>
    </message>
    <message>
        <source>--region %1 is not within %2 x %3 pixels</source>
        <translation>--region %1 liegt nicht innerhalb von %2 x %3 Pixeln</translation>
    </message>
    <message>
        <source>%1: %2 x %3 at %4,%5</source>
        <translation>%1: %2 x %3 bei %4,%5</translation>
    </message>
    <message>
        <source>tarsel: the window manager can&apos;t clear the desktop of windows</source>
        <translation>tarsel: Der Fenstermanager kann die Fenster nicht vom Desktop räumen</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: its extension is not that of a format that can be written</source>
        <translation>„%1“: Die Endung gehört zu keinem Format, das geschrieben werden kann</translation>
    </message>
    <message>
        <source>unexpected &quot;%1&quot;</source>
        <translation>unerwartet: „%1“</translation>
    </message>
    <message>
        <source>%1: %2 x %3 pixels</source>
        <translation>%1: %2 x %3 Pixel</translation>
    </message>
    <message>
        <source>--kind is desktop, foreground or background, not &quot;%1&quot;</source>
        <translation>--kind ist desktop, foreground oder background, nicht „%1“</translation>
    </message>
    <message>
        <source>the desktop does not list its monitors</source>
        <translation>der Desktop zählt seine Bildschirme nicht auf</translation>
    </message>
</context>
<context>
    <name>CodecChecks</name>
    <message>
        <source>%1 file %2: %3</source>
        <translation>%1-Datei %2: %3</translation>
    </message>
    <message>
        <source>a size of %1 x %2 pixels</source>
        <translation>eine Größe von %1 x %2 Pixeln</translation>
    </message>
    <message>
        <source>%1 x %2 pixels exceed the limit of %3 million pixels</source>
        <translation>%1 x %2 Pixel überschreiten die Grenze von %3 Millionen Pixeln</translation>
    </message>
    <message>
        <source>claims %1 x %2 pixels, but has only %3 bytes</source>
        <translation>gibt %1 x %2 Pixel an, hat aber nur %3 Bytes</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>size of thumbnails, 30 to 300 (default: 150x150)</source>
        <translation>Größe der Miniaturen, 30 bis 300 (Vorgabe: 150x150)</translation>
    </message>
    <message>
        <source>of all texts (default: Arial)</source>
        <translation>aller Texte (Vorgabe: Arial)</translation>
    </message>
    <message>
        <source>show these lines of metadata on each page</source>
        <translation>diese Zeilen mit Metadaten auf jeder Seite zeigen</translation>
    </message>
    <message>
        <source>run this task list on every picture</source>
        <translation>diese Aufgabenliste auf jedes Bild anwenden</translation>
    </message>
    <message>
        <source>turn pictures by their EXIF orientation before the tasks run</source>
        <translation>Bilder vor den Aufgaben nach ihrer EXIF-Ausrichtung drehen</translation>
    </message>
    <message>
        <source>one JSON object a line: row, source, target, state, reason</source>
        <translation>ein JSON-Objekt je Zeile: row, source, target, state, reason</translation>
    </message>
    <message>
        <source>--%1 is %2, not &quot;%3&quot;</source>
        <translation>--%1 ist %2, nicht „%3“</translation>
    </message>
    <message>
        <source>--thumbnail takes WxH, not &quot;%1&quot;</source>
        <translation>--thumbnail erwartet WxH, nicht „%1“</translation>
    </message>
    <message>
        <source>--originals would publish what --strip-private leaves out</source>
        <translation>--originals würde veröffentlichen, was --strip-private weglässt</translation>
    </message>
    <message>
        <source>--originals needs --template modern</source>
        <translation>--originals braucht --template modern</translation>
    </message>
    <message>
        <source>Make a web album of a basket, or of pictures.</source>
        <translation>Erstellt ein Webalbum aus einem Korb oder aus Bildern.</translation>
    </message>
    <message>
        <source>the task list; required</source>
        <translation>die Aufgabenliste; erforderlich</translation>
    </message>
    <message>
        <source>turn the picture by its EXIF orientation before the tasks run</source>
        <translation>das Bild vor den Aufgaben nach seiner EXIF-Ausrichtung drehen</translation>
    </message>
    <message>
        <source>one JSON object: row, source, target, state, reason</source>
        <translation>ein JSON-Objekt: row, source, target, state, reason</translation>
    </message>
    <message>
        <source>%1: the extension is not that of a format that can be written (%2)</source>
        <translation>%1: Die Endung gehört zu keinem Format, das geschrieben werden kann (%2)</translation>
    </message>
    <message>
        <source>the task list ended early, nothing was written: %1</source>
        <translation>die Aufgabenliste endete vorzeitig, nichts wurde geschrieben: %1</translation>
    </message>
    <message>
        <source>expected IN OUT</source>
        <translation>erwartet: IN OUT</translation>
    </message>
    <message>
        <source>Replay a task list on one picture; OUT&apos;s extension names the format.</source>
        <translation>Wendet eine Aufgabenliste auf ein Bild an; die Endung von OUT nennt das Format.</translation>
    </message>
    <message>
        <source>Metadata is kept where the format can hold it. Nothing is written when a task fails.</source>
        <translation>Metadaten bleiben erhalten, wo das Format sie aufnehmen kann. Schlägt eine Aufgabe fehl, wird nichts
geschrieben.</translation>
    </message>
    <message>
        <source>unknown option %1</source>
        <translation>unbekannte Option %1</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 ist doppelt angegeben</translation>
    </message>
    <message>
        <source>%1 takes no value</source>
        <translation>%1 hat keinen Wert</translation>
    </message>
    <message>
        <source>%1 needs a value: %2</source>
        <translation>%1 braucht einen Wert: %2</translation>
    </message>
    <message>
        <source>--%1 takes an integer from %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 erwartet eine ganze Zahl von %2 bis %3, nicht „%4“</translation>
    </message>
    <message>
        <source>--%1 is missing</source>
        <translation>--%1 fehlt</translation>
    </message>
    <message>
        <source>--%1 is one of %2, not &quot;%3&quot;</source>
        <translation>--%1 ist eines von %2, nicht „%3“</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; is not a colour such as FF8000</source>
        <translation>--%1: „%2“ ist keine Farbe wie FF8000</translation>
    </message>
    <message>
        <source>add, save: description of the pictures, kept by a .ibd basket without its double quotes</source>
        <translation>add, save: Beschreibung der Bilder; ein .ibd-Korb behält sie ohne ihre Anführungszeichen</translation>
    </message>
    <message>
        <source>list: one JSON object a line: row, name, path, source, resolution, size, type, description</source>
        <translation>list: ein JSON-Objekt je Zeile: row, name, path, source, resolution, size, type, description</translation>
    </message>
    <message>
        <source>%1: an empty basket is not written</source>
        <translation>%1: Ein leerer Korb wird nicht geschrieben</translation>
    </message>
    <message>
        <source>list takes one basket</source>
        <translation>list erwartet einen Korb</translation>
    </message>
    <message>
        <source>no picture given</source>
        <translation>kein Bild angegeben</translation>
    </message>
    <message>
        <source>%1 doesn&apos;t take that option</source>
        <translation>%1 hat diese Option nicht</translation>
    </message>
    <message>
        <source>%1: a basket file ends in .ibf or .ibd</source>
        <translation>%1: Eine Korbdatei endet auf .ibf oder .ibd</translation>
    </message>
    <message>
        <source>%1: only a .ibd basket keeps descriptions</source>
        <translation>%1: Nur ein .ibd-Korb behält Beschreibungen</translation>
    </message>
    <message>
        <source>expected list, add or save, and a basket</source>
        <translation>erwartet: list, add oder save und ein Korb</translation>
    </message>
    <message>
        <source>List a basket file, add pictures to it, or make one.</source>
        <translation>Zeigt eine Korbdatei an, fügt Bilder hinzu oder erstellt eine.</translation>
    </message>
    <message>
        <source>BASKET is a .ibf file (paths) or a .ibd file (paths and descriptions). save replaces an old file.
A path that the basket has already is not added again.</source>
        <translation>BASKET ist eine .ibf-Datei (Pfade) oder eine .ibd-Datei (Pfade und Beschreibungen). save ersetzt eine
alte Datei. Ein Pfad, den der Korb schon hat, kommt nicht noch einmal hinein.</translation>
    </message>
    <message>
        <source>no basket and no picture given</source>
        <translation>kein Korb und kein Bild angegeben</translation>
    </message>
    <message>
        <source>%1: a basket file is the only operand</source>
        <translation>%1: Eine Korbdatei steht allein</translation>
    </message>
    <message>
        <source>%1: not a readable basket file</source>
        <translation>%1: keine lesbare Korbdatei</translation>
    </message>
    <message>
        <source>put the files there; made when missing (default: the current folder)</source>
        <translation>die Dateien dort ablegen; wird bei Bedarf angelegt (Vorgabe: der aktuelle Ordner)</translation>
    </message>
    <message>
        <source>put each file beside its source</source>
        <translation>jede Datei neben ihre Quelle legen</translation>
    </message>
    <message>
        <source>keep (default): the source&apos;s name; hybrid: prefix, name, suffix; generic: name and count</source>
        <translation>keep (Vorgabe): Name der Quelle; hybrid: Präfix, Name, Suffix; generic: Name und Nummer</translation>
    </message>
    <message>
        <source>hybrid: before the name, a text or a token such as &quot;[EXIF Date]&quot;</source>
        <translation>hybrid: vor dem Namen, ein Text oder Platzhalter wie &quot;[EXIF Date]&quot;</translation>
    </message>
    <message>
        <source>hybrid: after the name, a text or a token</source>
        <translation>hybrid: nach dem Namen, ein Text oder Platzhalter</translation>
    </message>
    <message>
        <source>hybrid: between prefix and name, &quot;[WhiteSpace]&quot;, &quot;[No Separator]&quot; (default: _)</source>
        <translation>hybrid: zwischen Präfix und Name, &quot;[WhiteSpace]&quot;, &quot;[No Separator]&quot; (Vorgabe: _)</translation>
    </message>
    <message>
        <source>hybrid: between name and suffix (default: _)</source>
        <translation>hybrid: zwischen Name und Suffix (Vorgabe: _)</translation>
    </message>
    <message>
        <source>generic: the name (default: Sample)</source>
        <translation>generic: der Name (Vorgabe: Sample)</translation>
    </message>
    <message>
        <source>generic: first number, &quot;[Starting 1]&quot; or &quot;[Starting 1001]&quot; (default: 1)</source>
        <translation>generic: erste Nummer, &quot;[Starting 1]&quot; oder &quot;[Starting 1001]&quot; (Vorgabe: 1)</translation>
    </message>
    <message>
        <source>of the JPEG files (default: 80)</source>
        <translation>der JPEG-Dateien (Vorgabe: 80)</translation>
    </message>
    <message>
        <source>progressive JPEG</source>
        <translation>progressives JPEG</translation>
    </message>
    <message>
        <source>8 bit grayscale</source>
        <translation>Graustufen mit 8 Bit</translation>
    </message>
    <message>
        <source>skip rows whose file exists</source>
        <translation>Zeilen überspringen, deren Datei schon existiert</translation>
    </message>
    <message>
        <source>set these EXIF attributes in every file</source>
        <translation>diese EXIF-Attribute in jede Datei setzen</translation>
    </message>
    <message>
        <source>replace the IPTC data of every file by these</source>
        <translation>die IPTC-Daten jeder Datei durch diese ersetzen</translation>
    </message>
    <message>
        <source>leave out GPS positions, serial numbers and makers&apos; own data</source>
        <translation>GPS-Positionen, Seriennummern und herstellereigene Daten weglassen</translation>
    </message>
    <message>
        <source>do these rows only, numbered as in the full basket</source>
        <translation>nur diese Zeilen, nummeriert wie im ganzen Korb</translation>
    </message>
    <message>
        <source>do everything but write</source>
        <translation>alles tun außer schreiben</translation>
    </message>
    <message>
        <source>%1 is a source and would be replaced: say where the files go with --out or --source-folder</source>
        <translation>%1 ist eine Quelle und würde ersetzt: Geben Sie mit --out oder --source-folder an, wohin die Dateien sollen</translation>
    </message>
    <message>
        <source>tarsel: made the folder %1</source>
        <translation>tarsel: Ordner %1 angelegt</translation>
    </message>
    <message>
        <source>Save a basket, or pictures, as JPEG files.</source>
        <translation>Speichert einen Korb oder Bilder als JPEG-Dateien.</translation>
    </message>
    <message>
        <source>A file of the same name is replaced in one step: at any moment it is the old or the new one.
A source that another row still needs is never replaced: the row is skipped. Two rows that end
in one file are reported, and the exit status is 1. An error ends the run; the rows after it are
skipped as &quot;not reached&quot;. SIGINT or SIGTERM ends it after the current file.
With --max-size a JPEG that is small enough, and that no task changes, is copied with its metadata.
Each page of a document is a row of its own. Settings stay from picture to picture, such as the
back colour that a task set: with --rows a list can make other pictures than in a full run.</source>
        <translation>Eine Datei gleichen Namens wird in einem Schritt ersetzt: Sie ist jederzeit die alte oder die neue.
Eine Quelle, die eine andere Zeile noch braucht, wird nie ersetzt: Die Zeile wird übersprungen. Zwei
Zeilen, die in derselben Datei enden, werden gemeldet, und der Exit-Status ist 1. Ein Fehler beendet
den Lauf; die Zeilen danach werden als „nicht erreicht“ übersprungen. SIGINT oder SIGTERM beendet ihn
nach der aktuellen Datei. Mit --max-size wird ein JPEG, das klein genug ist und das keine Aufgabe
ändert, samt Metadaten kopiert. Jede Seite eines Dokuments ist eine eigene Zeile. Einstellungen
bleiben von Bild zu Bild bestehen, etwa die Hintergrundfarbe einer Aufgabe: Mit --rows kann eine
Liste andere Bilder ergeben als in einem vollen Lauf.</translation>
    </message>
    <message>
        <source>--name is keep, hybrid or generic, not &quot;%1&quot;</source>
        <translation>--name ist keep, hybrid oder generic, nicht „%1“</translation>
    </message>
    <message>
        <source>--%1 goes with --name %2</source>
        <translation>--%1 gehört zu --name %2</translation>
    </message>
    <message>
        <source>--%1 can&apos;t hold a &quot;/&quot;: %2</source>
        <translation>--%1 kann kein „/“ enthalten: %2</translation>
    </message>
    <message>
        <source>--count takes a number, &quot;%1&quot; or &quot;%2&quot;, not &quot;%3&quot;</source>
        <translation>--count erwartet eine Zahl, „%1“ oder „%2“, nicht „%3“</translation>
    </message>
    <message>
        <source>--out and --source-folder exclude each other</source>
        <translation>--out und --source-folder schließen einander aus</translation>
    </message>
    <message>
        <source>--source-folder goes with --name keep or hybrid</source>
        <translation>--source-folder gehört zu --name keep oder hybrid</translation>
    </message>
    <message>
        <source>--rows takes A-B with rows from 1, not &quot;%1&quot;</source>
        <translation>--rows erwartet A-B mit Zeilen ab 1, nicht „%1“</translation>
    </message>
    <message>
        <source>--rows ends before it begins: %1</source>
        <translation>--rows endet vor seinem Anfang: %1</translation>
    </message>
    <message>
        <source>Try &quot;tarsel %1--help&quot;.</source>
        <translation>Hilfe: „tarsel %1--help“.</translation>
    </message>
    <message>
        <source>no command given</source>
        <translation>kein Befehl angegeben</translation>
    </message>
    <message>
        <source>Commands of tarsel %1:
%2</source>
        <translation>Befehle von tarsel %1:
%2</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>unbekannter Befehl „%1“</translation>
    </message>
    <message>
        <source>
Results go to standard output, messages to standard error.
Exit status: 0 all done, 1 something not done, 2 wrong usage, 130 interrupted.
</source>
        <translation>
Ergebnisse gehen an die Standardausgabe, Meldungen an die Standardfehlerausgabe.
Exit-Status: 0 alles erledigt, 1 nicht alles erledigt, 2 falscher Aufruf, 130 abgebrochen.
</translation>
    </message>
    <message>
        <source>show this text</source>
        <translation>diesen Text zeigen</translation>
    </message>
    <message>
        <source>Usage: tarsel %1 [OPTION]... %2

%3

Options:
%4
%5
</source>
        <translation>Aufruf: tarsel %1 [OPTION]... %2

%3

Optionen:
%4
%5
</translation>
    </message>
    <message>
        <source>row %1: a quote without its end</source>
        <translation>Zeile %1: ein Anführungszeichen ohne Ende</translation>
    </message>
    <message>
        <source>the current folder no longer exists: %1</source>
        <translation>der aktuelle Ordner existiert nicht mehr: %1</translation>
    </message>
    <message>
        <source>the name of a file is empty</source>
        <translation>ein Dateiname ist leer</translation>
    </message>
    <message>
        <source>%1: a name that is not UTF-8 can&apos;t be written</source>
        <translation>%1: Ein Name, der nicht UTF-8 ist, kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>--%1 doesn&apos;t go with --style %2</source>
        <translation>--%1 passt nicht zu --style %2</translation>
    </message>
    <message>
        <source>expected one PICTURE</source>
        <translation>erwartet: ein PICTURE</translation>
    </message>
    <message>
        <source>--text is longer than 65535 bytes</source>
        <translation>--text ist länger als 65535 Bytes</translation>
    </message>
    <message>
        <source>one JSON object a line for each picture</source>
        <translation>ein JSON-Objekt je Zeile für jedes Bild</translation>
    </message>
    <message>
        <source>Show header data, decoded size and depth, pages, EXIF and IPTC of pictures.</source>
        <translation>Zeigt Kopfdaten, dekodierte Größe und Farbtiefe, Seiten, EXIF und IPTC von Bildern.</translation>
    </message>
    <message>
        <source>A picture that can&apos;t be read is reported as failed and doesn&apos;t stop the others. One that could be read
in part is reported as damaged; the exit status is 1 for both.</source>
        <translation>Ein Bild, das nicht gelesen werden kann, wird als fehlgeschlagen gemeldet und hält die anderen nicht
auf. Eines, das nur zum Teil lesbar ist, wird als beschädigt gemeldet; der Exit-Status ist in beiden
Fällen 1.</translation>
    </message>
    <message>
        <source>expected one FILE</source>
        <translation>erwartet: eine FILE</translation>
    </message>
    <message>
        <source>%1: no pictures are joined to this file</source>
        <translation>%1: An diese Datei sind keine Bilder angehängt</translation>
    </message>
    <message>
        <source>%1 bytes are no JPEG file</source>
        <translation>%1 Bytes sind keine JPEG-Datei</translation>
    </message>
    <message>
        <source>--out: &quot;%1&quot; is a folder</source>
        <translation>--out: „%1“ ist ein Ordner</translation>
    </message>
    <message>
        <source>where the file is to run (default: linux)</source>
        <translation>wo die Datei laufen soll (Vorgabe: linux)</translation>
    </message>
    <message>
        <source>there is no IPTC field &quot;%1&quot;</source>
        <translation>es gibt kein IPTC-Feld „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not one of the EXIF attributes that can be set: %2</source>
        <translation>„%1“ ist kein EXIF-Attribut, das gesetzt werden kann: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not NAME=VALUE</source>
        <translation>„%1“ ist nicht NAME=VALUE</translation>
    </message>
    <message>
        <source>%1: its first row must name the fields</source>
        <translation>%1: Die erste Zeile muss die Felder nennen</translation>
    </message>
    <message>
        <source>%1, row %2: %3 fields where the first row has %4; a field with a comma goes between quotes</source>
        <translation>%1, Zeile %2: %3 Felder, die erste Zeile hat %4; ein Feld mit Komma steht in Anführungszeichen</translation>
    </message>
    <message>
        <source>%1 can&apos;t be &quot;%2&quot;</source>
        <translation>%1 kann nicht „%2“ sein</translation>
    </message>
    <message>
        <source>an EXIF attribute by its name; may be repeated</source>
        <translation>ein EXIF-Attribut mit seinem Namen; auch mehrfach</translation>
    </message>
    <message>
        <source>an IPTC field by its label; may be repeated; items of lists with commas</source>
        <translation>ein IPTC-Feld mit seiner Bezeichnung; auch mehrfach; Listen mit Kommas</translation>
    </message>
    <message>
        <source>a table: a column for each field, a row for each picture</source>
        <translation>eine Tabelle: eine Spalte je Feld, eine Zeile je Bild</translation>
    </message>
    <message>
        <source>any EXIF attribute; may be repeated</source>
        <translation>ein beliebiges EXIF-Attribut; auch mehrfach</translation>
    </message>
    <message>
        <source>an IPTC field by its label; may be repeated</source>
        <translation>ein IPTC-Feld mit seiner Bezeichnung; auch mehrfach</translation>
    </message>
    <message>
        <source>all EXIF attributes</source>
        <translation>alle EXIF-Attribute</translation>
    </message>
    <message>
        <source>all IPTC fields</source>
        <translation>alle IPTC-Felder</translation>
    </message>
    <message>
        <source>set the attributes of this file</source>
        <translation>die Attribute dieser Datei setzen</translation>
    </message>
    <message>
        <source>replace all IPTC fields by those of this file</source>
        <translation>alle IPTC-Felder durch die dieser Datei ersetzen</translation>
    </message>
    <message>
        <source>--from goes without other changes and pictures</source>
        <translation>--from steht ohne andere Änderungen und Bilder</translation>
    </message>
    <message>
        <source>nothing to set</source>
        <translation>nichts zu setzen</translation>
    </message>
    <message>
        <source>%1 can&apos;t be deleted</source>
        <translation>%1 kann nicht gelöscht werden</translation>
    </message>
    <message>
        <source>nothing to delete</source>
        <translation>nichts zu löschen</translation>
    </message>
    <message>
        <source>--exif or --iptc is missing</source>
        <translation>--exif oder --iptc fehlt</translation>
    </message>
    <message>
        <source>%1 has no IPTC fields; no picture was changed</source>
        <translation>%1 hat keine IPTC-Felder; kein Bild wurde geändert</translation>
    </message>
    <message>
        <source>Works on JPEG, TIFF and PSD files, and on those of folders. Pixels, pages and layers keep
their bytes. A file that fails stays as it was and doesn&apos;t stop the others.</source>
        <translation>Für JPEG-, TIFF- und PSD-Dateien, auch für die von Ordnern. Pixel, Seiten und Ebenen behalten ihre
Bytes. Eine Datei, die fehlschlägt, bleibt, wie sie war, und hält die anderen nicht auf.</translation>
    </message>
    <message>
        <source>Show EXIF attributes and IPTC fields of pictures.</source>
        <translation>Zeigt EXIF-Attribute und IPTC-Felder von Bildern.</translation>
    </message>
    <message>
        <source>Names and words are those of the window&apos;s lists.</source>
        <translation>Die Wörter sind die der Listen im Fenster; IPTC-Felder stehen unter den Bezeichnungen, die set
annimmt.</translation>
    </message>
    <message>
        <source>Set EXIF attributes and IPTC fields in picture files.</source>
        <translation>Setzt EXIF-Attribute und IPTC-Felder in Bilddateien.</translation>
    </message>
    <message>
        <source>Delete EXIF attributes and IPTC fields from picture files.</source>
        <translation>Löscht EXIF-Attribute und IPTC-Felder aus Bilddateien.</translation>
    </message>
    <message>
        <source>Delete all EXIF attributes or all IPTC fields.</source>
        <translation>Löscht alle EXIF-Attribute oder alle IPTC-Felder.</translation>
    </message>
    <message>
        <source>Put the contents of side files into picture files.</source>
        <translation>Überträgt den Inhalt von Begleitdateien in Bilddateien.</translation>
    </message>
    <message>
        <source>the EXIF attributes that users may edit, of one picture</source>
        <translation>die bearbeitbaren EXIF-Attribute eines Bilds</translation>
    </message>
    <message>
        <source>all IPTC fields, of one picture</source>
        <translation>alle IPTC-Felder eines Bilds</translation>
    </message>
    <message>
        <source>side files beside each picture: a.jpg.xiff and a.jpg.ffo of a.jpg</source>
        <translation>Begleitdateien neben jedem Bild: a.jpg.xiff und a.jpg.ffo zu a.jpg</translation>
    </message>
    <message>
        <source>with --beside, replace older side files</source>
        <translation>mit --beside: ältere Begleitdateien ersetzen</translation>
    </message>
    <message>
        <source>%1 exists; --overwrite replaces it</source>
        <translation>%1 existiert; --overwrite ersetzt sie</translation>
    </message>
    <message>
        <source>no EXIF attribute that users may edit</source>
        <translation>kein bearbeitbares EXIF-Attribut</translation>
    </message>
    <message>
        <source>no IPTC fields</source>
        <translation>keine IPTC-Felder</translation>
    </message>
    <message>
        <source>--exif and --iptc take one picture; --beside takes several</source>
        <translation>--exif und --iptc gelten für ein Bild; --beside für mehrere</translation>
    </message>
    <message>
        <source>--beside takes exif, iptc or both, and goes without --exif and --iptc</source>
        <translation>--beside erwartet exif, iptc oder both und steht ohne --exif und --iptc</translation>
    </message>
    <message>
        <source>--exif, --iptc or --beside is missing</source>
        <translation>--exif, --iptc oder --beside fehlt</translation>
    </message>
    <message>
        <source>Write EXIF attributes or IPTC fields of pictures to side files.</source>
        <translation>Schreibt EXIF-Attribute oder IPTC-Felder von Bildern in Begleitdateien.</translation>
    </message>
    <message>
        <source>Side files can be applied to other pictures by import and batch.</source>
        <translation>Mit import und batch lassen sich Begleitdateien auf andere Bilder anwenden.</translation>
    </message>
    <message>
        <source>no files</source>
        <translation>keine Dateien</translation>
    </message>
    <message>
        <source>try it and say what would be done; write nothing</source>
        <translation>ausprobieren und sagen, was geschähe; nichts schreiben</translation>
    </message>
    <message>
        <source>%1: unknown content</source>
        <translation>%1: unbekannter Inhalt</translation>
    </message>
    <message>
        <source>page %1 of %2: %3</source>
        <translation>Seite %1 von %2: %3</translation>
    </message>
    <message>
        <source>  failed: %1</source>
        <translation>  fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>  header: %1, %2, %3 dpi</source>
        <translation>  Kopfdaten: %1, %2, %3 dpi</translation>
    </message>
    <message>
        <source>  decoded: %1, pages: %2</source>
        <translation>  dekodiert: %1, Seiten: %2</translation>
    </message>
    <message>
        <source>  damaged: %1</source>
        <translation>  beschädigt: %1</translation>
    </message>
    <message>
        <source>%1: can&apos;t be read as a picture</source>
        <translation>%1: als Bild nicht lesbar</translation>
    </message>
    <message>
        <source>--%1 takes %2 to %3, not &quot;%4&quot;</source>
        <translation>--%1 erwartet %2 bis %3, nicht „%4“</translation>
    </message>
    <message>
        <source>--paper: unknown size &quot;%1&quot;</source>
        <translation>--paper: unbekannte Größe „%1“</translation>
    </message>
    <message>
        <source>--pdf: &quot;%1&quot; doesn&apos;t end in .pdf</source>
        <translation>--pdf: „%1“ endet nicht auf .pdf</translation>
    </message>
    <message>
        <source>the source is damaged: %1</source>
        <translation>die Quelle ist beschädigt: %1</translation>
    </message>
    <message>
        <source>tarsel: %1: only the first of its %2 pages was saved</source>
        <translation>tarsel: %1: Nur die erste der %2 Seiten wurde gespeichert</translation>
    </message>
    <message>
        <source>tarsel: %1: the format can&apos;t hold the EXIF orientation; use --upright to turn the picture</source>
        <translation>tarsel: %1: Das Format kann die EXIF-Ausrichtung nicht aufnehmen; --upright dreht das Bild</translation>
    </message>
    <message>
        <source>--max-size takes bytes, 200K or 2M, not &quot;%1&quot;</source>
        <translation>--max-size erwartet Bytes, 200K oder 2M, nicht „%1“</translation>
    </message>
    <message>
        <source>--%1 goes with --max-size</source>
        <translation>--%1 gehört zu --max-size</translation>
    </message>
    <message>
        <source>the best quality that makes a JPEG file of at most so many bytes; also 200K or 2M</source>
        <translation>die beste Qualität, mit der ein JPEG höchstens so viele Bytes hat; auch 200K oder 2M</translation>
    </message>
    <message>
        <source>with --max-size: not below (default: 40)</source>
        <translation>mit --max-size: nicht darunter (Vorgabe: 40)</translation>
    </message>
    <message>
        <source>with --max-size: fewer pixels where that quality is still too large</source>
        <translation>mit --max-size: weniger Pixel, wo auch diese Qualität zu groß ist</translation>
    </message>
    <message>
        <source>one JSON object a line: row, kind, key, name, state, reason, parameters</source>
        <translation>ein JSON-Objekt je Zeile: row, kind, key, name, state, reason, parameters</translation>
    </message>
    <message>
        <source>expected one task list</source>
        <translation>erwartet: eine Aufgabenliste</translation>
    </message>
    <message>
        <source>Show a task list in words and check it.</source>
        <translation>Zeigt eine Aufgabenliste in Worten und prüft sie.</translation>
    </message>
    <message>
        <source>A task that would end a run is reported as failed, one that a run passes over as skipped; the exit
status is 1 for both. A value that replays, but is outside the range of its control, is noted.</source>
        <translation>Eine Aufgabe, die einen Lauf beenden würde, wird als fehlgeschlagen gemeldet, eine, die er übergeht,
als übersprungen; der Exit-Status ist in beiden Fällen 1. Ein Wert außerhalb des Bereichs seines
Reglers, der sich doch anwenden lässt, wird vermerkt.</translation>
    </message>
    <message>
        <source>tarsel: standard output can&apos;t be written</source>
        <translation>tarsel: Die Standardausgabe ist nicht beschreibbar</translation>
    </message>
    <message>
        <source>the file to write, in the format of its extension; required without --list</source>
        <translation>die zu schreibende Datei, im Format ihrer Endung; ohne --list erforderlich</translation>
    </message>
    <message>
        <source>only this monitor, see --list</source>
        <translation>nur dieser Bildschirm, siehe --list</translation>
    </message>
    <message>
        <source>only this rectangle, in pixels from the top left of the screen or the monitor</source>
        <translation>nur dieses Rechteck, in Pixeln von links oben auf dem Desktop oder Bildschirm</translation>
    </message>
    <message>
        <source>wait before the picture is taken</source>
        <translation>so lange vor der Aufnahme warten</translation>
    </message>
    <message>
        <source>with the mouse pointer</source>
        <translation>mit dem Mauszeiger</translation>
    </message>
    <message>
        <source>the monitors and their places instead of a picture</source>
        <translation>die Bildschirme und ihre Lage statt einer Aufnahme</translation>
    </message>
    <message>
        <source>one JSON object a line: target, width and height; of a list: monitor, x, y, width, height</source>
        <translation>ein JSON-Objekt je Zeile: target, width und height; bei einer Liste: monitor, x, y, width, height</translation>
    </message>
    <message>
        <source>Take a picture of the screen.</source>
        <translation>Nimmt den Bildschirm auf.</translation>
    </message>
    <message>
        <source>bmp, gif, jpg, pcx, png, wbmp, psd, tif or pdf; default: OUT&apos;s extension</source>
        <translation>bmp, gif, jpg, pcx, png, wbmp, psd, tif oder pdf; Vorgabe: die Endung von OUT</translation>
    </message>
    <message>
        <source>see below; default: the first that the format has</source>
        <translation>siehe unten; Vorgabe: die ersten, die das Format hat</translation>
    </message>
    <message>
        <source>of JPEG data; default: 80</source>
        <translation>von JPEG-Daten; Vorgabe: 80</translation>
    </message>
    <message>
        <source>write a progressive JPEG</source>
        <translation>ein progressives JPEG schreiben</translation>
    </message>
    <message>
        <source>gif: lzw (default) or none; tif: none (default), packbits or group4</source>
        <translation>gif: lzw (Vorgabe) oder none; tif: none (Vorgabe), packbits oder group4</translation>
    </message>
    <message>
        <source>gif, png: make pixels of exactly this colour transparent</source>
        <translation>gif, png: Pixel genau dieser Farbe transparent machen</translation>
    </message>
    <message>
        <source>turn the picture by its EXIF orientation; always done where the format can&apos;t hold it</source>
        <translation>das Bild nach seiner EXIF-Ausrichtung drehen; immer, wo das Format sie nicht aufnehmen kann</translation>
    </message>
    <message>
        <source>one JSON object: source, target, state, reason, format, bytes, quality</source>
        <translation>ein JSON-Objekt: source, target, state, reason, format, bytes, quality</translation>
    </message>
    <message>
        <source>Save one picture in any format that can be written.</source>
        <translation>Speichert ein Bild in einem beliebigen Format, das geschrieben werden kann.</translation>
    </message>
    <message>
        <source>ENTRY is true-color, 256-colors, 256-grayscale, 16-colors, 16-grayscale, monochrome or monochrome-bw.
Metadata, profile and resolution are kept where the format can hold them. A transparent picture is
laid on white where the format has no transparency.</source>
        <translation>ENTRY ist true-color, 256-colors, 256-grayscale, 16-colors, 16-grayscale, monochrome oder
monochrome-bw. Metadaten, Profil und Auflösung bleiben erhalten, wo das Format sie aufnehmen kann. Ein
transparentes Bild wird auf Weiß gelegt, wo das Format keine Transparenz hat.</translation>
    </message>
    <message>
        <source>the greeting to write, whose name ends in .exe; required</source>
        <translation>das zu schreibende Grußbild, dessen Name auf .exe endet; erforderlich</translation>
    </message>
    <message>
        <source>what happens to the picture; required</source>
        <translation>was mit dem Bild geschieht; erforderlich</translation>
    </message>
    <message>
        <source>raining-text: the text (default: Happy Greetings!)</source>
        <translation>raining-text: der Text (Vorgabe: Happy Greetings!)</translation>
    </message>
    <message>
        <source>raining-text: its colour (default: black)</source>
        <translation>raining-text: seine Farbe (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>clock: its kind (default: analog)</source>
        <translation>clock: ihre Art (Vorgabe: analog)</translation>
    </message>
    <message>
        <source>clock: leave out the date</source>
        <translation>clock: das Datum weglassen</translation>
    </message>
    <message>
        <source>clock: of the date (default: black)</source>
        <translation>clock: Farbe des Datums (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>clock: of the digits (default: black)</source>
        <translation>clock: Farbe der Ziffern (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>clock: of the hour hand (default: FF0000)</source>
        <translation>clock: Farbe des Stundenzeigers (Vorgabe: FF0000)</translation>
    </message>
    <message>
        <source>clock: of the minute hand (default: 008000)</source>
        <translation>clock: Farbe des Minutenzeigers (Vorgabe: 008000)</translation>
    </message>
    <message>
        <source>clock: of the second hand (default: E0E0E0)</source>
        <translation>clock: Farbe des Sekundenzeigers (Vorgabe: E0E0E0)</translation>
    </message>
    <message>
        <source>Make a program that shows one picture with an effect.</source>
        <translation>Erstellt ein Programm, das ein Bild mit einem Effekt zeigt.</translation>
    </message>
    <message>
        <source>The file is written in one step, in place of an older one. Of a document with several pages the
first is taken. The name gets the extension .exe where it hasn&apos;t that.</source>
        <translation>Die Datei wird in einem Schritt geschrieben, anstelle einer älteren. Von einem Dokument mit mehreren
Seiten wird die erste genommen. Der Name bekommt die Endung .exe, wo er sie nicht hat.</translation>
    </message>
    <message>
        <source>one JSON object a line: row, name, offset, size; at the end the options</source>
        <translation>ein JSON-Objekt je Zeile: row, name, offset, size; am Ende die Optionen</translation>
    </message>
    <message>
        <source>put the pictures there; made when missing; required</source>
        <translation>die Bilder dort ablegen; wird bei Bedarf angelegt; erforderlich</translation>
    </message>
    <message>
        <source>List the pictures and options of a screen saver, slide show or greeting.</source>
        <translation>Listet Bilder und Optionen von Bildschirmschoner, Diaschau oder Grußbild auf.</translation>
    </message>
    <message>
        <source>The lines have number, offset, size and name of each picture.</source>
        <translation>Die Zeilen nennen Nummer, Position, Größe und Namen jedes Bilds.</translation>
    </message>
    <message>
        <source>Copy the pictures out of a screen saver, slide show or greeting.</source>
        <translation>Kopiert die Bilder aus Bildschirmschoner, Diaschau oder Grußbild.</translation>
    </message>
    <message>
        <source>Files are named after their pictures, without what can&apos;t be part of a file name. No file is
replaced: a picture whose file exists is skipped.</source>
        <translation>Die Dateien heißen wie ihre Bilder, ohne das, was nicht Teil eines Dateinamens sein kann. Keine Datei
wird ersetzt: Ein Bild, dessen Datei existiert, wird übersprungen.</translation>
    </message>
    <message>
        <source>the document to write; required</source>
        <translation>das zu schreibende Dokument; erforderlich</translation>
    </message>
    <message>
        <source>A3, A4 (default), A5, Letter, Legal and the other names of PPD files</source>
        <translation>A3, A4 (Vorgabe), A5, Letter, Legal und die anderen Namen von PPD-Dateien</translation>
    </message>
    <message>
        <source>turn the paper</source>
        <translation>das Papier quer legen</translation>
    </message>
    <message>
        <source>fit (default): all of the picture in its place; fill: the place, cropping the picture;
true: the size by the picture&apos;s resolution</source>
        <translation>fit (Vorgabe): das ganze Bild auf seinem Platz; fill: den Platz füllen und das Bild beschneiden;
true: die Größe nach der Auflösung des Bilds</translation>
    </message>
    <message>
        <source>of that size, 1 to 1000 (default: 100); what leaves the place is cropped</source>
        <translation>dieser Größe, 1 bis 1000 (Vorgabe: 100); was über den Platz hinausgeht, wird beschnitten</translation>
    </message>
    <message>
        <source>center (default), top-left, top, top-right, left, right, bottom-left, bottom, bottom-right</source>
        <translation>center (Vorgabe), top-left, top, top-right, left, right, bottom-left, bottom, bottom-right</translation>
    </message>
    <message>
        <source>paper that stays empty on each side, up to 100 (default: 10); 20x15: 20 left and
right, 15 at the top and at the bottom</source>
        <translation>Papier, das auf jeder Seite frei bleibt, bis 100 (Vorgabe: 10); 20x15: 20 links und
rechts, 15 oben und unten</translation>
    </message>
    <message>
        <source>places on a page, 1 to 64 (default: 1)</source>
        <translation>Plätze auf einer Seite, 1 bis 64 (Vorgabe: 1)</translation>
    </message>
    <message>
        <source>fill all places of a page with the same picture</source>
        <translation>alle Plätze einer Seite mit demselben Bild füllen</translation>
    </message>
    <message>
        <source>below each picture: none (default), name or description</source>
        <translation>unter jedem Bild: none (Vorgabe), name oder description</translation>
    </message>
    <message>
        <source>Print a basket, or pictures, into a PDF document.</source>
        <translation>Druckt einen Korb oder Bilder in ein PDF-Dokument.</translation>
    </message>
    <message>
        <source>Pictures are turned upright by their EXIF orientation, and their colours become those of sRGB. Of
large ones no more pixels are written than 600 an inch. A picture without a resolution has 96
pixels an inch. A row that can&apos;t be printed is left out, the others go on, and the exit status is 1.
The document is written in one step at the end: after an interrupt, or when no row could be printed,
there is none, and an older one of that name stays.</source>
        <translation>Bilder werden nach ihrer EXIF-Ausrichtung aufgerichtet, und ihre Farben werden die von sRGB. Von
großen werden nicht mehr als 600 Pixel pro Zoll geschrieben. Ein Bild ohne Auflösung hat 96 Pixel
pro Zoll. Eine Zeile, die sich nicht drucken lässt, wird ausgelassen, die anderen folgen, und der
Exit-Status ist 1. Das Dokument wird am Ende in einem Schritt geschrieben: Nach einem Abbruch, oder
wenn keine Zeile druckbar war, gibt es keines, und ein älteres dieses Namens bleibt.</translation>
    </message>
    <message>
        <source>tarsel: %1 written, %2 skipped, %3 failed</source>
        <translation>tarsel: %1 geschrieben, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>tarsel: %1 written, %2 skipped, %3 failed, %5 would be written</source>
        <translation>tarsel: %1 geschrieben, %2 übersprungen, %3 fehlgeschlagen, %5 würden geschrieben</translation>
    </message>
    <message>
        <source>tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning</source>
        <translation>tarsel: %1 geschrieben, %2 übersprungen, %3 fehlgeschlagen, %4 mit einer Warnung</translation>
    </message>
    <message>
        <source>tarsel: %1 written, %2 skipped, %3 failed, %4 with a warning, %5 would be written</source>
        <translation>tarsel: %1 geschrieben, %2 übersprungen, %3 fehlgeschlagen, %4 mit einer Warnung, %5 würden geschrieben</translation>
    </message>
    <message>
        <source>seconds between two pictures (default: 3)</source>
        <translation>Sekunden zwischen zwei Bildern (Vorgabe: 3)</translation>
    </message>
    <message>
        <source>colour round the pictures (default: black)</source>
        <translation>Farbe um die Bilder (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>of the pictures (default: 80)</source>
        <translation>der Bilder (Vorgabe: 80)</translation>
    </message>
    <message>
        <source>the screen saver to write, whose name ends in .scr; required</source>
        <translation>der zu schreibende Bildschirmschoner, dessen Name auf .scr endet; erforderlich</translation>
    </message>
    <message>
        <source>the slide show to write, whose name ends in .exe; required</source>
        <translation>die zu schreibende Diaschau, deren Name auf .exe endet; erforderlich</translation>
    </message>
    <message>
        <source>The file shows the pictures by itself. A row whose picture fails is left out, the others go on, and
the exit status is 1. The file is written in one step at the end, in place of an older one. After an
interrupt it has the pictures so far, but an older one stays; after an error it is not written. No
source is replaced.
The name gets its extension where it hasn&apos;t that.</source>
        <translation>Die Datei zeigt die Bilder von selbst. Eine Zeile, deren Bild fehlschlägt, wird ausgelassen, die
anderen folgen, und der Exit-Status ist 1. Die Datei wird am Ende in einem Schritt geschrieben,
anstelle einer älteren. Nach einem Abbruch hat sie die Bilder bis dahin, doch eine ältere bleibt; nach
einem Fehler wird sie nicht geschrieben. Keine Quelle wird ersetzt. Der Name bekommt seine Endung, wo er
sie nicht hat.</translation>
    </message>
    <message>
        <source>Make a screen saver of a basket, or of pictures.</source>
        <translation>Erstellt einen Bildschirmschoner aus einem Korb oder aus Bildern.</translation>
    </message>
    <message>
        <source>Make a slide show that runs by itself, of a basket, or of pictures.</source>
        <translation>Erstellt eine selbst ablaufende Diaschau aus einem Korb oder aus Bildern.</translation>
    </message>
    <message>
        <source>of the album, and part of its file names (default: My Album)</source>
        <translation>des Albums und Teil seiner Dateinamen (Vorgabe: My Album)</translation>
    </message>
    <message>
        <source>thumbnails in a row of the index (default: 5); 0 for all in one row</source>
        <translation>Miniaturen in einer Zeile des Index (Vorgabe: 5); 0 für alle in einer Zeile</translation>
    </message>
    <message>
        <source>reduce thumbnails without smoothing</source>
        <translation>Miniaturen ohne Glättung verkleinern</translation>
    </message>
    <message>
        <source>don&apos;t show file names</source>
        <translation>keine Dateinamen zeigen</translation>
    </message>
    <message>
        <source>don&apos;t show the sizes of pictures</source>
        <translation>keine Bildgrößen zeigen</translation>
    </message>
    <message>
        <source>width of the border of pictures (default: 1)</source>
        <translation>Breite des Rands der Bilder (Vorgabe: 1)</translation>
    </message>
    <message>
        <source>of links, and so of the borders of linked pictures (default: black)</source>
        <translation>von Links und damit der Ränder verlinkter Bilder (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>width of the border of the index&apos;s table (default: 1)</source>
        <translation>Breite des Rands der Tabelle im Index (Vorgabe: 1)</translation>
    </message>
    <message>
        <source>of the borders of tables (default: black)</source>
        <translation>der Ränder von Tabellen (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>background of thumbnails (default: gradient)</source>
        <translation>Hintergrund der Miniaturen (Vorgabe: gradient)</translation>
    </message>
    <message>
        <source>gradient of thumbnails (default: blue)</source>
        <translation>Verlauf der Miniaturen (Vorgabe: blue)</translation>
    </message>
    <message>
        <source>with --cell-style color</source>
        <translation>mit --cell-style color</translation>
    </message>
    <message>
        <source>background of pages (default: gradient)</source>
        <translation>Hintergrund der Seiten (Vorgabe: gradient)</translation>
    </message>
    <message>
        <source>gradient of pages (default: violet)</source>
        <translation>Verlauf der Seiten (Vorgabe: violet)</translation>
    </message>
    <message>
        <source>background of pages, seen with --page-style color</source>
        <translation>Hintergrund der Seiten, sichtbar mit --page-style color</translation>
    </message>
    <message>
        <source>of captions, as HTML counts it (default: 3)</source>
        <translation>der Bildunterschriften, wie HTML sie zählt (Vorgabe: 3)</translation>
    </message>
    <message>
        <source>of titles and captions (default: black)</source>
        <translation>von Titeln und Bildunterschriften (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>of metadata (default: black)</source>
        <translation>der Metadaten (Vorgabe: Schwarz)</translation>
    </message>
    <message>
        <source>of the JPEG files (default: 75)</source>
        <translation>der JPEG-Dateien (Vorgabe: 75)</translation>
    </message>
    <message>
        <source>an index and pages, or one page for all screens (default: exact)</source>
        <translation>ein Index und Seiten, oder eine Seite für alle Bildschirme (Vorgabe: exact)</translation>
    </message>
    <message>
        <source>with --template modern: offer the source files for download</source>
        <translation>mit --template modern: die Quelldateien zum Herunterladen anbieten</translation>
    </message>
    <message>
        <source>keep what is still right of the last run, remove what isn&apos;t needed</source>
        <translation>behalten, was vom letzten Lauf noch stimmt, entfernen, was nicht mehr gebraucht wird</translation>
    </message>
    <message>
        <source>Usage: tarsel COMMAND [OPTION]... [OPERAND]...
       tarsel COMMAND --help
       tarsel --version [--verbose]

Makes JPEG documents from collections of pictures.

Commands:
</source>
        <translation>Aufruf: tarsel COMMAND [OPTION]... [OPERAND]...
        tarsel COMMAND --help
        tarsel --version [--verbose]

Erstellt JPEG-Dokumente aus Bildersammlungen.

Befehle:
</translation>
    </message>
    <message>
        <source>where the pages go; required without --list and --options</source>
        <translation>wohin die Seiten kommen; ohne --list und --options erforderlich</translation>
    </message>
    <message>
        <source>format of files in a folder (default: tif)</source>
        <translation>Format von Dateien in einem Ordner (Vorgabe: tif)</translation>
    </message>
    <message>
        <source>one document with all pages, TIF or PDF</source>
        <translation>ein Dokument mit allen Seiten, TIF oder PDF</translation>
    </message>
    <message>
        <source>replace older files</source>
        <translation>ältere Dateien ersetzen</translation>
    </message>
    <message>
        <source>the scanner, see --list (default: the first one)</source>
        <translation>der Scanner, siehe --list (Vorgabe: der erste)</translation>
    </message>
    <message>
        <source>flatbed, document feeder and the like, see --options</source>
        <translation>Flachbett, Einzug und dergleichen, siehe --options</translation>
    </message>
    <message>
        <source>Color, Gray, Lineart and the like, see --options</source>
        <translation>Color, Gray, Lineart und dergleichen, siehe --options</translation>
    </message>
    <message>
        <source>pixels an inch</source>
        <translation>Pixel pro Zoll</translation>
    </message>
    <message>
        <source>bits of a sample; 16 are reduced to 8</source>
        <translation>Bits eines Werts; 16 werden auf 8 verringert</translation>
    </message>
    <message>
        <source>only this rectangle, in millimetres from the top left of the glass</source>
        <translation>nur dieses Rechteck, in Millimetern von links oben auf dem Glas</translation>
    </message>
    <message>
        <source>any option of the scanner, see --options</source>
        <translation>eine beliebige Option des Scanners, siehe --options</translation>
    </message>
    <message>
        <source>at most this many pages (default: one from a flatbed, all of a feeder)</source>
        <translation>höchstens so viele Seiten (Vorgabe: eine vom Flachbett, alle aus dem Einzug)</translation>
    </message>
    <message>
        <source>the scanners instead of a page</source>
        <translation>die Scanner statt einer Seite</translation>
    </message>
    <message>
        <source>the options of the scanner instead of a page</source>
        <translation>die Optionen des Scanners statt einer Seite</translation>
    </message>
    <message>
        <source>one JSON object a line: target, page, width, height, state, reason</source>
        <translation>ein JSON-Objekt je Zeile: target, page, width, height, state, reason</translation>
    </message>
    <message>
        <source>Scan pages from a scanner.</source>
        <translation>Liest Seiten von einem Scanner ein.</translation>
    </message>
    <message>
        <source>FILE gets the page in the format of its extension. Where more pages can follow, each has its number
before the extension, unless --multi puts all into one document. In FOLDER they are Scan1.tif, Scan2.tif
and so on.
Pages are saved one by one: those that have arrived stay when a later one fails, or when SIGINT or
SIGTERM ends the run. Before the first page nothing is replaced. From a flatbed, more than one page
is asked for on the terminal; without a terminal they follow each other at once.</source>
        <translation>FILE bekommt die Seite im Format seiner Endung. Wo mehrere Seiten folgen können, steht vor der Endung
ihre Nummer, außer --multi fasst alle in einem Dokument zusammen. In FOLDER heißen sie Scan1.tif,
Scan2.tif und so weiter. Seiten werden einzeln gespeichert: Was angekommen ist, bleibt, wenn eine
spätere fehlschlägt oder SIGINT oder SIGTERM den Lauf beendet. Vor der ersten Seite wird nichts
ersetzt. Vom Flachbett wird jede weitere Seite am Terminal erfragt; ohne Terminal folgen sie sofort.</translation>
    </message>
    <message>
        <source>replace an older file</source>
        <translation>eine ältere Datei ersetzen</translation>
    </message>
    <message>
        <source>foreground (default) or background: the screen as it is; desktop: without windows</source>
        <translation>foreground (Vorgabe) oder background: der Bildschirm, wie er ist; desktop: ohne Fenster</translation>
    </message>
    <message>
        <source>required; put index.htm and the other files there; made when missing</source>
        <translation>erforderlich; für index.htm und die anderen Dateien; wird bei Bedarf angelegt</translation>
    </message>
    <message>
        <source>replace files that are not of an album, such as another index.htm</source>
        <translation>Dateien ersetzen, die zu keinem Album gehören, etwa eine andere index.htm</translation>
    </message>
    <message>
        <source>%1 is not of an album and would be replaced: give the album a folder of its own, or say --overwrite</source>
        <translation>%1 gehört zu keinem Album und würde ersetzt: Geben Sie dem Album einen eigenen Ordner oder --overwrite an</translation>
    </message>
    <message>
        <source>Files of an earlier album are replaced; those that the new one doesn&apos;t use stay. Other files of
these names, such as an index.htm of your own, are replaced with --overwrite only. index.htm is
written at the end: not after an error or an interrupt. A row whose picture fails has a page
without it, and the run goes on. No source is replaced, but that of the row itself.
--template modern has one page, index.htm, without the rows that fail; it turns pictures upright, and
needs none of the options for colours, borders, fonts, backgrounds and sizes of thumbnails.</source>
        <translation>Dateien eines früheren Albums werden ersetzt; was das neue nicht verwendet, bleibt. Andere Dateien
mit diesen Namen, etwa eine eigene index.htm, werden nur mit --overwrite ersetzt. index.htm wird
am Ende geschrieben: nicht nach einem Fehler oder Abbruch. Eine Zeile, deren Bild fehlschlägt,
bekommt eine Seite ohne Bild, und der Lauf geht weiter. Keine Quelle wird ersetzt, außer die der
Zeile selbst. --template modern hat eine einzige Seite, index.htm, ohne die fehlgeschlagenen Zeilen;
sie richtet Bilder auf und braucht keine der Optionen für Farben, Ränder, Schriften, Hintergründe
und Größen der Miniaturen.</translation>
    </message>
    <message>
        <source>%1 is a basket file, not a picture</source>
        <translation>%1 ist eine Korbdatei, kein Bild</translation>
    </message>
    <message>
        <source>One pixel of the screen is one pixel of the picture, whatever the scale of a monitor. The screen
is that of the X server in DISPLAY; in a session of Wayland, by WAYLAND_DISPLAY, the desktop takes
the picture, and may ask first.</source>
        <translation>Ein Pixel des Bildschirms ist ein Pixel des Bilds, gleich wie ein Bildschirm skaliert ist. Gemeint
ist der Bildschirm des X-Servers in DISPLAY; in einer Sitzung von Wayland, genannt in
WAYLAND_DISPLAY, nimmt der Desktop das Bild auf und fragt vielleicht vorher.</translation>
    </message>
    <message>
        <source>the table is not in UTF-8 or Windows-1252</source>
        <translation>die Tabelle ist weder in UTF-8 noch in Windows-1252</translation>
    </message>
    <message>
        <source>--%1: &quot;%2&quot; doesn&apos;t end in %3</source>
        <translation>--%1: „%2“ endet nicht auf %3</translation>
    </message>
    <message>
        <source>%1 is the picture itself</source>
        <translation>%1 ist das Bild selbst</translation>
    </message>
</context>
<context>
    <name>ConfigFile</name>
    <message>
        <source>Configuration data file is corrupted
Setting values will be initilized to default</source>
        <translation>Die Konfigurationsdatei ist beschädigt.
Die Einstellungen werden auf ihre Vorgaben zurückgesetzt.</translation>
    </message>
</context>
<context>
    <name>Conversions</name>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>„%1“ ist keine Zahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a date</source>
        <translation>„%1“ ist kein Datum</translation>
    </message>
    <message>
        <source>a number without a decimal form</source>
        <translation>eine Zahl ohne dezimale Form</translation>
    </message>
</context>
<context>
    <name>DamagedSettings</name>
    <message>
        <source>The settings could not be read. The program starts with its usual ones; what was there is kept as %1.</source>
        <translation>Die Einstellungen waren nicht lesbar. Das Programm startet mit seinen Vorgaben; die alte Datei bleibt als %1 erhalten.</translation>
    </message>
    <message>
        <source>The settings can be neither read nor stored: %1</source>
        <translation>Die Einstellungen lassen sich weder lesen noch speichern: %1</translation>
    </message>
    <message>
        <source>The settings end early, as those of an older version or a damaged file do. What is missing starts at zero; the old file is kept as %1.</source>
        <translation>Die Einstellungen enden vorzeitig, wie die einer älteren Version oder einer beschädigten Datei. Was fehlt, beginnt bei null; die alte Datei bleibt als %1 erhalten.</translation>
    </message>
</context>
<context>
    <name>DecoderProcess</name>
    <message>
        <source>no memory to pass it to its decoder</source>
        <translation>kein Speicher, um es seinem Dekodierer zu übergeben</translation>
    </message>
    <message>
        <source>no memory for its pixels</source>
        <translation>kein Speicher für seine Pixel</translation>
    </message>
    <message>
        <source>no socket for its decoder</source>
        <translation>kein Socket für seinen Dekodierer</translation>
    </message>
    <message>
        <source>its decoder %1 can&apos;t be started</source>
        <translation>sein Dekodierer %1 lässt sich nicht starten</translation>
    </message>
    <message>
        <source>its decoder does not answer</source>
        <translation>sein Dekodierer antwortet nicht</translation>
    </message>
    <message>
        <source>its decoder took longer than %1 seconds</source>
        <translation>sein Dekodierer brauchte länger als %1 Sekunden</translation>
    </message>
    <message>
        <source>its decoder broke off its answer</source>
        <translation>sein Dekodierer hat die Antwort abgebrochen</translation>
    </message>
    <message>
        <source>its decoder took too long</source>
        <translation>sein Dekodierer brauchte zu lange</translation>
    </message>
    <message>
        <source>its decoder crashed (signal %1)</source>
        <translation>sein Dekodierer ist abgestürzt (Signal %1)</translation>
    </message>
    <message>
        <source>its decoder ended (status %1)</source>
        <translation>sein Dekodierer hat sich beendet (Status %1)</translation>
    </message>
</context>
<context>
    <name>DisplayFailure</name>
    <message>
        <source>%1: no display could be opened. &quot;tarsel&quot; does the same work without one.</source>
        <translation>%1: Kein Bildschirm konnte geöffnet werden. „tarsel“ tut dieselbe Arbeit ohne einen.</translation>
    </message>
</context>
<context>
    <name>Edge</name>
    <message>
        <source>an edge at %1</source>
        <translation>eine Kante bei %1</translation>
    </message>
</context>
<context>
    <name>EditLock</name>
    <message>
        <source>%1 is being edited by another program</source>
        <translation>%1 wird gerade von einem anderen Programm bearbeitet</translation>
    </message>
</context>
<context>
    <name>EffectBuilder</name>
    <message>
        <source>the text is longer than 65535 bytes</source>
        <translation>der Text ist länger als 65535 Bytes</translation>
    </message>
    <message>
        <source>the player has no letters for &quot;%1&quot; and shows boxes</source>
        <translation>der Player hat keine Zeichen für „%1“ und zeigt Kästchen</translation>
    </message>
    <message>
        <source>Save IMAGE as Effect Executable</source>
        <translation>BILD als ausführbaren Effekt speichern</translation>
    </message>
    <message>
        <source>Exe File (*.exe)|*.exe</source>
        <translation>Exe-Datei (*.exe)|*.exe</translation>
    </message>
    <message>
        <source>Would You Like To Replace It?</source>
        <translation>Möchten Sie sie ersetzen?</translation>
    </message>
</context>
<context>
    <name>EncodeCommand</name>
    <message>
        <source>&quot;%1&quot; is not a format that can be written</source>
        <translation>„%1“ ist kein Format, das geschrieben werden kann</translation>
    </message>
    <message>
        <source>--%1 does not apply to %2</source>
        <translation>--%1 gilt nicht für %2</translation>
    </message>
    <message>
        <source>%1 has no colors &quot;%2&quot;</source>
        <translation>%1 kennt die Farben „%2“ nicht</translation>
    </message>
    <message>
        <source>unknown compression &quot;%1&quot;</source>
        <translation>unbekannte Kompression „%1“</translation>
    </message>
    <message>
        <source>%1: %2, %3 bytes, quality %4</source>
        <translation>%1: %2, %3 Bytes, Qualität %4</translation>
    </message>
    <message>
        <source>%1: %2, %3 bytes</source>
        <translation>%1: %2, %3 Bytes</translation>
    </message>
    <message>
        <source>expected IN OUT</source>
        <translation>erwartet: IN OUT</translation>
    </message>
</context>
<context>
    <name>EncoderColors</name>
    <message>
        <source>unknown colour format %1</source>
        <translation>unbekanntes Farbformat %1</translation>
    </message>
    <message>
        <source>%1 files hold pictures of at most %2 x %2 pixels, not of %3 x %4</source>
        <translation>%1-Dateien fassen Bilder bis %2 x %2 Pixel, nicht %3 x %4</translation>
    </message>
</context>
<context>
    <name>ErrorNumber</name>
    <message>
        <source>Invalid procedure call</source>
        <translation>Ungültiger Prozeduraufruf</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Überlauf</translation>
    </message>
    <message>
        <source>Out of memory</source>
        <translation>Zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>Index außerhalb des Bereichs</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Typen unverträglich</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Unterbrochen</translation>
    </message>
    <message>
        <source>File not found</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>Disk full</source>
        <translation>Datenträger voll</translation>
    </message>
    <message>
        <source>Input past end of file</source>
        <translation>Eingabe hinter dem Dateiende</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Zugriff verweigert</translation>
    </message>
    <message>
        <source>Path not found</source>
        <translation>Pfad nicht gefunden</translation>
    </message>
    <message>
        <source>Invalid picture</source>
        <translation>Ungültiges Bild</translation>
    </message>
    <message>
        <source>Unreadable file</source>
        <translation>Datei nicht lesbar</translation>
    </message>
    <message>
        <source>Error %1</source>
        <translation>Fehler %1</translation>
    </message>
</context>
<context>
    <name>Exif</name>
    <message>
        <source>Battery Level</source>
        <translation>Ladezustand</translation>
    </message>
    <message>
        <source>Exposure Time</source>
        <translation>Belichtungszeit</translation>
    </message>
    <message>
        <source>Exif Offset</source>
        <translation>EXIF-Zeiger</translation>
    </message>
    <message>
        <source>Inter Color Profile</source>
        <translation>ICC-Profil</translation>
    </message>
    <message>
        <source>Exposure Program</source>
        <translation>Belichtungsprogramm</translation>
    </message>
    <message>
        <source>Spectral Sensitivity</source>
        <translation>Spektrale Empfindlichkeit</translation>
    </message>
    <message>
        <source>Exif Version</source>
        <translation>EXIF-Version</translation>
    </message>
    <message>
        <source>Components Configuration</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>Shutter Speed Value</source>
        <translation>Verschlusszeit (APEX)</translation>
    </message>
    <message>
        <source>Aperture Value</source>
        <translation>Blendenwert (APEX)</translation>
    </message>
    <message>
        <source>Brightness Value</source>
        <translation>Helligkeitswert</translation>
    </message>
    <message>
        <source>Exposure Bias Value</source>
        <translation>Belichtungskorrektur</translation>
    </message>
    <message>
        <source>Subject Distance</source>
        <translation>Motiventfernung</translation>
    </message>
    <message>
        <source>Metering Mode</source>
        <translation>Belichtungsmessung</translation>
    </message>
    <message>
        <source>Light Source</source>
        <translation>Lichtquelle</translation>
    </message>
    <message>
        <source>Focal Length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Subject Area</source>
        <translation>Motivbereich</translation>
    </message>
    <message>
        <source>Maker Note</source>
        <translation>Herstellernotiz</translation>
    </message>
    <message>
        <source>User Comment</source>
        <translation>Benutzerkommentar</translation>
    </message>
    <message>
        <source>Flash Pix Version</source>
        <translation>FlashPix-Version</translation>
    </message>
    <message>
        <source>Color Space</source>
        <translation>Farbraum</translation>
    </message>
    <message>
        <source>Exif Image Width</source>
        <translation>EXIF-Bildbreite</translation>
    </message>
    <message>
        <source>Exif Image Length</source>
        <translation>EXIF-Bildhöhe</translation>
    </message>
    <message>
        <source>Related Audio File</source>
        <translation>Zugehörige Audiodatei</translation>
    </message>
    <message>
        <source>Interoperability Offset</source>
        <translation>Zeiger auf Interoperabilität</translation>
    </message>
    <message>
        <source>Flash Energy</source>
        <translation>Blitzenergie</translation>
    </message>
    <message>
        <source>Spatial Frequency Response</source>
        <translation>Ortsfrequenzgang</translation>
    </message>
    <message>
        <source>Focal Plane X Resolution</source>
        <translation>X-Auflösung der Sensorebene</translation>
    </message>
    <message>
        <source>Focal Plane Y Resolution</source>
        <translation>Y-Auflösung der Sensorebene</translation>
    </message>
    <message>
        <source>Focal Plane Resolution Unit</source>
        <translation>Einheit der Sensorauflösung</translation>
    </message>
    <message>
        <source>Subject Location</source>
        <translation>Motivposition</translation>
    </message>
    <message>
        <source>Exposure Index</source>
        <translation>Belichtungsindex</translation>
    </message>
    <message>
        <source>Sensing Method</source>
        <translation>Sensortyp</translation>
    </message>
    <message>
        <source>File Source</source>
        <translation>Dateiquelle</translation>
    </message>
    <message>
        <source>Scene Type</source>
        <translation>Szenentyp</translation>
    </message>
    <message>
        <source>Custom Rendered</source>
        <translation>Individuelle Verarbeitung</translation>
    </message>
    <message>
        <source>Exposure Mode</source>
        <translation>Belichtungsmodus</translation>
    </message>
    <message>
        <source>White Balance</source>
        <translation>Weißabgleich</translation>
    </message>
    <message>
        <source>Digital Zoom Ratio</source>
        <translation>Digitalzoom</translation>
    </message>
    <message>
        <source>Scene Capture Type</source>
        <translation>Aufnahmeprogramm</translation>
    </message>
    <message>
        <source>Gain Control</source>
        <translation>Verstärkung</translation>
    </message>
    <message>
        <source>Device Setting Description</source>
        <translation>Geräteeinstellungen</translation>
    </message>
    <message>
        <source>Subject Distance Range</source>
        <translation>Motiventfernungsbereich</translation>
    </message>
    <message>
        <source>New Subfile Type</source>
        <translation>Neuer Unterdateityp</translation>
    </message>
    <message>
        <source>Subfile Type</source>
        <translation>Unterdateityp</translation>
    </message>
    <message>
        <source>Bits Per Sample</source>
        <translation>Bits pro Kanal</translation>
    </message>
    <message>
        <source>Photometric Interpretation</source>
        <translation>Farbmodell</translation>
    </message>
    <message>
        <source>Fill Order</source>
        <translation>Bitreihenfolge</translation>
    </message>
    <message>
        <source>Image Description</source>
        <translation>Bildbeschreibung</translation>
    </message>
    <message>
        <source>Strip Offsets</source>
        <translation>Streifenpositionen</translation>
    </message>
    <message>
        <source>Samples Per Pixel</source>
        <translation>Kanäle pro Pixel</translation>
    </message>
    <message>
        <source>Rows Per Strip</source>
        <translation>Zeilen pro Streifen</translation>
    </message>
    <message>
        <source>Strip Byte Counts</source>
        <translation>Bytes pro Streifen</translation>
    </message>
    <message>
        <source>X Resolution</source>
        <translation>X-Auflösung</translation>
    </message>
    <message>
        <source>Y Resolution</source>
        <translation>Y-Auflösung</translation>
    </message>
    <message>
        <source>Planar Configuration</source>
        <translation>Anordnung der Kanäle</translation>
    </message>
    <message>
        <source>Resolution Unit</source>
        <translation>Einheit der Auflösung</translation>
    </message>
    <message>
        <source>Page Number</source>
        <translation>Seitennummer</translation>
    </message>
    <message>
        <source>Transfer Function</source>
        <translation>Übertragungsfunktion</translation>
    </message>
    <message>
        <source>White Point</source>
        <translation>Weißpunkt</translation>
    </message>
    <message>
        <source>Primary Chromaticities</source>
        <translation>Primärfarben</translation>
    </message>
    <message>
        <source>Color Map</source>
        <translation>Farbtabelle</translation>
    </message>
    <message>
        <source>Pixel X Dimension</source>
        <translation>Breite in Pixeln</translation>
    </message>
    <message>
        <source>Pixel Y Dimension</source>
        <translation>Höhe in Pixeln</translation>
    </message>
    <message>
        <source>CFA Repeat Pattern Dimension</source>
        <translation>Größe des CFA-Musters</translation>
    </message>
    <message>
        <source>CFA Pattern</source>
        <translation>CFA-Muster</translation>
    </message>
    <message>
        <source>F-Number</source>
        <translation>Blendenzahl</translation>
    </message>
    <message>
        <source>ISO Speed Ratings</source>
        <translation>ISO-Empfindlichkeit</translation>
    </message>
    <message>
        <source>Date/Time Original</source>
        <translation>Aufnahmedatum</translation>
    </message>
    <message>
        <source>Date/Time Digitized</source>
        <translation>Digitalisierungsdatum</translation>
    </message>
    <message>
        <source>Date/Time</source>
        <translation>Datum/Uhrzeit</translation>
    </message>
    <message>
        <source>Compressed BPP</source>
        <translation>Komprimierte Bits pro Pixel</translation>
    </message>
    <message>
        <source>Max. Aperture Value</source>
        <translation>Größte Blendenöffnung</translation>
    </message>
    <message>
        <source>Sub-Second Time</source>
        <translation>Sekundenbruchteile</translation>
    </message>
    <message>
        <source>Sub-Second Time Original</source>
        <translation>Sekundenbruchteile der Aufnahme</translation>
    </message>
    <message>
        <source>Sub-Second Time Digitized</source>
        <translation>Sekundenbruchteile der Digitalisierung</translation>
    </message>
    <message>
        <source>FocalLength In 35mm Film</source>
        <translation>Brennweite (35-mm-Film)</translation>
    </message>
    <message>
        <source>Image Unique ID</source>
        <translation>Eindeutige Bild-ID</translation>
    </message>
    <message>
        <source>JPEG Interchange Format</source>
        <translation>JPEG-Vorschau</translation>
    </message>
    <message>
        <source>JPEG Interchange Format Length</source>
        <translation>Länge der JPEG-Vorschau</translation>
    </message>
    <message>
        <source>YCbCr Coefficients</source>
        <translation>YCbCr-Koeffizienten</translation>
    </message>
    <message>
        <source>YCbCr SubSampling</source>
        <translation>YCbCr-Unterabtastung</translation>
    </message>
    <message>
        <source>YCbCr Positioning</source>
        <translation>YCbCr-Positionierung</translation>
    </message>
    <message>
        <source>Reference Black/White</source>
        <translation>Schwarz- und Weißpunkt</translation>
    </message>
    <message>
        <source>GPS Info</source>
        <translation>GPS-Daten</translation>
    </message>
    <message>
        <source>RGB</source>
        <translation>RGB</translation>
    </message>
    <message>
        <source>YCrCb</source>
        <translation>YCrCb</translation>
    </message>
    <message>
        <source>Does not exist</source>
        <translation>Nicht vorhanden</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Cr</source>
        <translation>Cr</translation>
    </message>
    <message>
        <source>Cb</source>
        <translation>Cb</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Upper Left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Upper Right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Bottom Left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Left Upper</source>
        <translation>Links oben</translation>
    </message>
    <message>
        <source>Right Upper</source>
        <translation>Rechts oben</translation>
    </message>
    <message>
        <source>Right bottom</source>
        <translation>Rechts unten</translation>
    </message>
    <message>
        <source>Left bottom</source>
        <translation>Links unten</translation>
    </message>
    <message>
        <source>No unit</source>
        <translation>Keine Einheit</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Zentimeter</translation>
    </message>
    <message>
        <source>Center of pixel array</source>
        <translation>Mitte der Pixelgruppe</translation>
    </message>
    <message>
        <source>Datum point(co-sited)</source>
        <translation>Bezugspunkt (deckungsgleich)</translation>
    </message>
    <message>
        <source>Manual control</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Normal program</source>
        <translation>Normalprogramm</translation>
    </message>
    <message>
        <source>Aperture priority</source>
        <translation>Zeitautomatik</translation>
    </message>
    <message>
        <source>Shutter priority</source>
        <translation>Blendenautomatik</translation>
    </message>
    <message>
        <source>Program creative (slow program)</source>
        <translation>Kreativprogramm (langsam)</translation>
    </message>
    <message>
        <source>Program action(high-speed program)</source>
        <translation>Actionprogramm (schnell)</translation>
    </message>
    <message>
        <source>Portrait mode</source>
        <translation>Porträtmodus</translation>
    </message>
    <message>
        <source>Landscape mode</source>
        <translation>Landschaftsmodus</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
    <message>
        <source>Average</source>
        <translation>Durchschnitt</translation>
    </message>
    <message>
        <source>Center weighted average</source>
        <translation>Mittenbetont</translation>
    </message>
    <message>
        <source>Spot</source>
        <translation>Spot</translation>
    </message>
    <message>
        <source>Multi-spot</source>
        <translation>Multispot</translation>
    </message>
    <message>
        <source>Multi-segment</source>
        <translation>Mehrfeld</translation>
    </message>
    <message>
        <source>Partial</source>
        <translation>Teilmessung</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source>Daylight</source>
        <translation>Tageslicht</translation>
    </message>
    <message>
        <source>Fluorescent</source>
        <translation>Leuchtstofflampe</translation>
    </message>
    <message>
        <source>Tungsten</source>
        <translation>Glühlampe</translation>
    </message>
    <message>
        <source>Flash</source>
        <translation>Blitz</translation>
    </message>
    <message>
        <source>Fine weather</source>
        <translation>Schönes Wetter</translation>
    </message>
    <message>
        <source>Cloudy weather</source>
        <translation>Bewölktes Wetter</translation>
    </message>
    <message>
        <source>Shade</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>Daylight fluorescent (D 5700-7100K)</source>
        <translation>Leuchtstofflampe, Tageslicht (D 5700-7100 K)</translation>
    </message>
    <message>
        <source>Day white fluorescent (N 4600-5400K)</source>
        <translation>Leuchtstofflampe, tageslichtweiß (N 4600-5400 K)</translation>
    </message>
    <message>
        <source>Cool white fluorescent (W 3900-4500K)</source>
        <translation>Leuchtstofflampe, kaltweiß (W 3900-4500 K)</translation>
    </message>
    <message>
        <source>White fluorescent (WW 3200-3700K)</source>
        <translation>Leuchtstofflampe, weiß (WW 3200-3700 K)</translation>
    </message>
    <message>
        <source>Standard light A</source>
        <translation>Normlicht A</translation>
    </message>
    <message>
        <source>Standard light B</source>
        <translation>Normlicht B</translation>
    </message>
    <message>
        <source>Standard light C</source>
        <translation>Normlicht C</translation>
    </message>
    <message>
        <source>D55</source>
        <translation>D55</translation>
    </message>
    <message>
        <source>D65</source>
        <translation>D65</translation>
    </message>
    <message>
        <source>D75</source>
        <translation>D75</translation>
    </message>
    <message>
        <source>D50</source>
        <translation>D50</translation>
    </message>
    <message>
        <source>ISO studio tungesten</source>
        <translation>ISO-Studiokunstlicht</translation>
    </message>
    <message>
        <source>Other light source</source>
        <translation>Andere Lichtquelle</translation>
    </message>
    <message>
        <source>Flash did not fire</source>
        <translation>Blitz nicht ausgelöst</translation>
    </message>
    <message>
        <source>Flash fired</source>
        <translation>Blitz ausgelöst</translation>
    </message>
    <message>
        <source>Strobe return light not detected</source>
        <translation>Reflexion des Blitzes nicht erkannt</translation>
    </message>
    <message>
        <source>Strobe return light detected</source>
        <translation>Reflexion des Blitzes erkannt</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode</source>
        <translation>Blitz ausgelöst, erzwungen</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode, return light not detected</source>
        <translation>Blitz ausgelöst, erzwungen, Reflexion nicht erkannt</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode, return light detected</source>
        <translation>Blitz ausgelöst, erzwungen, Reflexion erkannt</translation>
    </message>
    <message>
        <source>Flash did not fire, compulsory flash mode</source>
        <translation>Blitz nicht ausgelöst, unterdrückt</translation>
    </message>
    <message>
        <source>Flash did not fire, auto mode</source>
        <translation>Blitz nicht ausgelöst, Automatik</translation>
    </message>
    <message>
        <source>Flash fired, auto mode</source>
        <translation>Blitz ausgelöst, Automatik</translation>
    </message>
    <message>
        <source>Flash fired, auto mode, return light not detected</source>
        <translation>Blitz ausgelöst, Automatik, Reflexion nicht erkannt</translation>
    </message>
    <message>
        <source>Flash fired, auto mode, return light detected</source>
        <translation>Blitz ausgelöst, Automatik, Reflexion erkannt</translation>
    </message>
    <message>
        <source>No flash function</source>
        <translation>Kein Blitz vorhanden</translation>
    </message>
    <message>
        <source>Flash fired, red-eye reduction mode</source>
        <translation>Blitz ausgelöst, Rote-Augen-Verringerung</translation>
    </message>
    <message>
        <source>Flash fired, red-eye reduction mode, return light not detected</source>
        <translation>Blitz ausgelöst, Rote-Augen-Verringerung, Reflexion nicht erkannt</translation>
    </message>
    <message>
        <source>Flash fired, red-eye reduction mode, return light detected</source>
        <translation>Blitz ausgelöst, Rote-Augen-Verringerung, Reflexion erkannt</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode, red-eye reduction mode</source>
        <translation>Blitz ausgelöst, erzwungen, Rote-Augen-Verringerung</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode, red-eye reduction mode, return light not detected</source>
        <translation>Blitz ausgelöst, erzwungen, Rote-Augen-Verringerung, Reflexion nicht erkannt</translation>
    </message>
    <message>
        <source>Flash fired, compulsory flash mode, red-eye reduction mode, return light detected</source>
        <translation>Blitz ausgelöst, erzwungen, Rote-Augen-Verringerung, Reflexion erkannt</translation>
    </message>
    <message>
        <source>Flash fired, auto mode, red-eye reduction mode</source>
        <translation>Blitz ausgelöst, Automatik, Rote-Augen-Verringerung</translation>
    </message>
    <message>
        <source>Flash fired, auto mode, return light not detected, red-eye reduction mode</source>
        <translation>Blitz ausgelöst, Automatik, Reflexion nicht erkannt, Rote-Augen-Verringerung</translation>
    </message>
    <message>
        <source>Flash fired, auto mode, return light detected, red-eye reduction mode</source>
        <translation>Blitz ausgelöst, Automatik, Reflexion erkannt, Rote-Augen-Verringerung</translation>
    </message>
    <message>
        <source>sRGB</source>
        <translation>sRGB</translation>
    </message>
    <message>
        <source>Uncalibrated</source>
        <translation>Nicht kalibriert</translation>
    </message>
    <message>
        <source>Directly photographed image</source>
        <translation>Direkt fotografiertes Bild</translation>
    </message>
    <message>
        <source>Normal process</source>
        <translation>Normale Verarbeitung</translation>
    </message>
    <message>
        <source>Custom process</source>
        <translation>Individuelle Verarbeitung</translation>
    </message>
    <message>
        <source>Easy Shooting</source>
        <translation>Vollautomatik</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>Programmautomatik</translation>
    </message>
    <message>
        <source>Tv-priority</source>
        <translation>Blendenautomatik (Tv)</translation>
    </message>
    <message>
        <source>Av-priority</source>
        <translation>Zeitautomatik (Av)</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>A-DEP</source>
        <translation>A-DEP</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Sunny</source>
        <translation>Sonnig</translation>
    </message>
    <message>
        <source>Cloudy</source>
        <translation>Bewölkt</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Eigene Einstellung</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Landschaft</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Porträt</translation>
    </message>
    <message>
        <source>Night Scene</source>
        <translation>Nachtszene</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Soft</source>
        <translation>Weich</translation>
    </message>
    <message>
        <source>Hard</source>
        <translation>Hart</translation>
    </message>
    <message>
        <source>Low saturation</source>
        <translation>Geringe Sättigung</translation>
    </message>
    <message>
        <source>High saturation</source>
        <translation>Hohe Sättigung</translation>
    </message>
    <message>
        <source>See ISOSpeedRatings Tag</source>
        <translation>Siehe Eintrag ISOSpeedRatings</translation>
    </message>
    <message>
        <source>50</source>
        <translation>50</translation>
    </message>
    <message>
        <source>100</source>
        <translation>100</translation>
    </message>
    <message>
        <source>200</source>
        <translation>200</translation>
    </message>
    <message>
        <source>400</source>
        <translation>400</translation>
    </message>
    <message>
        <source>Not defined</source>
        <translation>Nicht definiert</translation>
    </message>
    <message>
        <source>One-chip color area sensor</source>
        <translation>Ein-Chip-Farbflächensensor</translation>
    </message>
    <message>
        <source>Two-chip color area sensor</source>
        <translation>Zwei-Chip-Farbflächensensor</translation>
    </message>
    <message>
        <source>Three-chip color area sensor</source>
        <translation>Drei-Chip-Farbflächensensor</translation>
    </message>
    <message>
        <source>Color sequential area sensor</source>
        <translation>Sequenzieller Farbflächensensor</translation>
    </message>
    <message>
        <source>Trilinear sensor</source>
        <translation>Trilinearer Sensor</translation>
    </message>
    <message>
        <source>Color sequential linear sensor</source>
        <translation>Sequenzieller Farbzeilensensor</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Low gain up</source>
        <translation>Schwache Verstärkung</translation>
    </message>
    <message>
        <source>High gain up</source>
        <translation>Starke Verstärkung</translation>
    </message>
    <message>
        <source>Low gain down</source>
        <translation>Schwache Abschwächung</translation>
    </message>
    <message>
        <source>High gain down</source>
        <translation>Starke Abschwächung</translation>
    </message>
    <message>
        <source>Macro</source>
        <translation>Makro</translation>
    </message>
    <message>
        <source>Close view</source>
        <translation>Nah</translation>
    </message>
    <message>
        <source>Distant view</source>
        <translation>Fern</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>dpi</source>
        <translation>dpi</translation>
    </message>
    <message>
        <source>dpcm</source>
        <translation>dpcm</translation>
    </message>
    <message>
        <source>DSC (Digital Still Camera)</source>
        <translation>Digitalkamera (DSC)</translation>
    </message>
    <message>
        <source>Reduced Resolution</source>
        <translation>Verringerte Auflösung</translation>
    </message>
    <message>
        <source>Single Page</source>
        <translation>Einzelseite</translation>
    </message>
    <message>
        <source>Transparency Mask</source>
        <translation>Transparenzmaske</translation>
    </message>
    <message>
        <source>Full Resolution</source>
        <translation>Volle Auflösung</translation>
    </message>
    <message>
        <source>PackBytes</source>
        <translation>PackBytes</translation>
    </message>
    <message>
        <source>CCITT Group3</source>
        <translation>CCITT Gruppe 3</translation>
    </message>
    <message>
        <source>CCITT T4</source>
        <translation>CCITT T4</translation>
    </message>
    <message>
        <source>CCITT T6</source>
        <translation>CCITT T6</translation>
    </message>
    <message>
        <source>LZW</source>
        <translation>LZW</translation>
    </message>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>PackBits</source>
        <translation>PackBits</translation>
    </message>
    <message>
        <source>WhiteIsZero</source>
        <translation>Weiß ist null</translation>
    </message>
    <message>
        <source>BlackIsZero</source>
        <translation>Schwarz ist null</translation>
    </message>
    <message>
        <source>RGB Palette</source>
        <translation>RGB-Palette</translation>
    </message>
    <message>
        <source>CMYK</source>
        <translation>CMYK</translation>
    </message>
    <message>
        <source>YCbCr</source>
        <translation>YCbCr</translation>
    </message>
    <message>
        <source>CIELab</source>
        <translation>CIELab</translation>
    </message>
    <message>
        <source>No Dithering</source>
        <translation>Kein Dithering</translation>
    </message>
    <message>
        <source>Low in High</source>
        <translation>Niederwertig zuerst</translation>
    </message>
    <message>
        <source>High in Low</source>
        <translation>Höherwertig zuerst</translation>
    </message>
    <message>
        <source>Chunky</source>
        <translation>Zusammenhängend</translation>
    </message>
    <message>
        <source>Planar</source>
        <translation>Planar</translation>
    </message>
    <message>
        <source>Make</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Künstler</translation>
    </message>
    <message>
        <source>Copyright</source>
        <translation>Copyright</translation>
    </message>
    <message>
        <source>Software</source>
        <translation>Software</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Saturation</source>
        <translation>Sättigung</translation>
    </message>
    <message>
        <source>Sharpness</source>
        <translation>Schärfe</translation>
    </message>
    <message>
        <source>Compression</source>
        <translation>Kompression</translation>
    </message>
</context>
<context>
    <name>ExifBlock</name>
    <message>
        <source>an EXIF directory holds at most 65535 attributes</source>
        <translation>ein EXIF-Verzeichnis fasst höchstens 65535 Attribute</translation>
    </message>
    <message>
        <source>this EXIF directory can&apos;t be created</source>
        <translation>dieses EXIF-Verzeichnis lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>the EXIF data grow beyond 2 GB</source>
        <translation>die EXIF-Daten wachsen über 2 GB</translation>
    </message>
</context>
<context>
    <name>ExifDate</name>
    <message>
        <source>&quot;%1&quot; is not an EXIF date</source>
        <translation>„%1“ ist kein EXIF-Datum</translation>
    </message>
</context>
<context>
    <name>FirstHints</name>
    <message>
        <source>These are sample pictures, to try things on. For your own, choose a folder on the left, or press Ctrl+Shift+P for the folder of your pictures.</source>
        <translation>Das sind Beispielbilder zum Ausprobieren. Für Ihre eigenen wählen Sie links einen Ordner, oder drücken Sie Strg+Umschalt+P für den Ordner Ihrer Bilder.</translation>
    </message>
    <message>
        <source>Press F4 to change the picture on show: choose a task, such as Resize, and press Ctrl+Return. The list of these tasks can then run on every picture of the basket.</source>
        <translation>F4 ändert das gezeigte Bild: Wählen Sie eine Aufgabe, etwa „Größe ändern“, und drücken Sie Strg+Eingabe. Die Liste dieser Aufgaben kann dann auf jedes Bild des Korbs angewendet werden.</translation>
    </message>
    <message>
        <source>Press Ctrl+J to save the pictures of the basket as JPEG files. Tick &quot;Run the tasks of the task basket on every picture&quot; to save them with the tasks. You see the new names before anything is written.</source>
        <translation>Strg+J speichert die Bilder des Korbs als JPEG-Dateien. Setzen Sie das Häkchen bei „Aufgaben des Aufgabenkorbs auf jedes Bild anwenden“, um sie mit den Aufgaben zu speichern. Sie sehen die neuen Namen, bevor etwas geschrieben wird.</translation>
    </message>
</context>
<context>
    <name>FolderRow</name>
    <message>
        <source>File Name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Resolution</source>
        <translation>Auflösung</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Date Created</source>
        <translation>Erstellt am</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Geändert am</translation>
    </message>
    <message>
        <source>Date Accessed</source>
        <translation>Letzter Zugriff</translation>
    </message>
</context>
<context>
    <name>ForeignFile</name>
    <message>
        <source>It is not part of an album. Would You Like To Replace It, And All Files With Names Of The Album?</source>
        <translation>Sie gehört zu keinem Album. Möchten Sie sie und alle Dateien mit Namen des Albums ersetzen?</translation>
    </message>
</context>
<context>
    <name>GenerateAlbum</name>
    <message>
        <source>Loading Template...</source>
        <translation>Vorlage wird geladen ...</translation>
    </message>
</context>
<context>
    <name>GifCodec</name>
    <message>
        <source>no frame</source>
        <translation>kein Einzelbild</translation>
    </message>
    <message>
        <source>indexes of %1 bits</source>
        <translation>Indizes mit %1 Bit</translation>
    </message>
    <message>
        <source>no pixels</source>
        <translation>keine Pixel</translation>
    </message>
    <message>
        <source>file is truncated or damaged</source>
        <translation>die Datei ist unvollständig oder beschädigt</translation>
    </message>
</context>
<context>
    <name>IimData</name>
    <message>
        <source>IPTC dataset 2:%1 holds at most %2 bytes</source>
        <translation>der IPTC-Datensatz 2:%1 fasst höchstens %2 Bytes</translation>
    </message>
</context>
<context>
    <name>ImageBox</name>
    <message>
        <source>a picture can&apos;t get the size %1 x %2</source>
        <translation>ein Bild kann nicht die Größe %1 x %2 bekommen</translation>
    </message>
    <message>
        <source>a scale of %1 percent is too large</source>
        <translation>eine Skalierung von %1 Prozent ist zu groß</translation>
    </message>
    <message>
        <source>snapshots have no format %1</source>
        <translation>Schnappschüsse haben kein Format %1</translation>
    </message>
    <message>
        <source>empty crop rectangle: edges %1, %2 and %3, %4</source>
        <translation>leeres Rechteck zum Zuschneiden: Kanten %1, %2 und %3, %4</translation>
    </message>
    <message>
        <source>a crop to %1 x %2 pixels</source>
        <translation>ein Zuschnitt auf %1 x %2 Pixel</translation>
    </message>
    <message>
        <source>the box is empty</source>
        <translation>es ist kein Bild geladen</translation>
    </message>
    <message>
        <source>the snapshot holds no picture</source>
        <translation>der Schnappschuss enthält kein Bild</translation>
    </message>
    <message>
        <source>the point %1, %2 is outside the picture</source>
        <translation>der Punkt %1, %2 liegt außerhalb des Bilds</translation>
    </message>
    <message>
        <source>pictures can&apos;t be flipped in direction %1</source>
        <translation>Bilder lassen sich nicht in Richtung %1 spiegeln</translation>
    </message>
    <message>
        <source>a scale of %1 percent</source>
        <translation>eine Skalierung von %1 Prozent</translation>
    </message>
    <message>
        <source>nothing is selected</source>
        <translation>nichts ist ausgewählt</translation>
    </message>
    <message>
        <source>the picture to merge is empty</source>
        <translation>das einzufügende Bild ist leer</translation>
    </message>
    <message>
        <source>there is no merge style %1</source>
        <translation>es gibt keine Einfügeart %1</translation>
    </message>
</context>
<context>
    <name>ImageBoxFiles</name>
    <message>
        <source>%1: no writer for this format</source>
        <translation>%1: kein Schreibmodul für dieses Format</translation>
    </message>
    <message>
        <source>%1: unknown content</source>
        <translation>%1: unbekannter Inhalt</translation>
    </message>
    <message>
        <source>format %1</source>
        <translation>Format %1</translation>
    </message>
</context>
<context>
    <name>Iptc</name>
    <message>
        <source>Caption</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Caption Writer</source>
        <translation>Verfasser der Beschreibung</translation>
    </message>
    <message>
        <source>Headline</source>
        <translation>Überschrift</translation>
    </message>
    <message>
        <source>Special Instructions</source>
        <translation>Besondere Hinweise</translation>
    </message>
    <message>
        <source>Keywords</source>
        <translation>Stichwörter</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Supplemental Categories</source>
        <translation>Zusatzkategorien</translation>
    </message>
    <message>
        <source>By (Author)</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>By Title (Author&apos;s Position)</source>
        <translation>Position des Autors</translation>
    </message>
    <message>
        <source>Credit</source>
        <translation>Bildrechte</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Object Name (Title)</source>
        <translation>Objektname (Titel)</translation>
    </message>
    <message>
        <source>City</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>Province/State</source>
        <translation>Bundesland/Provinz</translation>
    </message>
    <message>
        <source>Country Name</source>
        <translation>Ländername</translation>
    </message>
    <message>
        <source>Original Transmission Reference (OTR)</source>
        <translation>Auftragskennung (OTR)</translation>
    </message>
    <message>
        <source>Copyright Notice</source>
        <translation>Copyright-Vermerk</translation>
    </message>
    <message>
        <source>Image URL</source>
        <translation>Bild-URL</translation>
    </message>
    <message>
        <source>Date Created</source>
        <translation>Erstellt am</translation>
    </message>
    <message>
        <source>Edit Status</source>
        <translation>Bearbeitungsstatus</translation>
    </message>
    <message>
        <source>Fixture Identifier</source>
        <translation>Kennung der Rubrik</translation>
    </message>
    <message>
        <source>Date Released</source>
        <translation>Freigabedatum</translation>
    </message>
    <message>
        <source>Reference Service</source>
        <translation>Referenzdienst</translation>
    </message>
    <message>
        <source>Reference Date</source>
        <translation>Referenzdatum</translation>
    </message>
    <message>
        <source>Reference Number</source>
        <translation>Referenznummer</translation>
    </message>
    <message>
        <source>Originating Program</source>
        <translation>Erstellungsprogramm</translation>
    </message>
    <message>
        <source>Program Version</source>
        <translation>Programmversion</translation>
    </message>
    <message>
        <source>Object Cycle</source>
        <translation>Objektzyklus</translation>
    </message>
    <message>
        <source>Sublocation</source>
        <translation>Ortsteil</translation>
    </message>
    <message>
        <source>Country Code</source>
        <translation>Ländercode</translation>
    </message>
    <message>
        <source>Local Caption</source>
        <translation>Lokale Beschreibung</translation>
    </message>
    <message>
        <source>Custom Field %1</source>
        <translation>Eigenes Feld %1</translation>
    </message>
    <message>
        <source>Time Released</source>
        <translation>Freigabezeit</translation>
    </message>
    <message>
        <source>Time Created</source>
        <translation>Erstellungszeit</translation>
    </message>
    <message>
        <source>Image Notes</source>
        <translation>Bildnotizen</translation>
    </message>
</context>
<context>
    <name>IptcFields</name>
    <message>
        <source>there is no IPTC member %1</source>
        <translation>es gibt kein IPTC-Element %1</translation>
    </message>
</context>
<context>
    <name>IptcSideFile</name>
    <message>
        <source>%1: not an IPTC side file: %2</source>
        <translation>%1: keine IPTC-Begleitdatei: %2</translation>
    </message>
    <message>
        <source>its data are damaged or cut short</source>
        <translation>ihre Daten sind beschädigt oder unvollständig</translation>
    </message>
    <message>
        <source>it has no IPTC block</source>
        <translation>sie hat keinen IPTC-Block</translation>
    </message>
</context>
<context>
    <name>ItemList</name>
    <message>
        <source>&quot;%1&quot; is in the list already.</source>
        <translation>„%1“ ist schon in der Liste.</translation>
    </message>
</context>
<context>
    <name>JoinedBuild</name>
    <message>
        <source>Loading Template...</source>
        <translation>Vorlage wird geladen ...</translation>
    </message>
    <message>
        <source>Saving Options...</source>
        <translation>Optionen werden gespeichert ...</translation>
    </message>
    <message>
        <source>the older file stays</source>
        <translation>die ältere Datei bleibt</translation>
    </message>
</context>
<context>
    <name>JoinedFile</name>
    <message>
        <source>%1: the pictures exceed the 10 GB of such a file</source>
        <translation>%1: Die Bilder sind größer als die 10 GB einer solchen Datei</translation>
    </message>
</context>
<context>
    <name>JpegCodec</name>
    <message>
        <source>more than %1 segments</source>
        <translation>mehr als %1 Segmente</translation>
    </message>
    <message>
        <source>no image data</source>
        <translation>keine Bilddaten</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
</context>
<context>
    <name>JpegEncoder</name>
    <message>
        <source>JPEG encoder: %1</source>
        <translation>JPEG-Kodierer: %1</translation>
    </message>
</context>
<context>
    <name>JpegMetadata</name>
    <message>
        <source>no picture in it</source>
        <translation>es ist kein Bild darin</translation>
    </message>
</context>
<context>
    <name>ListView</name>
    <message>
        <source>row %1 of %2</source>
        <translation>Zeile %1 von %2</translation>
    </message>
    <message>
        <source>SubItem %1</source>
        <translation>Unterelement %1</translation>
    </message>
</context>
<context>
    <name>LoadSource</name>
    <message>
        <source>the file is missing</source>
        <translation>die Datei fehlt</translation>
    </message>
    <message>
        <source>not a supported picture</source>
        <translation>kein unterstütztes Bild</translation>
    </message>
    <message>
        <source>the file is not readable</source>
        <translation>die Datei ist nicht lesbar</translation>
    </message>
</context>
<context>
    <name>MainActions</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Change the settings and see the shortcuts</source>
        <translation>Einstellungen ändern und Tastenkürzel ansehen</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Take a picture of the screen</source>
        <translation>Den Bildschirm aufnehmen</translation>
    </message>
    <message>
        <source>Next pane</source>
        <translation>Nächster Bereich</translation>
    </message>
    <message>
        <source>Previous pane</source>
        <translation>Voriger Bereich</translation>
    </message>
    <message>
        <source>Go to the folders</source>
        <translation>Zu den Ordnern</translation>
    </message>
    <message>
        <source>Go to the task basket</source>
        <translation>Zum Aufgabenkorb</translation>
    </message>
    <message>
        <source>Go to the files</source>
        <translation>Zu den Dateien</translation>
    </message>
    <message>
        <source>Go to the basket</source>
        <translation>Zum Korb</translation>
    </message>
    <message>
        <source>Go to the picture</source>
        <translation>Zum Bild</translation>
    </message>
    <message>
        <source>Go to EXIF</source>
        <translation>Zu EXIF</translation>
    </message>
    <message>
        <source>Go to IPTC</source>
        <translation>Zu IPTC</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Persönlicher Ordner</translation>
    </message>
    <message>
        <source>Show the home folder</source>
        <translation>Den persönlichen Ordner zeigen</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Show the folder of your pictures</source>
        <translation>Den Ordner Ihrer Bilder zeigen</translation>
    </message>
    <message>
        <source>Desktop</source>
        <translation>Desktop</translation>
    </message>
    <message>
        <source>Show the desktop&apos;s folder</source>
        <translation>Den Ordner des Desktops zeigen</translation>
    </message>
    <message>
        <source>Parent folder</source>
        <translation>Übergeordneter Ordner</translation>
    </message>
    <message>
        <source>Show the folder above</source>
        <translation>Den Ordner darüber zeigen</translation>
    </message>
    <message>
        <source>Type a path</source>
        <translation>Pfad eingeben</translation>
    </message>
    <message>
        <source>&amp;Add to basket</source>
        <translation>&amp;In den Korb</translation>
    </message>
    <message>
        <source>Add the selected files to the basket</source>
        <translation>Die ausgewählten Dateien in den Korb legen</translation>
    </message>
    <message>
        <source>Show thumbnails</source>
        <translation>Miniaturen zeigen</translation>
    </message>
    <message>
        <source>Show details</source>
        <translation>Details zeigen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>List the folder again</source>
        <translation>Den Ordner noch einmal auflisten</translation>
    </message>
    <message>
        <source>&amp;New basket</source>
        <translation>&amp;Neuer Korb</translation>
    </message>
    <message>
        <source>New basket</source>
        <translation>Neuer Korb</translation>
    </message>
    <message>
        <source>&amp;Open basket</source>
        <translation>Korb ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open basket</source>
        <translation>Korb öffnen</translation>
    </message>
    <message>
        <source>&amp;Save basket</source>
        <translation>&amp;Korb speichern</translation>
    </message>
    <message>
        <source>Save basket</source>
        <translation>Korb speichern</translation>
    </message>
    <message>
        <source>&amp;Remove from basket</source>
        <translation>Aus dem Korb &amp;entfernen</translation>
    </message>
    <message>
        <source>Remove from basket</source>
        <translation>Aus dem Korb entfernen</translation>
    </message>
    <message>
        <source>Print &amp;basket</source>
        <translation>Kor&amp;b drucken</translation>
    </message>
    <message>
        <source>Print the pictures of the basket</source>
        <translation>Die Bilder des Korbs drucken</translation>
    </message>
    <message>
        <source>Sa&amp;ve as</source>
        <translation>Speichern &amp;unter</translation>
    </message>
    <message>
        <source>Save the pictures of the basket</source>
        <translation>Die Bilder des Korbs speichern</translation>
    </message>
    <message>
        <source>&amp;JPEG files (batch mode)</source>
        <translation>&amp;JPEG-Dateien (Stapel)</translation>
    </message>
    <message>
        <source>&amp;Web Album</source>
        <translation>&amp;Webalbum</translation>
    </message>
    <message>
        <source>Screensaver/Sli&amp;de</source>
        <translation>Bildschirmschoner/&amp;Diaschau</translation>
    </message>
    <message>
        <source>Save &amp;As</source>
        <translation>Speichern &amp;unter</translation>
    </message>
    <message>
        <source>Add &amp;description</source>
        <translation>&amp;Beschreibung hinzufügen</translation>
    </message>
    <message>
        <source>Re&amp;name title</source>
        <translation>&amp;Titel umbenennen</translation>
    </message>
    <message>
        <source>Move u&amp;p</source>
        <translation>Nach &amp;oben</translation>
    </message>
    <message>
        <source>Mo&amp;ve down</source>
        <translation>Nach u&amp;nten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Edit EXIF tag</source>
        <translation>EXIF-Eintrag bearbeiten</translation>
    </message>
    <message>
        <source>Edit the selected EXIF tag</source>
        <translation>Den ausgewählten EXIF-Eintrag bearbeiten</translation>
    </message>
    <message>
        <source>New EXIF tag</source>
        <translation>Neuer EXIF-Eintrag</translation>
    </message>
    <message>
        <source>Create a new editable EXIF tag</source>
        <translation>Einen neuen bearbeitbaren EXIF-Eintrag anlegen</translation>
    </message>
    <message>
        <source>Remove EXIF tag</source>
        <translation>EXIF-Eintrag entfernen</translation>
    </message>
    <message>
        <source>Remove the selected EXIF tag from the image</source>
        <translation>Den ausgewählten EXIF-Eintrag aus dem Bild entfernen</translation>
    </message>
    <message>
        <source>Clear EXIF</source>
        <translation>EXIF leeren</translation>
    </message>
    <message>
        <source>Empty all EXIF tags from the image ( all EXIF tags will be discarded)</source>
        <translation>Alle EXIF-Einträge aus dem Bild entfernen (alle EXIF-Einträge gehen verloren)</translation>
    </message>
    <message>
        <source>Open EXIF file</source>
        <translation>EXIF-Datei öffnen</translation>
    </message>
    <message>
        <source>Open an existing EXIF file (.XIFF)</source>
        <translation>Eine vorhandene EXIF-Datei öffnen (.XIFF)</translation>
    </message>
    <message>
        <source>Save EXIF file</source>
        <translation>EXIF-Datei speichern</translation>
    </message>
    <message>
        <source>Save the current EXIF tags from the image to file (.XIFF)</source>
        <translation>Die EXIF-Einträge des Bilds in eine Datei speichern (.XIFF)</translation>
    </message>
    <message>
        <source>Edit IPTC tag</source>
        <translation>IPTC-Eintrag bearbeiten</translation>
    </message>
    <message>
        <source>Edit the selected IPTC tag</source>
        <translation>Den ausgewählten IPTC-Eintrag bearbeiten</translation>
    </message>
    <message>
        <source>Open IPTC file</source>
        <translation>IPTC-Datei öffnen</translation>
    </message>
    <message>
        <source>Open an existing IPTC file (.FFO)</source>
        <translation>Eine vorhandene IPTC-Datei öffnen (.FFO)</translation>
    </message>
    <message>
        <source>Save IPTC file</source>
        <translation>IPTC-Datei speichern</translation>
    </message>
    <message>
        <source>Save the current IPTC tags from the image to file (.FFO)</source>
        <translation>Die IPTC-Einträge des Bilds in eine Datei speichern (.FFO)</translation>
    </message>
    <message>
        <source>Delete IPTC tag</source>
        <translation>IPTC-Eintrag löschen</translation>
    </message>
    <message>
        <source>Delete the selected IPTC tag from the image</source>
        <translation>Den ausgewählten IPTC-Eintrag aus dem Bild löschen</translation>
    </message>
    <message>
        <source>Clear IPTC</source>
        <translation>IPTC leeren</translation>
    </message>
    <message>
        <source>Empty all IPTC tags from the image (all tags will be discarded)</source>
        <translation>Alle IPTC-Einträge aus dem Bild entfernen (alle Einträge gehen verloren)</translation>
    </message>
    <message>
        <source>New task basket</source>
        <translation>Neuer Aufgabenkorb</translation>
    </message>
    <message>
        <source>Create a new task basket</source>
        <translation>Einen neuen Aufgabenkorb anlegen</translation>
    </message>
    <message>
        <source>Open task basket</source>
        <translation>Aufgabenkorb öffnen</translation>
    </message>
    <message>
        <source>Open a task basket</source>
        <translation>Einen Aufgabenkorb öffnen</translation>
    </message>
    <message>
        <source>Save task basket</source>
        <translation>Aufgabenkorb speichern</translation>
    </message>
    <message>
        <source>Save the task basket</source>
        <translation>Den Aufgabenkorb speichern</translation>
    </message>
    <message>
        <source>Remove task</source>
        <translation>Aufgabe entfernen</translation>
    </message>
    <message>
        <source>Remove the selected task</source>
        <translation>Die ausgewählte Aufgabe entfernen</translation>
    </message>
    <message>
        <source>Previous image</source>
        <translation>Voriges Bild</translation>
    </message>
    <message>
        <source>Next image</source>
        <translation>Nächstes Bild</translation>
    </message>
    <message>
        <source>  Edit</source>
        <translation>  Bearbeiten</translation>
    </message>
    <message>
        <source>Change the picture with tasks, or finish that</source>
        <translation>Das Bild mit Aufgaben ändern, oder das beenden</translation>
    </message>
    <message>
        <source>&amp;Edit/Enhance image</source>
        <translation>Bild b&amp;earbeiten</translation>
    </message>
    <message>
        <source>Bes&amp;t Fit</source>
        <translation>Einp&amp;assen</translation>
    </message>
    <message>
        <source>Show the complete picture or each of its pixels</source>
        <translation>Das ganze Bild oder jedes seiner Pixel zeigen</translation>
    </message>
    <message>
        <source>Best &amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>Ac&amp;tual Size</source>
        <translation>Originalg&amp;röße</translation>
    </message>
    <message>
        <source>&amp;Original </source>
        <translation>&amp;Original </translation>
    </message>
    <message>
        <source>Show the picture as it is or with the tasks applied</source>
        <translation>Das Bild zeigen, wie es ist, oder mit den Aufgaben</translation>
    </message>
    <message>
        <source>&amp;Original</source>
        <translation>&amp;Original</translation>
    </message>
    <message>
        <source>O&amp;ptimized</source>
        <translation>O&amp;ptimiert</translation>
    </message>
    <message>
        <source>Save ima&amp;ge</source>
        <translation>Bild &amp;speichern</translation>
    </message>
    <message>
        <source>Save the picture on show</source>
        <translation>Das gezeigte Bild speichern</translation>
    </message>
    <message>
        <source>Print ima&amp;ge</source>
        <translation>Bild &amp;drucken</translation>
    </message>
    <message>
        <source>Print the picture on show</source>
        <translation>Das gezeigte Bild drucken</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Show what the task does to the picture</source>
        <translation>Die Wirkung der Aufgabe auf das Bild zeigen</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Confirm the task, or finish editing</source>
        <translation>Die Aufgabe bestätigen, oder die Bearbeitung beenden</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Take back the preview and the options</source>
        <translation>Vorschau und Optionen zurücknehmen</translation>
    </message>
    <message>
        <source>Origin&amp;al image</source>
        <translation>Originalbil&amp;d</translation>
    </message>
    <message>
        <source>Remove all tasks</source>
        <translation>Alle Aufgaben entfernen</translation>
    </message>
    <message>
        <source>Be&amp;fore</source>
        <translation>Vor&amp;her</translation>
    </message>
    <message>
        <source>Show the picture without the present task; hold B for a moment of it</source>
        <translation>Das Bild ohne die aktuelle Aufgabe zeigen; B gedrückt halten, um es kurz zu sehen</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>Show before and after on the two sides of a line</source>
        <translation>Vorher und nachher beiderseits einer Linie zeigen</translation>
    </message>
    <message>
        <source>&amp;Image document</source>
        <translation>&amp;Bilddokument</translation>
    </message>
    <message>
        <source>Interactive save &amp;utility</source>
        <translation>&amp;Interaktiv speichern</translation>
    </message>
    <message>
        <source>&amp;Greeting image</source>
        <translation>&amp;Grußbild</translation>
    </message>
    <message>
        <source>Acquire</source>
        <translation>Einlesen</translation>
    </message>
    <message>
        <source>Take pictures from a scanner</source>
        <translation>Bilder von einem Scanner einlesen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>The manual, and facts about this program</source>
        <translation>Das Handbuch und Angaben zu diesem Programm</translation>
    </message>
    <message>
        <source>&amp;Manual</source>
        <translation>Hand&amp;buch</translation>
    </message>
    <message>
        <source>Open the manual at the page of what has the focus</source>
        <translation>Das Handbuch auf der Seite zu dem öffnen, was den Fokus hat</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Über</translation>
    </message>
    <message>
        <source>Version, libraries and licences</source>
        <translation>Version, Bibliotheken und Lizenzen</translation>
    </message>
</context>
<context>
    <name>ManualPage</name>
    <message>
        <source>Replay a task list on all pictures of a folder, and name them by the day of the picture:</source>
        <translation>Eine Aufgabenliste auf alle Bilder eines Ordners anwenden und sie nach dem Tag der Aufnahme benennen:</translation>
    </message>
    <message>
        <source>Make files of at most 200 KB, and see before what would be written:</source>
        <translation>Dateien mit höchstens 200 KB erstellen und vorher sehen, was geschrieben würde:</translation>
    </message>
    <message>
        <source>Make an album of one page for phones and large screens, and write only what has changed:</source>
        <translation>Ein Album mit einer Seite für Telefone und große Bildschirme erstellen und nur Geändertes schreiben:</translation>
    </message>
    <message>
        <source>Make a screen saver that changes its picture every five seconds:</source>
        <translation>Einen Bildschirmschoner erstellen, der alle fünf Sekunden das Bild wechselt:</translation>
    </message>
    <message>
        <source>Make a slide show for a computer with Windows:</source>
        <translation>Eine Diaschau für einen Computer mit Windows erstellen:</translation>
    </message>
    <message>
        <source>Let a text rain over a picture:</source>
        <translation>Einen Text über ein Bild regnen lassen:</translation>
    </message>
    <message>
        <source>See which pictures a slide show has:</source>
        <translation>Sehen, welche Bilder eine Diaschau enthält:</translation>
    </message>
    <message>
        <source>Copy them out:</source>
        <translation>Sie herauskopieren:</translation>
    </message>
    <message>
        <source>Try a task list on one picture, and look at the result without loss:</source>
        <translation>Eine Aufgabenliste an einem Bild ausprobieren und das Ergebnis verlustfrei ansehen:</translation>
    </message>
    <message>
        <source>Make a JPEG file of at most 200 KB, in the best quality that fits:</source>
        <translation>Eine JPEG-Datei mit höchstens 200 KB in der besten Qualität erstellen, die hineinpasst:</translation>
    </message>
    <message>
        <source>Pack a scanned page as a fax machine does:</source>
        <translation>Eine gescannte Seite packen, wie es ein Faxgerät tut:</translation>
    </message>
    <message>
        <source>Make a contact sheet with the names of the pictures:</source>
        <translation>Einen Kontaktabzug mit den Namen der Bilder erstellen:</translation>
    </message>
    <message>
        <source>Take a picture of the screen in three seconds, with the pointer:</source>
        <translation>Den Bildschirm in drei Sekunden aufnehmen, mit dem Mauszeiger:</translation>
    </message>
    <message>
        <source>Scan all pages of a document feeder into one document:</source>
        <translation>Alle Seiten eines Einzugs in ein Dokument einlesen:</translation>
    </message>
    <message>
        <source>Show sizes, pages, EXIF and IPTC for a script:</source>
        <translation>Größen, Seiten, EXIF und IPTC für ein Skript ausgeben:</translation>
    </message>
    <message>
        <source>Read a task list in words before it is run:</source>
        <translation>Eine Aufgabenliste in Worten lesen, bevor sie läuft:</translation>
    </message>
    <message>
        <source>Make a basket of all JPEG files, and list it:</source>
        <translation>Einen Korb aus allen JPEG-Dateien erstellen und anzeigen:</translation>
    </message>
    <message>
        <source>Show what a picture says of itself:</source>
        <translation>Zeigen, was ein Bild von sich sagt:</translation>
    </message>
    <message>
        <source>Give a picture a caption and its photographer:</source>
        <translation>Einem Bild eine Beschreibung und seinen Fotografen geben:</translation>
    </message>
    <message>
        <source>Delete two attributes from all pictures of a folder:</source>
        <translation>Zwei Attribute aus allen Bildern eines Ordners löschen:</translation>
    </message>
    <message>
        <source>Try what would be deleted:</source>
        <translation>Ausprobieren, was gelöscht würde:</translation>
    </message>
    <message>
        <source>Write side files beside each picture:</source>
        <translation>Begleitdateien neben jedes Bild schreiben:</translation>
    </message>
    <message>
        <source>Put the IPTC fields of a side file into pictures:</source>
        <translation>Die IPTC-Felder einer Begleitdatei in Bilder übertragen:</translation>
    </message>
    <message>
        <source>All done.</source>
        <translation>Alles erledigt.</translation>
    </message>
    <message>
        <source>Something not done, or done with a warning: its source is damaged, a task failed, it replaced the file of another row.</source>
        <translation>Etwas nicht erledigt oder nur mit einer Warnung: Die Quelle ist beschädigt, eine Aufgabe schlug fehl, die Datei einer anderen Zeile wurde ersetzt.</translation>
    </message>
    <message>
        <source>Wrong usage.</source>
        <translation>Falscher Aufruf.</translation>
    </message>
    <message>
        <source>Interrupted.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The language of messages.</source>
        <translation>Die Sprache der Meldungen.</translation>
    </message>
    <message>
        <source>Another program in place of tarsel-decoder, which draws metafiles.</source>
        <translation>Ein anderes Programm anstelle von tarsel-decoder, das Metadateien zeichnet.</translation>
    </message>
    <message>
        <source>Another program in place of tarsel-scanner, in which drivers of scanners run.</source>
        <translation>Ein anderes Programm anstelle von tarsel-scanner, in dem die Treiber von Scannern laufen.</translation>
    </message>
    <message>
        <source>The folder of the players that screen savers, slide shows and greetings are made of, in place of the installed one.</source>
        <translation>Der Ordner der Player, aus denen Bildschirmschoner, Diaschauen und Grußbilder entstehen, anstelle des installierten.</translation>
    </message>
    <message>
        <source>With tarsel.*.debug=true, errors that are ignored go to standard error.</source>
        <translation>Mit tarsel.*.debug=true gehen Fehler, die übergangen werden, an die Standardfehlerausgabe.</translation>
    </message>
    <message>
        <source>Task list: what is to be done with each picture.</source>
        <translation>Aufgabenliste: was mit jedem Bild geschehen soll.</translation>
    </message>
    <message>
        <source>Basket: paths of pictures; in a .ibd file with descriptions.</source>
        <translation>Korb: Pfade von Bildern; in einer .ibd-Datei mit Beschreibungen.</translation>
    </message>
    <message>
        <source>Side files: EXIF attributes, IPTC fields.</source>
        <translation>Begleitdateien: EXIF-Attribute, IPTC-Felder.</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>BEZEICHNUNG</translation>
    </message>
    <message>
        <source>EXAMPLES</source>
        <translation>BEISPIELE</translation>
    </message>
    <message>
        <source>SEE ALSO</source>
        <translation>SIEHE AUCH</translation>
    </message>
    <message>
        <source>SYNOPSIS</source>
        <translation>ÜBERSICHT</translation>
    </message>
    <message>
        <source>OPTION</source>
        <translation>OPTION</translation>
    </message>
    <message>
        <source>DESCRIPTION</source>
        <translation>BESCHREIBUNG</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>OPTIONEN</translation>
    </message>
    <message>
        <source>show a summary of this page</source>
        <translation>eine Kurzfassung dieser Seite zeigen</translation>
    </message>
    <message>
        <source>EXIT STATUS</source>
        <translation>EXIT-STATUS</translation>
    </message>
    <message>
        <source>make JPEG documents from collections of pictures</source>
        <translation>erstellt JPEG-Dokumente aus Bildersammlungen</translation>
    </message>
    <message>
        <source>COMMAND</source>
        <translation>COMMAND</translation>
    </message>
    <message>
        <source>OPERAND</source>
        <translation>OPERAND</translation>
    </message>
    <message>
        <source>The program replays task lists on pictures, saves baskets of them, makes web albums, screen savers, slide shows and greetings, and reads and writes EXIF and IPTC. It needs no display.

Results go to standard output, messages to standard error. With --json, results are one JSON object a line. On a terminal a bar shows how far it is.</source>
        <translation>Das Programm wendet Aufgabenlisten auf Bilder an, speichert Körbe von Bildern, erstellt Webalben, Bildschirmschoner, Diaschauen und Grußbilder und liest und schreibt EXIF und IPTC. Es braucht keinen Bildschirm.

Ergebnisse gehen an die Standardausgabe, Meldungen an die Standardfehlerausgabe. Mit --json sind Ergebnisse ein JSON-Objekt je Zeile. Auf einem Terminal zeigt ein Balken, wie weit es ist.</translation>
    </message>
    <message>
        <source>COMMANDS</source>
        <translation>BEFEHLE</translation>
    </message>
    <message>
        <source>ENVIRONMENT</source>
        <translation>UMGEBUNG</translation>
    </message>
    <message>
        <source>FILES</source>
        <translation>DATEIEN</translation>
    </message>
    <message>
        <source>gather, edit and save collections of pictures</source>
        <translation>Bildersammlungen anlegen, bearbeiten und speichern</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>0 after the window was closed, 1 when it could not be opened, 2 after an unknown option.</source>
        <translation>0 nach dem Schließen des Fensters, 1, wenn es sich nicht öffnen ließ, 2 nach einer unbekannten Option.</translation>
    </message>
    <message>
        <source>The settings, the basket of the last session, and pages of documents that are in the basket. XDG_DATA_HOME names another place.</source>
        <translation>Die Einstellungen, der Korb der letzten Sitzung und Seiten von Dokumenten, die im Korb liegen. XDG_DATA_HOME nennt einen anderen Ort.</translation>
    </message>
    <message>
        <source>Show a folder, and open a basket:</source>
        <translation>Einen Ordner zeigen und einen Korb öffnen:</translation>
    </message>
    <message>
        <source>Metadata basket: the lines of metadata that a web album shows.</source>
        <translation>Metadatenkorb: die Zeilen mit Metadaten, die ein Webalbum zeigt.</translation>
    </message>
</context>
<context>
    <name>MetadataBasket</name>
    <message>
        <source>%1, line %2 is empty</source>
        <translation>%1, Zeile %2 ist leer</translation>
    </message>
</context>
<context>
    <name>MetadataEditor</name>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>The file was not written.
%1</source>
        <translation>Die Datei wurde nicht geschrieben.
%1</translation>
    </message>
</context>
<context>
    <name>MetadataWriter</name>
    <message>
        <source>the file became shorter meanwhile</source>
        <translation>die Datei wurde inzwischen kürzer</translation>
    </message>
    <message>
        <source>metadata in this format can&apos;t be changed</source>
        <translation>Metadaten in diesem Format lassen sich nicht ändern</translation>
    </message>
    <message>
        <source>another program changed the file meanwhile</source>
        <translation>ein anderes Programm hat die Datei inzwischen geändert</translation>
    </message>
    <message>
        <source>the metadata can&apos;t be stored in this file without a loss</source>
        <translation>die Metadaten lassen sich nicht ohne Verlust in dieser Datei speichern</translation>
    </message>
</context>
<context>
    <name>MetafileCodec</name>
    <message>
        <source>no header</source>
        <translation>kein Dateikopf</translation>
    </message>
</context>
<context>
    <name>ModernAlbum</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Web album</source>
        <translation>Webalbum</translation>
    </message>
    <message numerus="yes">
        <source>%n pictures</source>
        <translation>
            <numerusform>%n Bild</numerusform>
            <numerusform>%n Bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <comment>number of a picture, number of pictures</comment>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Previous picture</source>
        <translation>Vorheriges Bild</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Nächstes Bild</translation>
    </message>
    <message>
        <source>en</source>
        <comment>the language of these texts, as HTML names it</comment>
        <translation>de</translation>
    </message>
</context>
<context>
    <name>NamePlanner</name>
    <message>
        <source>is the source of row %1: the row will be skipped</source>
        <translation>ist die Quelle von Zeile %1: Die Zeile wird übersprungen</translation>
    </message>
    <message>
        <source>is the source of row %1: will be replaced, but that row still reads it as it is now</source>
        <translation>ist die Quelle von Zeile %1: wird ersetzt, doch diese Zeile liest sie noch, wie sie jetzt ist</translation>
    </message>
    <message>
        <source>is the source of row %1: will be replaced</source>
        <translation>ist die Quelle von Zeile %1: wird ersetzt</translation>
    </message>
    <message>
        <source>exists already: will be replaced</source>
        <translation>existiert schon: wird ersetzt</translation>
    </message>
    <message>
        <source>exists already: the row will be skipped</source>
        <translation>existiert schon: Die Zeile wird übersprungen</translation>
    </message>
    <message>
        <source>the same name as row %1: will be replaced</source>
        <translation>derselbe Name wie Zeile %1: wird ersetzt</translation>
    </message>
    <message>
        <source>the same name as row %1: the row will be skipped</source>
        <translation>derselbe Name wie Zeile %1: Die Zeile wird übersprungen</translation>
    </message>
    <message>
        <source>is the row&apos;s own source: will be replaced</source>
        <translation>ist die eigene Quelle der Zeile: wird ersetzt</translation>
    </message>
    <message>
        <source>is the row&apos;s own source: the row will be skipped</source>
        <translation>ist die eigene Quelle der Zeile: Die Zeile wird übersprungen</translation>
    </message>
    <message>
        <source>not known before the run: %1</source>
        <translation>vor dem Lauf nicht bekannt: %1</translation>
    </message>
    <message>
        <source>the run would end here: %1</source>
        <translation>der Lauf würde hier enden: %1</translation>
    </message>
    <message>
        <source>it depends on the size after the tasks</source>
        <translation>er hängt von der Größe nach den Aufgaben ab</translation>
    </message>
</context>
<context>
    <name>NameSummary</name>
    <message numerus="yes">
        <source>%n names, no clashes</source>
        <translation>
            <numerusform>%n Name, keine Konflikte</numerusform>
            <numerusform>%n Namen, keine Konflikte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n names</source>
        <translation>
            <numerusform>%n Name</numerusform>
            <numerusform>%n Namen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n names are not possible: the run would end at the first</source>
        <translation>
            <numerusform>%n Name ist nicht möglich: Der Lauf würde dort enden</numerusform>
            <numerusform>%n Namen sind nicht möglich: Der Lauf würde beim ersten enden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n originals will be overwritten</source>
        <translation>
            <numerusform>%n Original wird überschrieben</numerusform>
            <numerusform>%n Originale werden überschrieben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n existing files will be replaced</source>
        <translation>
            <numerusform>%n vorhandene Datei wird ersetzt</numerusform>
            <numerusform>%n vorhandene Dateien werden ersetzt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rows will replace the file of an earlier row</source>
        <translation>
            <numerusform>%n Zeile ersetzt die Datei einer früheren</numerusform>
            <numerusform>%n Zeilen ersetzen die Datei einer früheren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rows will be skipped, because their files exist</source>
        <translation>
            <numerusform>%n Zeile wird übersprungen, weil ihre Datei existiert</numerusform>
            <numerusform>%n Zeilen werden übersprungen, weil ihre Dateien existieren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rows will be skipped, because an earlier row has their name</source>
        <translation>
            <numerusform>%n Zeile wird übersprungen, weil eine frühere ihren Namen hat</numerusform>
            <numerusform>%n Zeilen werden übersprungen, weil eine frühere ihren Namen hat</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n names are not known before the run</source>
        <translation>
            <numerusform>%n Name ist vor dem Lauf nicht bekannt</numerusform>
            <numerusform>%n Namen sind vor dem Lauf nicht bekannt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OfferedFiles</name>
    <message numerus="yes">
        <source>%n addresses were skipped: they are not on this computer.</source>
        <translation>
            <numerusform>%n Adresse wurde übersprungen: Sie liegt nicht auf diesem Computer.</numerusform>
            <numerusform>%n Adressen wurden übersprungen: Sie liegen nicht auf diesem Computer.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n files and folders were skipped: they can&apos;t be read.</source>
        <translation>
            <numerusform>%n Datei oder Ordner wurde übersprungen: nicht lesbar.</numerusform>
            <numerusform>%n Dateien und Ordner wurden übersprungen: nicht lesbar.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n pictures were skipped: they are in the basket.</source>
        <translation>
            <numerusform>%n Bild wurde übersprungen: Es ist schon im Korb.</numerusform>
            <numerusform>%n Bilder wurden übersprungen: Sie sind schon im Korb.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OutputName</name>
    <message>
        <source>the count %1 of row %2 is beyond 32767</source>
        <translation>die Nummer %1 von Zeile %2 liegt über 32767</translation>
    </message>
    <message>
        <source>%1: the name &quot;%2&quot; holds a &quot;/&quot;, which no file name can</source>
        <translation>%1: Der Name „%2“ enthält ein „/“, das in keinem Dateinamen stehen kann</translation>
    </message>
    <message>
        <source>%1: the name &quot;%2&quot; holds a NUL character, which no file name can</source>
        <translation>%1: Der Name „%2“ enthält ein NUL-Zeichen, das in keinem Dateinamen stehen kann</translation>
    </message>
</context>
<context>
    <name>PcxCodec</name>
    <message>
        <source>no header</source>
        <translation>kein Dateikopf</translation>
    </message>
    <message>
        <source>%1 planes of %2 bits are not known</source>
        <translation>%1 Ebenen mit %2 Bit sind nicht bekannt</translation>
    </message>
    <message>
        <source>its rows are shorter than its width</source>
        <translation>seine Zeilen sind kürzer als seine Breite</translation>
    </message>
    <message>
        <source>no pixels</source>
        <translation>keine Pixel</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
</context>
<context>
    <name>PdfDocument</name>
    <message>
        <source>PDF encoder: %1</source>
        <translation>PDF-Kodierer: %1</translation>
    </message>
</context>
<context>
    <name>PdfWriter</name>
    <message>
        <source>documents are written, but not read</source>
        <translation>Dokumente werden geschrieben, aber nicht gelesen</translation>
    </message>
</context>
<context>
    <name>Picture</name>
    <message>
        <source>a picture of %1 x %2 pixels is not possible</source>
        <translation>ein Bild mit %1 x %2 Pixeln ist nicht möglich</translation>
    </message>
    <message>
        <source>a picture of %1 channels</source>
        <translation>ein Bild mit %1 Kanälen</translation>
    </message>
</context>
<context>
    <name>PictureFile</name>
    <message>
        <source>%1: the file is empty</source>
        <translation>%1: Die Datei ist leer</translation>
    </message>
    <message>
        <source>%1: not a picture of a known format</source>
        <translation>%1: kein Bild eines bekannten Formats</translation>
    </message>
</context>
<context>
    <name>PictureSource</name>
    <message>
        <source>%1: a file of %2 MB is too large for its format</source>
        <translation>%1: Eine Datei mit %2 MB ist für ihr Format zu groß</translation>
    </message>
</context>
<context>
    <name>PixelBuffer</name>
    <message>
        <source>no %1 bytes for a picture</source>
        <translation>keine %1 Bytes für ein Bild frei</translation>
    </message>
</context>
<context>
    <name>Players</name>
    <message>
        <source>Players for Windows are built where g++-mingw-w64-x86-64 is installed.</source>
        <translation>Player für Windows werden gebaut, wo g++-mingw-w64-x86-64 installiert ist.</translation>
    </message>
    <message>
        <source>Build or install the program again with its players.</source>
        <translation>Bauen oder installieren Sie das Programm noch einmal, mit seinen Playern.</translation>
    </message>
    <message>
        <source>The player &quot;%1&quot; is missing in %2. %3 The environment variable TARSEL_PLAYERS can name another folder.</source>
        <translation>Der Player „%1“ fehlt in %2. %3 Die Umgebungsvariable TARSEL_PLAYERS kann einen anderen Ordner nennen.</translation>
    </message>
</context>
<context>
    <name>PngReader</name>
    <message>
        <source>no memory</source>
        <translation>kein Speicher</translation>
    </message>
</context>
<context>
    <name>PngWriter</name>
    <message>
        <source>PNG encoder</source>
        <translation>PNG-Kodierer</translation>
    </message>
    <message>
        <source>PNG encoder: %1</source>
        <translation>PNG-Kodierer: %1</translation>
    </message>
</context>
<context>
    <name>PreviewStep</name>
    <message>
        <source>Please select a region of the picture first.</source>
        <translation>Bitte wählen Sie zuerst einen Bereich des Bilds aus.</translation>
    </message>
    <message>
        <source>Drag the region from its top left to its bottom right.</source>
        <translation>Ziehen Sie den Bereich von links oben nach rechts unten.</translation>
    </message>
    <message>
        <source>Please select an image/logo for watermarking the image.</source>
        <translation>Bitte wählen Sie ein Bild oder Logo als Wasserzeichen aus.</translation>
    </message>
    <message>
        <source>The last watermark image/logo file has either moved, renamed or deleted.
Please select an image/logo from disk.</source>
        <translation>Das zuletzt verwendete Wasserzeichen wurde verschoben, umbenannt oder gelöscht.
Bitte wählen Sie ein Bild oder Logo vom Datenträger.</translation>
    </message>
</context>
<context>
    <name>PrintPages</name>
    <message>
        <source>the printer doesn&apos;t take the pages</source>
        <translation>der Drucker nimmt die Seiten nicht an</translation>
    </message>
</context>
<context>
    <name>PrintQueue</name>
    <message>
        <source>The printer %1 did not take the pages: %2</source>
        <translation>Der Drucker %1 hat die Seiten nicht angenommen: %2</translation>
    </message>
</context>
<context>
    <name>ProgramOptions</name>
    <message>
        <source>%1: unknown option &quot;%2&quot;. Try &quot;%1 --help&quot;.</source>
        <translation>%1: unbekannte Option „%2“. Hilfe: „%1 --help“.</translation>
    </message>
    <message>
        <source>Usage: %1 [FILE]</source>
        <translation>Aufruf: %1 [FILE]</translation>
    </message>
    <message>
        <source>show this page</source>
        <translation>diese Seite zeigen</translation>
    </message>
    <message>
        <source>show the version</source>
        <translation>die Version zeigen</translation>
    </message>
    <message>
        <source>Opens the window of %1: on a picture or a folder, with the pictures of a basket file (*.ibf, *.ibd), or with the tasks of a task basket file (*.tbf).</source>
        <translation>Öffnet das Fenster von %1: mit einem Bild oder Ordner, mit den Bildern einer Korbdatei (*.ibf, *.ibd), oder mit den Aufgaben einer Aufgabenkorbdatei (*.tbf).</translation>
    </message>
    <message>
        <source>Options of Qt, such as -platform and -style, are taken too. The program &quot;tarsel&quot; does the same work without a window.</source>
        <translation>Optionen von Qt wie -platform und -style gelten auch. Das Programm „tarsel“ leistet dasselbe ohne Fenster.</translation>
    </message>
    <message>
        <source>%1: expected one FILE. Try &quot;%1 --help&quot;.</source>
        <translation>%1: erwartet: eine FILE. Hilfe: „%1 --help“.</translation>
    </message>
</context>
<context>
    <name>Progress</name>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 of %2, %3 left</source>
        <translation>%1 von %2, noch %3</translation>
    </message>
</context>
<context>
    <name>PsdCodec</name>
    <message>
        <source>its resources are too large to be changed</source>
        <translation>seine Ressourcen sind zu groß, um geändert zu werden</translation>
    </message>
    <message>
        <source>saved without a merged picture</source>
        <translation>ohne zusammengefügtes Bild gespeichert</translation>
    </message>
</context>
<context>
    <name>PsdReader</name>
    <message>
        <source>%1 channels of %2 bits, mode %3, are not supported</source>
        <translation>%1 Kanäle mit %2 Bit, Modus %3, werden nicht unterstützt</translation>
    </message>
    <message>
        <source>file is truncated before its merged picture</source>
        <translation>die Datei endet vor ihrem zusammengefügten Bild</translation>
    </message>
    <message>
        <source>compression %1 is not supported</source>
        <translation>Kompression %1 wird nicht unterstützt</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
    <message>
        <source>rows of the merged picture are damaged</source>
        <translation>Zeilen des zusammengefügten Bilds sind beschädigt</translation>
    </message>
</context>
<context>
    <name>QtDialogs</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>Browse for folder</source>
        <translation>Ordner wählen</translation>
    </message>
    <message>
        <source>You may not write to the folder %1.</source>
        <translation>Sie dürfen nicht in den Ordner %1 schreiben.</translation>
    </message>
</context>
<context>
    <name>QuotedRecordReader</name>
    <message>
        <source>a field of %1 bytes</source>
        <translation>ein Feld mit %1 Bytes</translation>
    </message>
</context>
<context>
    <name>RecordImage</name>
    <message>
        <source>%1 is too long to be stored</source>
        <translation>%1 ist zu lang zum Speichern</translation>
    </message>
</context>
<context>
    <name>ReplaceQuestion</name>
    <message>
        <source>This File (&apos;%1&apos;) Already Exists!
%2</source>
        <translation>Die Datei („%1“) existiert schon!
%2</translation>
    </message>
</context>
<context>
    <name>Replay</name>
    <message>
        <source>task %1: %2</source>
        <translation>Aufgabe %1: %2</translation>
    </message>
    <message>
        <source>task %1 (%2): %3</source>
        <translation>Aufgabe %1 (%2): %3</translation>
    </message>
</context>
<context>
    <name>Rotate</name>
    <message>
        <source>the angle of the rotation is not a number</source>
        <translation>der Drehwinkel ist keine Zahl</translation>
    </message>
</context>
<context>
    <name>RoundTripFacts</name>
    <message>
        <source>%1 times the size of the original</source>
        <translation>%1-mal so groß wie das Original</translation>
    </message>
    <message>
        <source>%1 % larger than the original</source>
        <translation>%1 % größer als das Original</translation>
    </message>
    <message>
        <source>%1 % smaller than the original</source>
        <translation>%1 % kleiner als das Original</translation>
    </message>
    <message>
        <source>Equal to the original in every pixel</source>
        <translation>In jedem Pixel gleich dem Original</translation>
    </message>
    <message>
        <source>PSNR %1 dB, SSIM %2</source>
        <translation>PSNR %1 dB, SSIM %2</translation>
    </message>
    <message>
        <source>This format isn&apos;t read back: the original is shown.</source>
        <translation>Dieses Format wird nicht zurückgelesen: Gezeigt wird das Original.</translation>
    </message>
    <message>
        <source>Reduced to %1 x %2 pixels</source>
        <translation>Verkleinert auf %1 x %2 Pixel</translation>
    </message>
    <message>
        <source>%1 % of the pixels became transparent</source>
        <translation>%1 % der Pixel wurden transparent</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>Encoded in %1 ms</source>
        <translation>In %1 ms kodiert</translation>
    </message>
</context>
<context>
    <name>RowLoop</name>
    <message>
        <source>the source is damaged: %1</source>
        <translation>die Quelle ist beschädigt: %1</translation>
    </message>
    <message>
        <source>the task list ended early: %1</source>
        <translation>die Aufgabenliste endete vorzeitig: %1</translation>
    </message>
</context>
<context>
    <name>RowResult</name>
    <message>
        <source>exists already</source>
        <translation>existiert schon</translation>
    </message>
    <message>
        <source>dry run</source>
        <translation>Probelauf</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>not reached</source>
        <translation>nicht erreicht</translation>
    </message>
    <message>
        <source>the row was removed during the run</source>
        <translation>die Zeile wurde während des Laufs entfernt</translation>
    </message>
    <message>
        <source>unchanged since the last run</source>
        <translation>seit dem letzten Lauf unverändert</translation>
    </message>
</context>
<context>
    <name>SafeFileWriter</name>
    <message>
        <source>%1: not a regular file</source>
        <translation>%1: keine gewöhnliche Datei</translation>
    </message>
</context>
<context>
    <name>SaveFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 existiert schon.
Möchten Sie sie ersetzen?</translation>
    </message>
</context>
<context>
    <name>SaveFormats</name>
    <message>
        <source>24 bit (true color)</source>
        <translation>24 Bit (Echtfarben)</translation>
    </message>
    <message>
        <source>256 Colors</source>
        <translation>256 Farben</translation>
    </message>
    <message>
        <source>256 Grayscale</source>
        <translation>256 Graustufen</translation>
    </message>
    <message>
        <source>16 Colors</source>
        <translation>16 Farben</translation>
    </message>
    <message>
        <source>16 Grayscale</source>
        <translation>16 Graustufen</translation>
    </message>
    <message>
        <source>Monochrome</source>
        <translation>Monochrom</translation>
    </message>
    <message>
        <source>Monochrome B/W</source>
        <translation>Monochrom S/W</translation>
    </message>
    <message>
        <source>Windows Bitmap (*.bmp)|*.bmp</source>
        <translation>Windows-Bitmap (*.bmp)|*.bmp</translation>
    </message>
    <message>
        <source>CompuServe GIF (*.gif)|*.gif</source>
        <translation>CompuServe GIF (*.gif)|*.gif</translation>
    </message>
    <message>
        <source>JPEG group (*.jpg)|*.jpg</source>
        <translation>JPEG-Gruppe (*.jpg)|*.jpg</translation>
    </message>
    <message>
        <source>ZSoft Paint (*.pcx)|*.pcx</source>
        <translation>ZSoft Paint (*.pcx)|*.pcx</translation>
    </message>
    <message>
        <source>PNG Network (*.png)|*.png</source>
        <translation>PNG-Netzwerkgrafik (*.png)|*.png</translation>
    </message>
    <message>
        <source>Wireless Bitmap (*.wbmp)|*wbmp</source>
        <translation>Wireless Bitmap (*.wbmp)|*wbmp</translation>
    </message>
    <message>
        <source>Photoshop (*.psd)|*.psd</source>
        <translation>Photoshop (*.psd)|*.psd</translation>
    </message>
    <message>
        <source>Tag Image format (*.tif)|*.tif</source>
        <translation>TIFF-Bild (*.tif)|*.tif</translation>
    </message>
    <message>
        <source>Portable Document (*.pdf)|*.pdf</source>
        <translation>PDF-Dokument (*.pdf)|*.pdf</translation>
    </message>
</context>
<context>
    <name>SavedRows</name>
    <message>
        <source>the name lacks %1: %2</source>
        <translation>dem Namen fehlt %1: %2</translation>
    </message>
    <message>
        <source>replaces a file that may be of a row outside the slice</source>
        <translation>ersetzt eine Datei, die von einer Zeile außerhalb des Abschnitts sein kann</translation>
    </message>
    <message>
        <source>the file of row %1 has the same name</source>
        <translation>die Datei von Zeile %1 hat denselben Namen</translation>
    </message>
    <message>
        <source>takes the place of the file of row %1</source>
        <translation>tritt an die Stelle der Datei von Zeile %1</translation>
    </message>
</context>
<context>
    <name>SaverBuilder</name>
    <message>
        <source>Save Slide As...</source>
        <translation>Diaschau speichern unter ...</translation>
    </message>
    <message>
        <source>Save ScreenSaver As...</source>
        <translation>Bildschirmschoner speichern unter ...</translation>
    </message>
    <message>
        <source>Slide (*.exe) | *.exe|All Files (*.*) | *.*</source>
        <translation>Diaschau (*.exe) | *.exe|Alle Dateien (*.*) | *.*</translation>
    </message>
    <message>
        <source>Screen Savers (*.scr) | *.scr|All Files (*.*) | *.*</source>
        <translation>Bildschirmschoner (*.scr) | *.scr|Alle Dateien (*.*) | *.*</translation>
    </message>
    <message>
        <source>Would You Like To Overwrite It?</source>
        <translation>Möchten Sie sie überschreiben?</translation>
    </message>
</context>
<context>
    <name>ScanChoices</name>
    <message>
        <source>Black and white</source>
        <translation>Schwarz-Weiß</translation>
    </message>
    <message>
        <source>Black and white, halftone</source>
        <translation>Schwarz-Weiß, gerastert</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Flatbed</source>
        <translation>Flachbett</translation>
    </message>
    <message>
        <source>Feeder</source>
        <translation>Einzug</translation>
    </message>
    <message>
        <source>Feeder, front side</source>
        <translation>Einzug, Vorderseite</translation>
    </message>
    <message>
        <source>Feeder, back side</source>
        <translation>Einzug, Rückseite</translation>
    </message>
    <message>
        <source>Feeder, both sides</source>
        <translation>Einzug, beide Seiten</translation>
    </message>
    <message>
        <source>Automatic document feeder</source>
        <translation>Automatischer Einzug</translation>
    </message>
</context>
<context>
    <name>ScanCommand</name>
    <message>
        <source>tarsel: of several scanners, %1 is used</source>
        <translation>tarsel: Von mehreren Scannern wird %1 verwendet</translation>
    </message>
    <message>
        <source>the scanner sent fewer lines than it promised</source>
        <translation>der Scanner hat weniger Zeilen geliefert als angekündigt</translation>
    </message>
    <message>
        <source>tarsel: page %1 is not saved: %2</source>
        <translation>tarsel: Seite %1 ist nicht gespeichert: %2</translation>
    </message>
    <message>
        <source>%1: page %2, %3 x %4 pixels</source>
        <translation>%1: Seite %2, %3 x %4 Pixel</translation>
    </message>
    <message>
        <source>tarsel: page %1 ended early: %2</source>
        <translation>tarsel: Seite %1 endete zu früh: %2</translation>
    </message>
    <message>
        <source>Page %1: saving</source>
        <translation>Seite %1: wird gespeichert</translation>
    </message>
    <message>
        <source>Page %1: line %2</source>
        <translation>Seite %1: Zeile %2</translation>
    </message>
    <message>
        <source>Page %1: %2 %</source>
        <translation>Seite %1: %2 %</translation>
    </message>
    <message>
        <source>Put page %1 on the glass, then press Enter.</source>
        <translation>Legen Sie Seite %1 auf das Glas, und drücken Sie die Eingabetaste.</translation>
    </message>
    <message>
        <source>unexpected &quot;%1&quot;</source>
        <translation>unerwartet: „%1“</translation>
    </message>
</context>
<context>
    <name>ScanFaultText</name>
    <message>
        <source>Page %1 ended early: the scanner sent fewer lines than it promised.</source>
        <translation>Seite %1 endete zu früh: der Scanner hat weniger Zeilen geliefert als angekündigt.</translation>
    </message>
    <message>
        <source>Page %1 was not saved.
%2</source>
        <translation>Seite %1 wurde nicht gespeichert.
%2</translation>
    </message>
    <message>
        <source>Pages %1 were not saved.
%2</source>
        <translation>Die Seiten %1 wurden nicht gespeichert.
%2</translation>
    </message>
    <message>
        <source>The pages that came before are kept.</source>
        <translation>Die Seiten davor bleiben erhalten.</translation>
    </message>
    <message>
        <source>No page was acquired.</source>
        <translation>Es wurde keine Seite eingelesen.</translation>
    </message>
    <message numerus="yes">
        <source>%n pages were acquired.</source>
        <translation>
            <numerusform>%n Seite wurde eingelesen.</numerusform>
            <numerusform>%n Seiten wurden eingelesen.</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder %1 already has:
%2

Pages of the scanner would replace these files. Do you want to go on?</source>
        <translation>Im Ordner %1 gibt es schon:
%2

Seiten des Scanners würden diese Dateien ersetzen. Möchten Sie fortfahren?</translation>
    </message>
</context>
<context>
    <name>ScanOptionList</name>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>the scanner has no option &quot;%1&quot; that can be set at present; --options lists them</source>
        <translation>der Scanner hat keine Option „%1“, die sich zurzeit einstellen lässt; --options listet sie auf</translation>
    </message>
    <message>
        <source>%1 can&apos;t be &quot;%2&quot;; possible: %3</source>
        <translation>%1 kann nicht „%2“ sein; möglich: %3</translation>
    </message>
    <message>
        <source>tarsel: %1 is %2 instead of %3</source>
        <translation>tarsel: %1 ist %2 statt %3</translation>
    </message>
    <message>
        <source>--area takes X,Y,W,H in millimetres, not &quot;%1&quot;</source>
        <translation>--area erwartet X,Y,W,H in Millimetern, nicht „%1“</translation>
    </message>
    <message>
        <source>--area %1 is not within %2 x %3 mm</source>
        <translation>--area %1 liegt nicht innerhalb von %2 x %3 mm</translation>
    </message>
    <message>
        <source>%1=%2  (%3) %4</source>
        <translation>%1=%2  (%3) %4</translation>
    </message>
</context>
<context>
    <name>ScanPaper</name>
    <message>
        <source>Photo %1 × %2 cm</source>
        <translation>Foto %1 × %2 cm</translation>
    </message>
</context>
<context>
    <name>ScanTarget</name>
    <message>
        <source>&quot;%1&quot; is not a format that can be written</source>
        <translation>„%1“ ist kein Format, das geschrieben werden kann</translation>
    </message>
    <message>
        <source>--format %1 and the extension of &quot;%2&quot; differ</source>
        <translation>--format %1 und die Endung von „%2“ passen nicht zusammen</translation>
    </message>
    <message>
        <source>--multi takes TIF or PDF, not &quot;%1&quot;</source>
        <translation>--multi erwartet TIF oder PDF, nicht „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs an extension, such as .tif</source>
        <translation>„%1“ braucht eine Erweiterung wie .tif</translation>
    </message>
</context>
<context>
    <name>ScannerErrors</name>
    <message>
        <source>%1: the scanner does not support these settings. Choose others.</source>
        <translation>%1: Der Scanner unterstützt diese Einstellungen nicht. Wählen Sie andere.</translation>
    </message>
    <message>
        <source>%1: scanning was cancelled.</source>
        <translation>%1: Das Scannen wurde abgebrochen.</translation>
    </message>
    <message>
        <source>%1: the scanner is busy. Close other programs that use it, or wait until it is ready, and try again.</source>
        <translation>%1: Der Scanner ist belegt. Schließen Sie andere Programme, die ihn verwenden, oder warten Sie, bis er bereit ist, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1: the scanner is not there, or it refuses its settings. Check that it is switched on and connected, and refresh the list of scanners.</source>
        <translation>%1: Der Scanner ist nicht da oder lehnt seine Einstellungen ab. Prüfen Sie, ob er eingeschaltet und angeschlossen ist, und aktualisieren Sie die Liste der Scanner.</translation>
    </message>
    <message>
        <source>%1: paper jam. Clear the document feeder, and put the remaining pages in again.</source>
        <translation>%1: Papierstau. Räumen Sie den Einzug, und legen Sie die übrigen Seiten wieder ein.</translation>
    </message>
    <message>
        <source>%1: the document feeder is empty. Put the pages in.</source>
        <translation>%1: Der Einzug ist leer. Legen Sie die Seiten ein.</translation>
    </message>
    <message>
        <source>%1: the cover of the scanner is open. Close it.</source>
        <translation>%1: Die Abdeckung des Scanners ist offen. Schließen Sie sie.</translation>
    </message>
    <message>
        <source>%1: the connection to the scanner failed. Check that it is switched on and plugged in.</source>
        <translation>%1: Die Verbindung zum Scanner ist fehlgeschlagen. Prüfen Sie, ob er eingeschaltet und angeschlossen ist.</translation>
    </message>
    <message>
        <source>%1: not enough memory for the page. Choose a lower resolution or a smaller area.</source>
        <translation>%1: Nicht genug Speicher für die Seite. Wählen Sie eine geringere Auflösung oder einen kleineren Bereich.</translation>
    </message>
    <message>
        <source>%1: no permission to use the scanner. Members of the group &quot;scanner&quot; may use it; a scanner in the network may ask for a password.</source>
        <translation>%1: Sie dürfen den Scanner nicht verwenden. Mitglieder der Gruppe „scanner“ dürfen es; ein Scanner im Netzwerk verlangt womöglich ein Passwort.</translation>
    </message>
    <message>
        <source>%1: the scanner is warming up. Try again in a moment.</source>
        <translation>%1: Der Scanner wärmt sich auf. Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>%1: the scanner is locked for transport. Open its lock.</source>
        <translation>%1: Der Scanner hat eine Transportsicherung. Lösen Sie sie.</translation>
    </message>
    <message>
        <source>No scanner was found. Check that it is switched on and connected, and that you are a member of the group &quot;scanner&quot;.</source>
        <translation>Es wurde kein Scanner gefunden. Prüfen Sie, ob er eingeschaltet und angeschlossen ist und ob Sie Mitglied der Gruppe „scanner“ sind.</translation>
    </message>
    <message>
        <source>No scanner is open.</source>
        <translation>Kein Scanner ist geöffnet.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be started. Without it there is no scanning.</source>
        <translation>%1 lässt sich nicht starten. Ohne das ist kein Scannen möglich.</translation>
    </message>
    <message>
        <source>%1: the driver of the scanner crashed. Try again; when it happens again, switch the scanner off and on.</source>
        <translation>%1: Der Treiber des Scanners ist abgestürzt. Versuchen Sie es noch einmal; geschieht es wieder, schalten Sie den Scanner aus und ein.</translation>
    </message>
    <message>
        <source>%1: the scanner does not answer. Switch it off and on, and try again.</source>
        <translation>%1: Der Scanner antwortet nicht. Schalten Sie ihn aus und ein, und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1: the driver of the scanner sent data that make no sense.</source>
        <translation>%1: Der Treiber des Scanners hat unsinnige Daten gesendet.</translation>
    </message>
    <message>
        <source>%1: the scanner sent an empty page. Try again.</source>
        <translation>%1: Der Scanner hat eine leere Seite gesendet. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>%1: the scanner sends pixels in a form that is not supported. Choose another mode.</source>
        <translation>%1: Der Scanner sendet Pixel in einer Form, die nicht unterstützt wird. Wählen Sie einen anderen Modus.</translation>
    </message>
    <message>
        <source>The scanner has no option &quot;%1&quot; that can be set at present.</source>
        <translation>Der Scanner hat keine Option „%1“, die sich zurzeit einstellen lässt.</translation>
    </message>
    <message>
        <source>The scanner refuses this value of the option &quot;%1&quot;.</source>
        <translation>Der Scanner lehnt diesen Wert der Option „%1“ ab.</translation>
    </message>
</context>
<context>
    <name>ScannerProcess</name>
    <message>
        <source>Search for scanners</source>
        <translation>Suche nach Scannern</translation>
    </message>
</context>
<context>
    <name>ScreenCapture</name>
    <message>
        <source>the picture of the screen was not allowed</source>
        <translation>das Bild des Bildschirms wurde nicht erlaubt</translation>
    </message>
    <message>
        <source>this desktop has no portal for pictures of the screen (%1)</source>
        <translation>dieser Desktop hat kein Portal für Bildschirmfotos (%1)</translation>
    </message>
    <message>
        <source>the desktop refused the picture of the screen</source>
        <translation>der Desktop hat das Bildschirmfoto abgelehnt</translation>
    </message>
    <message>
        <source>no X server is set in DISPLAY</source>
        <translation>in DISPLAY steht kein X-Server</translation>
    </message>
    <message>
        <source>the X server &quot;%1&quot; can&apos;t be reached</source>
        <translation>der X-Server „%1“ ist nicht erreichbar</translation>
    </message>
    <message>
        <source>the X server doesn&apos;t let its screen be read</source>
        <translation>der X-Server lässt seinen Bildschirm nicht auslesen</translation>
    </message>
    <message>
        <source>the desktop gave no picture of the screen within %1 seconds</source>
        <translation>der Desktop hat innerhalb von %1 Sekunden kein Bild des Bildschirms geliefert</translation>
    </message>
    <message>
        <source>a screen of %1 bits a pixel can&apos;t be read</source>
        <translation>ein Bildschirm mit %1 Bit je Pixel kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>SendReport</name>
    <message>
        <source>Report send. Thank you very much for your time.

If you had provided us with a valid email address,
one of our support staff will attend to this error report,
and you might get a responce from us</source>
        <translation>Der Bericht ist abgeschickt. Vielen Dank für Ihre Zeit.

Wenn Sie eine gültige E-Mail-Adresse angegeben haben,
wird sich jemand aus unserem Support mit dem Bericht befassen,
und Sie erhalten möglicherweise eine Antwort von uns.</translation>
    </message>
    <message>
        <source>No active internet connection detected on your system!</source>
        <translation>Auf Ihrem System wurde keine aktive Internetverbindung gefunden!</translation>
    </message>
</context>
<context>
    <name>Similarity</name>
    <message>
        <source>pictures of different sizes can&apos;t be compared</source>
        <translation>Bilder verschiedener Größe lassen sich nicht vergleichen</translation>
    </message>
</context>
<context>
    <name>SizeBudget</name>
    <message>
        <source>No file of at most %1 bytes is possible: at the lowest quality allowed, %2, it has %3 bytes with %4 x %5 pixels</source>
        <translation>Eine Datei mit höchstens %1 Bytes ist nicht möglich: In der niedrigsten erlaubten Qualität, %2, hat sie %3 Bytes bei %4 x %5 Pixeln</translation>
    </message>
</context>
<context>
    <name>SortMenu</name>
    <message>
        <source>&amp;Sort by</source>
        <translation>&amp;Sortieren nach</translation>
    </message>
</context>
<context>
    <name>SourceGuard</name>
    <message>
        <source>%1 was not replaced: it could be read only in part</source>
        <translation>%1 wurde nicht ersetzt: nur zum Teil lesbar</translation>
    </message>
    <message>
        <source>replaces the file of row %1</source>
        <translation>ersetzt die Datei von Zeile %1</translation>
    </message>
    <message>
        <source>replaces the source of row %1</source>
        <translation>ersetzt die Quelle von Zeile %1</translation>
    </message>
    <message>
        <source>would replace a source that could not be read</source>
        <translation>würde eine Quelle ersetzen, die nicht gelesen werden konnte</translation>
    </message>
    <message>
        <source>would replace its own source</source>
        <translation>würde die eigene Quelle ersetzen</translation>
    </message>
    <message>
        <source>would replace the source of row %1</source>
        <translation>würde die Quelle von Zeile %1 ersetzen</translation>
    </message>
    <message>
        <source>its original was kept as %1</source>
        <translation>das Original wurde als %1 behalten</translation>
    </message>
    <message>
        <source>its original could not be kept: %1</source>
        <translation>das Original konnte nicht behalten werden: %1</translation>
    </message>
</context>
<context>
    <name>StartFolder</name>
    <message>
        <source>The folder of the settings does not answer. The program starts with its usual settings, and changes to them are lost at its end.</source>
        <translation>Der Ordner der Einstellungen antwortet nicht. Das Programm startet mit seinen Vorgaben, und Änderungen daran gehen beim Beenden verloren.</translation>
    </message>
    <message>
        <source>Changes to the settings are lost at the end of the program. %1</source>
        <translation>Änderungen an den Einstellungen gehen beim Beenden des Programms verloren. %1</translation>
    </message>
    <message>
        <source>Pictures of the screen and scanned pages without a folder of their own stay in %1.</source>
        <translation>Bildschirmfotos und gescannte Seiten ohne eigenen Ordner bleiben in %1.</translation>
    </message>
</context>
<context>
    <name>StatusPanels</name>
    <message>
        <source>No file selected</source>
        <translation>Keine Datei ausgewählt</translation>
    </message>
    <message>
        <source>Filename of the previewed image</source>
        <translation>Dateiname des gezeigten Bilds</translation>
    </message>
    <message>
        <source>Total number of pages</source>
        <translation>Gesamtzahl der Seiten</translation>
    </message>
    <message>
        <source>Width, Height, Depth, Type of the previewed image</source>
        <translation>Breite, Höhe, Farbtiefe und Typ des gezeigten Bilds</translation>
    </message>
    <message>
        <source>Total number of files in the image basket</source>
        <translation>Gesamtzahl der Dateien im Bildkorb</translation>
    </message>
    <message>
        <source>Metadata type present in the previewed image</source>
        <translation>Art der Metadaten im gezeigten Bild</translation>
    </message>
    <message>
        <source>Path of the current working folder</source>
        <translation>Pfad des aktuellen Ordners</translation>
    </message>
    <message>
        <source>zoom factor of the current image</source>
        <translation>Zoomfaktor des aktuellen Bilds</translation>
    </message>
</context>
<context>
    <name>TaskBasketActions</name>
    <message>
        <source>Task basket file (*.tbf)|*.tbf</source>
        <translation>Aufgabenkorbdatei (*.tbf)|*.tbf</translation>
    </message>
    <message>
        <source>Open Editing list</source>
        <translation>Aufgabenliste öffnen</translation>
    </message>
    <message>
        <source>Save Editing list</source>
        <translation>Aufgabenliste speichern</translation>
    </message>
</context>
<context>
    <name>TaskCheck</name>
    <message>
        <source>%1 is %2, outside %3 to %4</source>
        <translation>%1 ist %2, außerhalb von %3 bis %4</translation>
    </message>
    <message>
        <source>the file &quot;%1&quot; is missing</source>
        <translation>die Datei „%1“ fehlt</translation>
    </message>
    <message>
        <source>the new size has to be at least 1</source>
        <translation>die neue Größe muss mindestens 1 sein</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>no task has the kind %1</source>
        <translation>keine Aufgabe hat die Art %1</translation>
    </message>
</context>
<context>
    <name>TaskFile</name>
    <message>
        <source>%1, record %2: %3</source>
        <translation>%1, Datensatz %2: %3</translation>
    </message>
    <message>
        <source>Error saving editing list!
Please try again!</source>
        <translation>Die Aufgabenliste konnte nicht gespeichert werden!
Bitte versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Error opening editing list!
Please select a valid image list file.</source>
        <translation>Die Aufgabenliste konnte nicht geöffnet werden!
Bitte wählen Sie eine gültige Aufgabenliste.</translation>
    </message>
    <message>
        <source>Task %1 has a double quote, which a task basket file can&apos;t keep: when it is opened, the text ends there.
Please use other quotes, and save the file again.</source>
        <translation>Aufgabe %1 enthält ein gerades Anführungszeichen, das eine Aufgabenkorbdatei nicht aufnehmen kann: Beim Öffnen endet der Text dort.
Bitte verwenden Sie andere Anführungszeichen und speichern Sie die Datei noch einmal.</translation>
    </message>
</context>
<context>
    <name>TaskKinds</name>
    <message>
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Task Option - Flip</source>
        <translation>Aufgabe – Spiegeln</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Task Option - Rotate</source>
        <translation>Aufgabe – Drehen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Task Option - Resize</source>
        <translation>Aufgabe – Größe ändern</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>Task Option - Blur</source>
        <translation>Aufgabe – Weichzeichnen</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Task Option - Contrast</source>
        <translation>Aufgabe – Kontrast</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Task Option - Brightness</source>
        <translation>Aufgabe – Helligkeit</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>Task Option - Sharpen</source>
        <translation>Aufgabe – Schärfen</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Task Option - Crop</source>
        <translation>Aufgabe – Zuschneiden</translation>
    </message>
    <message>
        <source>Watermark/Merge</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>Watermark</source>
        <translation>Wasserzeichen</translation>
    </message>
    <message>
        <source>Task Option - Watermark/merge</source>
        <translation>Aufgabe – Wasserzeichen</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Task Option - Add Text</source>
        <translation>Aufgabe – Text einfügen</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Umkehren</translation>
    </message>
    <message>
        <source>Negative</source>
        <translation>Negativ</translation>
    </message>
    <message>
        <source>Task Option - Invert</source>
        <translation>Aufgabe – Umkehren</translation>
    </message>
    <message>
        <source>Canvas</source>
        <translation>Arbeitsfläche</translation>
    </message>
    <message>
        <source>Task Option - Canvas</source>
        <translation>Aufgabe – Arbeitsfläche</translation>
    </message>
    <message>
        <source>Frame</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Task Option - Frame</source>
        <translation>Aufgabe – Rahmen</translation>
    </message>
    <message>
        <source>Mask</source>
        <translation>Maske</translation>
    </message>
    <message>
        <source>Task Option - Mask</source>
        <translation>Aufgabe – Maske</translation>
    </message>
    <message>
        <source>Shadow</source>
        <translation>Schatten</translation>
    </message>
    <message>
        <source>Task Option - Shadow</source>
        <translation>Aufgabe – Schatten</translation>
    </message>
    <message>
        <source>Red-Eye Correction</source>
        <translation>Rote Augen</translation>
    </message>
</context>
<context>
    <name>TaskList</name>
    <message>
        <source>Confirmed Tasks</source>
        <translation>Bestätigte Aufgaben</translation>
    </message>
    <message>
        <source>no task has the key &quot;%1&quot;</source>
        <translation>keine Aufgabe hat den Schlüssel „%1“</translation>
    </message>
</context>
<context>
    <name>TextDrawing</name>
    <message>
        <source>text needs fonts, and this program was started without them</source>
        <translation>Text braucht Schriften, und dieses Programm wurde ohne sie gestartet</translation>
    </message>
    <message>
        <source>no memory for drawing text</source>
        <translation>kein Speicher zum Zeichnen von Text</translation>
    </message>
</context>
<context>
    <name>TextPosition</name>
    <message>
        <source>there is no text alignment %1</source>
        <translation>es gibt keine Textausrichtung %1</translation>
    </message>
    <message>
        <source>there is no text position %1</source>
        <translation>es gibt keine Textposition %1</translation>
    </message>
</context>
<context>
    <name>TiffAppend</name>
    <message>
        <source>not a document that pages can be added to</source>
        <translation>kein Dokument, an das sich Seiten anfügen lassen</translation>
    </message>
    <message>
        <source>it would grow beyond 4 GB</source>
        <translation>es würde über 4 GB wachsen</translation>
    </message>
</context>
<context>
    <name>TiffFile</name>
    <message>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
</context>
<context>
    <name>TiffMetadataWriter</name>
    <message>
        <source>a TIFF directory has the tag %1 twice</source>
        <translation>ein TIFF-Verzeichnis hat das Tag %1 doppelt</translation>
    </message>
    <message>
        <source>its pages are not a plain list</source>
        <translation>seine Seiten bilden keine einfache Liste</translation>
    </message>
    <message>
        <source>its header is damaged</source>
        <translation>sein Dateikopf ist beschädigt</translation>
    </message>
    <message>
        <source>its list of pages is damaged</source>
        <translation>sein Seitenverzeichnis ist beschädigt</translation>
    </message>
    <message>
        <source>it would grow beyond 4 GB</source>
        <translation>es würde über 4 GB wachsen</translation>
    </message>
</context>
<context>
    <name>TiffPixels</name>
    <message>
        <source>its rows don&apos;t have the length of its width</source>
        <translation>seine Zeilen haben nicht die Länge seiner Breite</translation>
    </message>
    <message>
        <source>no pixels</source>
        <translation>keine Pixel</translation>
    </message>
</context>
<context>
    <name>TiffReader</name>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
    <message>
        <source>no pages</source>
        <translation>keine Seiten</translation>
    </message>
    <message>
        <source>it has no page %1</source>
        <translation>es hat keine Seite %1</translation>
    </message>
    <message>
        <source>a directory of %1 entries</source>
        <translation>ein Verzeichnis mit %1 Einträgen</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>samples of %1 bits are not supported</source>
        <translation>Werte mit %1 Bit werden nicht unterstützt</translation>
    </message>
</context>
<context>
    <name>TiffSamples</name>
    <message>
        <source>%1 samples of %2 bits, kind %3, are not supported</source>
        <translation>%1 Werte mit %2 Bit, Art %3, werden nicht unterstützt</translation>
    </message>
    <message>
        <source>its strips have no size</source>
        <translation>seine Streifen haben keine Größe</translation>
    </message>
    <message>
        <source>its strips or tiles need more than the %1 bytes that the memory allows</source>
        <translation>seine Streifen oder Kacheln brauchen mehr als die %1 Bytes, die der Speicher erlaubt</translation>
    </message>
    <message>
        <source>no palette</source>
        <translation>keine Palette</translation>
    </message>
    <message>
        <source>complex samples are not supported</source>
        <translation>komplexe Werte werden nicht unterstützt</translation>
    </message>
    <message>
        <source>colours of kind %1 are not supported</source>
        <translation>Farben der Art %1 werden nicht unterstützt</translation>
    </message>
</context>
<context>
    <name>TiffWriter</name>
    <message>
        <source>TIFF encoder: %1</source>
        <translation>TIFF-Kodierer: %1</translation>
    </message>
</context>
<context>
    <name>TitleFault</name>
    <message>
        <source>The title was not changed: it can&apos;t be empty.</source>
        <translation>Der Titel wurde nicht geändert: Er darf nicht leer sein.</translation>
    </message>
    <message>
        <source>The title was not changed: it can&apos;t contain %1.</source>
        <translation>Der Titel wurde nicht geändert: Er darf %1 nicht enthalten.</translation>
    </message>
    <message>
        <source>The title was not changed: it is too long.</source>
        <translation>Der Titel wurde nicht geändert: Er ist zu lang.</translation>
    </message>
</context>
<context>
    <name>TypedPath</name>
    <message>
        <source>There is no folder &quot;%1&quot;.</source>
        <translation>Es gibt keinen Ordner „%1“.</translation>
    </message>
</context>
<context>
    <name>WbmpCodec</name>
    <message>
        <source>no header</source>
        <translation>kein Dateikopf</translation>
    </message>
    <message>
        <source>file is truncated</source>
        <translation>die Datei ist unvollständig</translation>
    </message>
</context>
<context>
    <name>Workspace</name>
    <message>
        <source>Attribute</source>
        <translation>Attribut</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
</context>
<context>
    <name>clsFile</name>
    <message>
        <source>%1: %2 MB are too much for a list file</source>
        <translation>%1: %2 MB sind zu viel für eine Listendatei</translation>
    </message>
    <message>
        <source>a record of %1 fields</source>
        <translation>ein Datensatz mit %1 Feldern</translation>
    </message>
</context>
<context>
    <name>clsFileInfo</name>
    <message>
        <source>%1 File</source>
        <translation>%1-Datei</translation>
    </message>
    <message>
        <source>0.0KB (0 bytes)</source>
        <translation>0,0KB (0 Bytes)</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>size, bytes</comment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>fncLoadPicture</name>
    <message>
        <source>a box of %1 x %2</source>
        <translation>eine Fläche von %1 x %2</translation>
    </message>
    <message>
        <source>%1: no reader for this format</source>
        <translation>%1: kein Lesemodul für dieses Format</translation>
    </message>
    <message>
        <source>Error loading picture %1</source>
        <translation>Fehler beim Laden des Bilds %1</translation>
    </message>
</context>
<context>
    <name>frmBatchResults</name>
    <message numerus="yes">
        <source>%1 written, %2 skipped, %3 failed - %n of the written pictures have a warning</source>
        <translation>
            <numerusform>%1 geschrieben, %2 übersprungen, %3 fehlgeschlagen – %n der geschriebenen Bilder hat eine Warnung</numerusform>
            <numerusform>%1 geschrieben, %2 übersprungen, %3 fehlgeschlagen – %n der geschriebenen Bilder haben eine Warnung</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frmFrameDummy</name>
    <message>
        <source>artwork %1 does not exist</source>
        <translation>die Grafik %1 gibt es nicht</translation>
    </message>
</context>
<context>
    <name>frmMain</name>
    <message numerus="yes">
        <source>%n files of the last basket were not found; they come back when they are there again</source>
        <translation>
            <numerusform>%n Datei des letzten Korbs wurde nicht gefunden; sie kommt zurück, wenn sie wieder da ist</numerusform>
            <numerusform>%n Dateien des letzten Korbs wurden nicht gefunden; sie kommen zurück, wenn sie wieder da sind</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>frmSaveSinglePage</name>
    <message numerus="yes">
        <source>%n tasks will run.</source>
        <translation>
            <numerusform>%n Aufgabe wird ausgeführt.</numerusform>
            <numerusform>%n Aufgaben werden ausgeführt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The %n tasks won&apos;t run: the option above is not ticked.</source>
        <translation>
            <numerusform>Die Aufgabe wird nicht ausgeführt: Die Option oben ist nicht angehakt.</numerusform>
            <numerusform>Die %n Aufgaben werden nicht ausgeführt: Die Option oben ist nicht angehakt.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>modFileSystem</name>
    <message>
        <source>The folder %1 can&apos;t be made in %2: %3</source>
        <translation>Der Ordner %1 lässt sich in %2 nicht anlegen: %3</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made: %2 is a file</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen: %2 ist eine Datei</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made: %2 is a link to nothing</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen: %2 ist eine Verknüpfung ins Leere</translation>
    </message>
</context>
<context>
    <name>modMetadata</name>
    <message>
        <source>Formatting Exif Attribute name</source>
        <translation>Name des EXIF-Attributs wird formatiert</translation>
    </message>
    <message>
        <source>Read exif attribute and interpret it to readable format</source>
        <translation>EXIF-Attribut wird gelesen und in lesbare Form gebracht</translation>
    </message>
    <message>
        <source>%1 takes at most %2 bytes, and this text has %3</source>
        <translation>%1 fasst höchstens %2 Bytes, und dieser Text hat %3</translation>
    </message>
    <message>
        <source>the XMP data of the file could not be changed and may say something else</source>
        <translation>die XMP-Daten der Datei konnten nicht geändert werden und besagen womöglich etwas anderes</translation>
    </message>
    <message>
        <source>the thumbnail was removed to make room for the new text</source>
        <translation>die Vorschau wurde entfernt, um Platz für den neuen Text zu schaffen</translation>
    </message>
    <message>
        <source>%1 has no IPTC fields; those of the picture stay</source>
        <translation>%1 hat keine IPTC-Felder; die des Bilds bleiben</translation>
    </message>
    <message>
        <source>Reading EXIF information from the selected file!</source>
        <translation>EXIF-Informationen der ausgewählten Datei werden gelesen!</translation>
    </message>
    <message>
        <source>Reading IPTC information from the selected file!</source>
        <translation>IPTC-Informationen der ausgewählten Datei werden gelesen!</translation>
    </message>
    <message>
        <source>a quotation mark ends a value of a .xiff file; not complete in it: %1</source>
        <translation>ein Anführungszeichen beendet einen Wert einer .xiff-Datei; darin nicht vollständig: %1</translation>
    </message>
    <message>
        <source>%1, record %2: %3</source>
        <translation>%1, Datensatz %2: %3</translation>
    </message>
</context>
<context>
    <name>tarsel::AttributeValueField</name>
    <message>
        <source>%1: &quot;%2&quot; is not a date.
Today is written as %3 or %4.</source>
        <translation>%1: „%2“ ist kein Datum.
Das heutige Datum lautet %3 oder %4.</translation>
    </message>
</context>
<context>
    <name>tarsel::BackgroundSave</name>
    <message>
        <source>Saving %1</source>
        <translation>%1 wird gespeichert</translation>
    </message>
    <message>
        <source>%1 was not saved</source>
        <translation>%1 wurde nicht gespeichert</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>%1 was not replaced: it has more pages than the one on show</source>
        <translation>%1 wurde nicht ersetzt: Es hat mehr Seiten als das gezeigte Bild</translation>
    </message>
    <message>
        <source>%1 was not replaced: it has more frames than the one on show</source>
        <translation>%1 wurde nicht ersetzt: Es hat mehr Einzelbilder als das gezeigte</translation>
    </message>
    <message>
        <source>transparency</source>
        <translation>Transparenz</translation>
    </message>
    <message>
        <source>more than 8 bits a channel</source>
        <translation>mehr als 8 Bit pro Kanal</translation>
    </message>
    <message>
        <source>layers</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>This is lost then, because the picture on show doesn&apos;t have it: %1.</source>
        <translation>Das geht dabei verloren, weil das gezeigte Bild es nicht hat: %1.</translation>
    </message>
</context>
<context>
    <name>tarsel::BasketPane</name>
    <message>
        <source>Pictures and pages in the basket</source>
        <translation>Bilder und Seiten im Korb</translation>
    </message>
    <message>
        <source>&amp;Undo removing from basket</source>
        <translation>Entfernen aus dem Korb &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o removing from basket</source>
        <translation>Entfernen aus dem Korb &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo new basket</source>
        <translation>Neuen Korb &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o new basket</source>
        <translation>Neuen Korb &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo opening a basket</source>
        <translation>Öffnen eines Korbs &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o opening a basket</source>
        <translation>Öffnen eines Korbs &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo moving rows</source>
        <translation>Verschieben von Zeilen &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o moving rows</source>
        <translation>Verschieben von Zeilen &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo sorting</source>
        <translation>Sortieren &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o sorting</source>
        <translation>Sortieren &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo renaming a title</source>
        <translation>Umbenennen eines Titels &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o renaming a title</source>
        <translation>Umbenennen eines Titels &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo changing a description</source>
        <translation>Ändern einer Beschreibung &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>Red&amp;o changing a description</source>
        <translation>Ändern einer Beschreibung &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Undo the end of the last session</source>
        <translation>Ende der letzten Sitzung &amp;rückgängig machen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Red&amp;o</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Select pictures above and press &quot;Add to basket&quot;, or drag them here.</source>
        <translation>Wählen Sie oben Bilder aus und drücken Sie „In den Korb“, oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>%1 brings back the basket of the last session.</source>
        <translation>%1 holt den Korb der letzten Sitzung zurück.</translation>
    </message>
    <message>
        <source>Image basket</source>
        <translation>Bildkorb</translation>
    </message>
</context>
<context>
    <name>tarsel::BlurOptions</name>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
</context>
<context>
    <name>tarsel::BrightnessOptions</name>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rot</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Grün</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>&amp;Blau</translation>
    </message>
</context>
<context>
    <name>tarsel::BrowsePane</name>
    <message>
        <source>Browse File System</source>
        <translation>Dateisystem</translation>
    </message>
    <message>
        <source>Task Basket</source>
        <translation>Aufgabenkorb</translation>
    </message>
    <message>
        <source>Confirmed tasks</source>
        <translation>Bestätigte Aufgaben</translation>
    </message>
    <message>
        <source>Open a task basket to run its tasks on the pictures.</source>
        <translation>Öffnen Sie einen Aufgabenkorb, um seine Aufgaben auf die Bilder anzuwenden.</translation>
    </message>
</context>
<context>
    <name>tarsel::CancelAddingButton</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Stop adding files to the basket. (Esc)</source>
        <translation>Keine weiteren Dateien in den Korb legen. (Esc)</translation>
    </message>
    <message>
        <source>Stop listing the folder. (Esc)</source>
        <translation>Den Ordner nicht weiter auflisten. (Esc)</translation>
    </message>
</context>
<context>
    <name>tarsel::CanvasOptions</name>
    <message>
        <source>&amp;Top:</source>
        <translation>&amp;Oben:</translation>
    </message>
    <message>
        <source>&amp;Left:</source>
        <translation>&amp;Links:</translation>
    </message>
    <message>
        <source>Ri&amp;ght:</source>
        <translation>Rech&amp;ts:</translation>
    </message>
    <message>
        <source>&amp;Bottom:</source>
        <translation>&amp;Unten:</translation>
    </message>
    <message>
        <source>Bac&amp;k Color</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Back color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Pick the back color from the picture</source>
        <translation>Die Hintergrundfarbe aus dem Bild aufnehmen</translation>
    </message>
</context>
<context>
    <name>tarsel::CapturePane</name>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1, %2   %3</source>
        <translation>%1, %2   %3</translation>
    </message>
    <message>
        <source>Select Region</source>
        <translation>Bereich wählen</translation>
    </message>
</context>
<context>
    <name>tarsel::CompareLine</name>
    <message>
        <source>Line between the picture before and after the task</source>
        <translation>Linie zwischen dem Bild vor und nach der Aufgabe</translation>
    </message>
    <message>
        <source>Drag to compare: before is on the left, after on the right. The arrow keys move it too.</source>
        <translation>Zum Vergleichen ziehen: links vorher, rechts nachher. Auch die Pfeiltasten bewegen sie.</translation>
    </message>
</context>
<context>
    <name>tarsel::ContrastOptions</name>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>&amp;Red</source>
        <translation>&amp;Rot</translation>
    </message>
    <message>
        <source>&amp;Green</source>
        <translation>&amp;Grün</translation>
    </message>
    <message>
        <source>&amp;Blue</source>
        <translation>&amp;Blau</translation>
    </message>
</context>
<context>
    <name>tarsel::CropOptions</name>
    <message>
        <source>&amp;Mouse </source>
        <translation>&amp;Maus </translation>
    </message>
    <message>
        <source>Ke&amp;y-in</source>
        <translation>Ta&amp;statur</translation>
    </message>
    <message>
        <source>&amp;Select type</source>
        <translation>&amp;Auswahlform</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Rechteck</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>&amp;Left:</source>
        <translation>&amp;Links:</translation>
    </message>
    <message>
        <source>&amp;Top:</source>
        <translation>&amp;Oben:</translation>
    </message>
    <message>
        <source>Ri&amp;ght:</source>
        <translation>Rech&amp;ts:</translation>
    </message>
    <message>
        <source>&amp;Bottom:</source>
        <translation>&amp;Unten:</translation>
    </message>
    <message>
        <source>Bac&amp;k Color</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Back color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Pick the back color from the picture</source>
        <translation>Die Hintergrundfarbe aus dem Bild aufnehmen</translation>
    </message>
    <message>
        <source>Corners on the screen. The status line shows the selection in pixels of the picture.</source>
        <translation>Ecken auf dem Bildschirm. Die Statuszeile zeigt die Auswahl in Pixeln des Bilds.</translation>
    </message>
    <message>
        <source>Click the button below and select the crop region from the image.</source>
        <translation>Klicken Sie auf die Schaltfläche unten und wählen Sie im Bild den Bereich zum Zuschneiden.</translation>
    </message>
    <message>
        <source>Select the regi&amp;on</source>
        <translation>&amp;Bereich wählen</translation>
    </message>
    <message>
        <source>Starting:</source>
        <translation>Anfang:</translation>
    </message>
    <message>
        <source>Ending:</source>
        <translation>Ende:</translation>
    </message>
</context>
<context>
    <name>tarsel::DayGrid</name>
    <message>
        <source>Days of the month</source>
        <translation>Tage des Monats</translation>
    </message>
</context>
<context>
    <name>tarsel::DestinationNotice</name>
    <message>
        <source>Create the fol&amp;der</source>
        <translation>Ordner &amp;anlegen</translation>
    </message>
    <message>
        <source>Files will be saved to %1</source>
        <translation>Die Dateien werden in %1 gespeichert</translation>
    </message>
    <message numerus="yes">
        <source>Files will be saved to %n folders</source>
        <translation>
            <numerusform>Die Dateien werden in %n Ordner gespeichert</numerusform>
            <numerusform>Die Dateien werden in %n Ordnern gespeichert</numerusform>
        </translation>
    </message>
    <message>
        <source>The sources are in the same folder.</source>
        <translation>Die Quellen liegen im selben Ordner.</translation>
    </message>
    <message>
        <source>Some of these folders are those of the sources.</source>
        <translation>Einige dieser Ordner sind die der Quellen.</translation>
    </message>
    <message>
        <source>You may not write to the folder %1.</source>
        <translation>Sie dürfen nicht in den Ordner %1 schreiben.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 ist kein Ordner.</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Der Ordner %1 existiert nicht.</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>tarsel::FlipOptions</name>
    <message>
        <source>Flip &amp;Horizontal</source>
        <translation>&amp;Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Flip &amp;Vertical</source>
        <translation>&amp;Vertikal spiegeln</translation>
    </message>
</context>
<context>
    <name>tarsel::FolderPane</name>
    <message>
        <source>Pictures of the folder</source>
        <translation>Bilder des Ordners</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Size of the thumbnails</source>
        <translation>Größe der Miniaturen</translation>
    </message>
    <message>
        <source>Size of the thumbnails (Ctrl+mouse wheel)</source>
        <translation>Größe der Miniaturen (Strg+Mausrad)</translation>
    </message>
    <message>
        <source>The folder list does not contain %1.</source>
        <translation>Die Ordnerliste enthält %1 nicht.</translation>
    </message>
    <message>
        <source>This folder holds no pictures that can be shown.</source>
        <translation>Dieser Ordner enthält keine Bilder, die sich anzeigen lassen.</translation>
    </message>
</context>
<context>
    <name>tarsel::FolderTree</name>
    <message>
        <source>Folders</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>tarsel::FolderView</name>
    <message>
        <source>Current Folder - %1</source>
        <translation>Aktueller Ordner – %1</translation>
    </message>
    <message>
        <source>The listing was stopped. Press F5 to list the folder again.</source>
        <translation>Das Auflisten wurde angehalten. F5 listet den Ordner noch einmal auf.</translation>
    </message>
    <message>
        <source>You have no permission to read the folder %1.</source>
        <translation>Sie dürfen den Ordner %1 nicht lesen.</translation>
    </message>
</context>
<context>
    <name>tarsel::FrameOptions</name>
    <message>
        <source>Select a frame style</source>
        <translation>Rahmenart wählen</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>&amp;Bild</translation>
    </message>
    <message>
        <source>Co&amp;lor</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Frame 1</source>
        <translation>Rahmen 1</translation>
    </message>
    <message>
        <source>Frame 2</source>
        <translation>Rahmen 2</translation>
    </message>
    <message>
        <source>Frame 3</source>
        <translation>Rahmen 3</translation>
    </message>
    <message>
        <source>Frame 4</source>
        <translation>Rahmen 4</translation>
    </message>
    <message>
        <source>Frame 5</source>
        <translation>Rahmen 5</translation>
    </message>
    <message>
        <source>Frame 6</source>
        <translation>Rahmen 6</translation>
    </message>
    <message>
        <source>Frame 7</source>
        <translation>Rahmen 7</translation>
    </message>
    <message>
        <source>Frame 8</source>
        <translation>Rahmen 8</translation>
    </message>
    <message>
        <source>&amp;Use canvas space</source>
        <translation>&amp;Arbeitsfläche vergrößern</translation>
    </message>
    <message>
        <source>Frame &amp;Size</source>
        <translation>Rahmenb&amp;reite</translation>
    </message>
    <message>
        <source>Frame size</source>
        <translation>Rahmenbreite</translation>
    </message>
    <message>
        <source>Bac&amp;k Color</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Back color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Pick the back color from the picture</source>
        <translation>Die Hintergrundfarbe aus dem Bild aufnehmen</translation>
    </message>
</context>
<context>
    <name>tarsel::ImageBoxView</name>
    <message>
        <source>Preview of the selected picture</source>
        <translation>Vorschau des ausgewählten Bilds</translation>
    </message>
    <message>
        <source>Scroll the preview left and right</source>
        <translation>Vorschau nach links und rechts verschieben</translation>
    </message>
    <message>
        <source>Scroll the preview up and down</source>
        <translation>Vorschau nach oben und unten verschieben</translation>
    </message>
    <message>
        <source>No picture</source>
        <translation>Kein Bild</translation>
    </message>
    <message>
        <source>This picture can&apos;t be shown.
%1</source>
        <translation>Dieses Bild lässt sich nicht anzeigen.
%1</translation>
    </message>
    <message>
        <source>Reading %1 ...</source>
        <translation>%1 wird gelesen ...</translation>
    </message>
    <message>
        <source>This file is damaged: %1</source>
        <translation>Diese Datei ist beschädigt: %1</translation>
    </message>
</context>
<context>
    <name>tarsel::ImageDocument</name>
    <message>
        <source>Save image</source>
        <translation>Bild speichern</translation>
    </message>
</context>
<context>
    <name>tarsel::ManualView</name>
    <message>
        <source>Page of the manual</source>
        <translation>Seite des Handbuchs</translation>
    </message>
</context>
<context>
    <name>tarsel::MaskOptions</name>
    <message>
        <source>Mask 1</source>
        <translation>Maske 1</translation>
    </message>
    <message>
        <source>Mask 2</source>
        <translation>Maske 2</translation>
    </message>
    <message>
        <source>Mask 3</source>
        <translation>Maske 3</translation>
    </message>
    <message>
        <source>Mask 4</source>
        <translation>Maske 4</translation>
    </message>
    <message>
        <source>Mask 5</source>
        <translation>Maske 5</translation>
    </message>
    <message>
        <source>Mask 6</source>
        <translation>Maske 6</translation>
    </message>
    <message>
        <source>Mask 7</source>
        <translation>Maske 7</translation>
    </message>
    <message>
        <source>Mask 8</source>
        <translation>Maske 8</translation>
    </message>
    <message>
        <source>T&amp;ransparency:</source>
        <translation>T&amp;ransparenz:</translation>
    </message>
    <message>
        <source>Transparency</source>
        <translation>Transparenz</translation>
    </message>
    <message>
        <source>&amp;Transparent</source>
        <translation>&amp;Transparent</translation>
    </message>
</context>
<context>
    <name>tarsel::MetadataEditor</name>
    <message>
        <source>Updating metadata attribute</source>
        <translation>Metadaten-Attribut wird aktualisiert</translation>
    </message>
    <message>
        <source>%1 can&apos;t take this value: %2</source>
        <translation>%1 kann diesen Wert nicht aufnehmen: %2</translation>
    </message>
    <message>
        <source>Editing EXIF/IPTC Metadata</source>
        <translation>EXIF-/IPTC-Metadaten werden bearbeitet</translation>
    </message>
    <message>
        <source>Adding new metadata attribute!</source>
        <translation>Neues Metadaten-Attribut wird hinzugefügt!</translation>
    </message>
    <message>
        <source>Deleting metadata EXIF/IPTC attribute</source>
        <translation>EXIF-/IPTC-Attribut wird gelöscht</translation>
    </message>
    <message>
        <source>Deleting exif attribute from the selected file</source>
        <translation>EXIF-Attribut wird aus der ausgewählten Datei gelöscht</translation>
    </message>
    <message>
        <source>%1 can&apos;t be removed: the picture or other attributes depend on it.</source>
        <translation>%1 lässt sich nicht entfernen: Das Bild oder andere Attribute hängen davon ab.</translation>
    </message>
    <message>
        <source>The file has no attribute %1.</source>
        <translation>Die Datei hat kein Attribut %1.</translation>
    </message>
    <message>
        <source>Error deleting attribute</source>
        <translation>Fehler beim Löschen des Attributs</translation>
    </message>
    <message>
        <source>Error deleting the attribute!</source>
        <translation>Fehler beim Löschen des Attributs!</translation>
    </message>
    <message>
        <source>Clear all EXIF/IPTC Metadata</source>
        <translation>Alle EXIF-/IPTC-Metadaten löschen</translation>
    </message>
    <message>
        <source>All EXIF metadata available in the current image will be deleted!
Do you want to continue?</source>
        <translation>Alle EXIF-Metadaten des aktuellen Bilds werden gelöscht!
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>All IPTC metadata available in the current image will be deleted!
Do you want to continue?</source>
        <translation>Alle IPTC-Metadaten des aktuellen Bilds werden gelöscht!
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Open EXIF .xiff file</source>
        <translation>EXIF-Datei (.xiff) öffnen</translation>
    </message>
    <message>
        <source>Loading a .xiff will only overwrite user editable EXIF attributes!
Do you want to continue?</source>
        <translation>Das Laden einer .xiff-Datei überschreibt nur die bearbeitbaren EXIF-Attribute!
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Save EXIF Information to file</source>
        <translation>EXIF-Informationen in Datei speichern</translation>
    </message>
    <message>
        <source>There is no user editable EXIF attributes in this current image!
Either create new attribute or select another image having editable attribute.</source>
        <translation>Das aktuelle Bild hat keine bearbeitbaren EXIF-Attribute!
Legen Sie ein neues Attribut an, oder wählen Sie ein anderes Bild mit bearbeitbaren Attributen.</translation>
    </message>
    <message>
        <source>Open IPTC .ffo file</source>
        <translation>IPTC-Datei (.ffo) öffnen</translation>
    </message>
    <message>
        <source>Loading a .ffo file will replace all IPTC metadata of the current image.
Do you want to continue?</source>
        <translation>Das Laden einer .ffo-Datei ersetzt alle IPTC-Metadaten des aktuellen Bilds.
Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Save IPTC Information</source>
        <translation>IPTC-Informationen speichern</translation>
    </message>
    <message>
        <source>EXIF File (*.xiff)|*.xiff</source>
        <translation>EXIF-Datei (*.xiff)|*.xiff</translation>
    </message>
    <message>
        <source>IPTC File Info (*.ffo)|*.ffo</source>
        <translation>IPTC-Datei (*.ffo)|*.ffo</translation>
    </message>
</context>
<context>
    <name>tarsel::MetadataPane</name>
    <message>
        <source>EXIF attributes</source>
        <translation>EXIF-Attribute</translation>
    </message>
    <message>
        <source>IPTC attributes</source>
        <translation>IPTC-Attribute</translation>
    </message>
    <message>
        <source>EXIF</source>
        <translation>EXIF</translation>
    </message>
    <message>
        <source>IPTC</source>
        <translation>IPTC</translation>
    </message>
</context>
<context>
    <name>tarsel::NamePreview</name>
    <message>
        <source>New name</source>
        <translation>Neuer Name</translation>
    </message>
    <message>
        <source>Source file</source>
        <translation>Quelldatei</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Anmerkung</translation>
    </message>
    <message>
        <source>Names of the files that will be made</source>
        <translation>Namen der Dateien, die entstehen werden</translation>
    </message>
    <message>
        <source>Looking at name %1 of %2</source>
        <translation>Name %1 von %2 wird geprüft</translation>
    </message>
</context>
<context>
    <name>tarsel::NoticeBar</name>
    <message>
        <source>Close the notice</source>
        <translation>Den Hinweis schließen</translation>
    </message>
    <message>
        <source>Got it</source>
        <translation>Verstanden</translation>
    </message>
    <message>
        <source>Close the notice (%1)</source>
        <translation>Den Hinweis schließen (%1)</translation>
    </message>
</context>
<context>
    <name>tarsel::OptimizedPanes</name>
    <message>
        <source>Original</source>
        <translation>Original</translation>
    </message>
    <message>
        <source>Optimized</source>
        <translation>Optimiert</translation>
    </message>
    <message>
        <source>Line between the original and the optimized picture</source>
        <translation>Linie zwischen dem Original und dem optimierten Bild</translation>
    </message>
    <message>
        <source>Drag to compare: the original is on the left, the optimized picture on the right. The arrow keys move it too.</source>
        <translation>Zum Vergleichen ziehen: links das Original, rechts das optimierte Bild. Auch die Pfeiltasten bewegen sie.</translation>
    </message>
    <message>
        <source>Original | Optimized</source>
        <translation>Original | Optimiert</translation>
    </message>
</context>
<context>
    <name>tarsel::PlacesBar</name>
    <message>
        <source>Path of the folder</source>
        <translation>Pfad des Ordners</translation>
    </message>
    <message>
        <source>Path of a folder</source>
        <translation>Pfad eines Ordners</translation>
    </message>
</context>
<context>
    <name>tarsel::Preview</name>
    <message>
        <source>No file selected</source>
        <translation>Keine Datei ausgewählt</translation>
    </message>
    <message>
        <source>%1 can&apos;t be shown</source>
        <translation>%1 lässt sich nicht anzeigen</translation>
    </message>
    <message>
        <source>Metadata - EXIF IPTC</source>
        <translation>Metadaten – EXIF IPTC</translation>
    </message>
    <message>
        <source>Metadata - EXIF</source>
        <translation>Metadaten – EXIF</translation>
    </message>
    <message>
        <source>Metadata -  IPTC</source>
        <translation>Metadaten – IPTC</translation>
    </message>
    <message>
        <source>No metadata</source>
        <translation>Keine Metadaten</translation>
    </message>
    <message>
        <source>%1 page(s)</source>
        <translation>%1 Seite(n)</translation>
    </message>
</context>
<context>
    <name>tarsel::PreviewPane</name>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
</context>
<context>
    <name>tarsel::Printing</name>
    <message>
        <source>Save pages</source>
        <translation>Seiten speichern</translation>
    </message>
    <message>
        <source>PDF document (*.pdf)|*.pdf</source>
        <translation>PDF-Dokument (*.pdf)|*.pdf</translation>
    </message>
    <message>
        <source>The basket is empty: nothing to print</source>
        <translation>Der Korb ist leer: nichts zu drucken</translation>
    </message>
    <message>
        <source>Nothing was printed</source>
        <translation>Nichts wurde gedruckt</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Sent to %1</source>
        <translation>An %1 gesendet</translation>
    </message>
    <message>
        <source>%1
Do you want to save the pages as a PDF document?</source>
        <translation>%1
Möchten Sie die Seiten als PDF-Dokument speichern?</translation>
    </message>
    <message>
        <source>%1: printed in part, %2</source>
        <translation>%1: nur zum Teil gedruckt, %2</translation>
    </message>
    <message>
        <source>%1: left out, it can&apos;t be read</source>
        <translation>%1: ausgelassen, nicht lesbar</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Not all pictures were printed in full:
%1</source>
        <translation>Nicht alle Bilder wurden vollständig gedruckt:
%1</translation>
    </message>
    <message>
        <source>Printing.. %1</source>
        <translation>Wird gedruckt: %1</translation>
    </message>
</context>
<context>
    <name>tarsel::ProgressBar</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
</context>
<context>
    <name>tarsel::RedEyeOptions</name>
    <message>
        <source>Click the button below to activate the Red-Eye selection tool and select the eye region from the preview.</source>
        <translation>Klicken Sie auf die Schaltfläche unten, um das Werkzeug gegen rote Augen zu aktivieren, und wählen Sie in der Vorschau den Augenbereich.</translation>
    </message>
    <message>
        <source>Select the &amp;eye</source>
        <translation>&amp;Auge wählen</translation>
    </message>
</context>
<context>
    <name>tarsel::ResizeOptions</name>
    <message>
        <source>Re&amp;size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>Sca&amp;le</source>
        <translation>&amp;Skalierung</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Breite:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>Retain Ra&amp;tio</source>
        <translation>Seiten&amp;verhältnis beibehalten</translation>
    </message>
    <message>
        <source>E&amp;nter percentage</source>
        <translation>&amp;Prozentwert</translation>
    </message>
    <message>
        <source>Resa&amp;mple</source>
        <translation>&amp;Neu berechnen</translation>
    </message>
</context>
<context>
    <name>tarsel::RotateOptions</name>
    <message>
        <source>&amp;Degrees:</source>
        <translation>&amp;Grad:</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>-15º</source>
        <translation>-15°</translation>
    </message>
    <message>
        <source>15º</source>
        <translation>15°</translation>
    </message>
    <message>
        <source>-45º</source>
        <translation>-45°</translation>
    </message>
    <message>
        <source>45º</source>
        <translation>45°</translation>
    </message>
    <message>
        <source>Resa&amp;mple</source>
        <translation>&amp;Neu berechnen</translation>
    </message>
    <message>
        <source>Bac&amp;k Color</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>Back color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Pick the back color from the picture</source>
        <translation>Die Hintergrundfarbe aus dem Bild aufnehmen</translation>
    </message>
    <message>
        <source>Note: Canvas will be resized</source>
        <translation>Hinweis: Die Größe der Arbeitsfläche ändert sich</translation>
    </message>
</context>
<context>
    <name>tarsel::ScanAreaChoice</name>
    <message>
        <source>Preview of what is on the scanner</source>
        <translation>Vorschau dessen, was auf dem Scanner liegt</translation>
    </message>
    <message>
        <source>Press Preview to see what is on the scanner, and drag over the part to acquire.</source>
        <translation>Drücken Sie „Vorschau“, um zu sehen, was auf dem Scanner liegt, und ziehen Sie über den Teil, den Sie einlesen möchten.</translation>
    </message>
    <message>
        <source>Whole area</source>
        <translation>Ganze Fläche</translation>
    </message>
    <message>
        <source>Selected area</source>
        <translation>Ausgewählte Fläche</translation>
    </message>
    <message>
        <source>%1 × %2 mm</source>
        <translation>%1 × %2 mm</translation>
    </message>
    <message>
        <source>Pages in the feeder have no preview. Choose their paper size, or their part by More options.</source>
        <translation>Seiten im Einzug haben keine Vorschau. Wählen Sie ihre Papiergröße, oder ihren Teil unter „Weitere Optionen“.</translation>
    </message>
</context>
<context>
    <name>tarsel::ScanOptionEditor</name>
    <message>
        <source> pixels</source>
        <translation> Pixel</translation>
    </message>
    <message>
        <source> bits</source>
        <translation> Bit</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source> dpi</source>
        <translation> dpi</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source> µs</source>
        <translation> µs</translation>
    </message>
</context>
<context>
    <name>tarsel::ScreenshotRequest</name>
    <message>
        <source>the portal has ended</source>
        <translation>das Portal hat sich beendet</translation>
    </message>
</context>
<context>
    <name>tarsel::SelectionOverlay</name>
    <message>
        <source>Drag over the picture, or press Return for a selection in its middle.</source>
        <translation>Ziehen Sie über das Bild, oder drücken Sie die Eingabetaste für eine Auswahl in seiner Mitte.</translation>
    </message>
    <message>
        <source>Selection of %1 × %2 pixels at %3, %4</source>
        <translation>Auswahl von %1 × %2 Pixeln bei %3, %4</translation>
    </message>
</context>
<context>
    <name>tarsel::ShadowOptions</name>
    <message>
        <source>Shadow 1</source>
        <translation>Schatten 1</translation>
    </message>
    <message>
        <source>Shadow 2</source>
        <translation>Schatten 2</translation>
    </message>
    <message>
        <source>Shadow 3</source>
        <translation>Schatten 3</translation>
    </message>
    <message>
        <source>Shadow 4</source>
        <translation>Schatten 4</translation>
    </message>
    <message>
        <source>Shadow 5</source>
        <translation>Schatten 5</translation>
    </message>
    <message>
        <source>Shadow 6</source>
        <translation>Schatten 6</translation>
    </message>
    <message>
        <source>Shadow 7</source>
        <translation>Schatten 7</translation>
    </message>
    <message>
        <source>Shadow 8</source>
        <translation>Schatten 8</translation>
    </message>
</context>
<context>
    <name>tarsel::SharpenOptions</name>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Sharpness</source>
        <translation>Schärfe</translation>
    </message>
</context>
<context>
    <name>tarsel::SplitterBar</name>
    <message>
        <source>Divider between left and right</source>
        <translation>Trennlinie zwischen links und rechts</translation>
    </message>
    <message>
        <source>Divider between top and bottom</source>
        <translation>Trennlinie zwischen oben und unten</translation>
    </message>
</context>
<context>
    <name>tarsel::TaskOptionPage</name>
    <message>
        <source>Select a task from above, or click finish button to exit edit mode.</source>
        <translation>Wählen Sie oben eine Aufgabe, oder klicken Sie auf „Fertig“, um die Bearbeitung zu beenden.</translation>
    </message>
    <message>
        <source>No Options Available. Click &apos;Preview&apos; or &apos;Confirm&apos; below to continue.</source>
        <translation>Keine Optionen. Klicken Sie zum Fortfahren unten auf „Vorschau“ oder „Bestätigen“.</translation>
    </message>
</context>
<context>
    <name>tarsel::TaskPane</name>
    <message>
        <source>Live &amp;preview</source>
        <translation>Live-Vors&amp;chau</translation>
    </message>
    <message>
        <source> Task Options</source>
        <translation> Optionen der Aufgabe</translation>
    </message>
    <message>
        <source>Task Basket</source>
        <translation>Aufgabenkorb</translation>
    </message>
    <message>
        <source>Tasks Chart</source>
        <translation>Aufgaben</translation>
    </message>
    <message>
        <source>Confirmed tasks</source>
        <translation>Bestätigte Aufgaben</translation>
    </message>
    <message>
        <source>Confirmed tasks are listed here.</source>
        <translation>Hier werden bestätigte Aufgaben aufgelistet.</translation>
    </message>
    <message>
        <source>Show what the task does while its options change</source>
        <translation>Die Wirkung der Aufgabe zeigen, während sich ihre Optionen ändern</translation>
    </message>
</context>
<context>
    <name>tarsel::TaskWorkflow</name>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>  Finish</source>
        <translation>  Fertig</translation>
    </message>
    <message>
        <source>  Edit</source>
        <translation>  Bearbeiten</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>The image has been modified!
Do you want to confirm the changes made to the image?</source>
        <translation>Das Bild wurde verändert!
Möchten Sie die Änderungen am Bild bestätigen?</translation>
    </message>
    <message>
        <source>Resetting to original image will erase all editing functions from the batch list!
 Do you want to continue?</source>
        <translation>Das Zurücksetzen auf das Originalbild löscht alle Bearbeitungsschritte aus der Stapelliste!
 Möchten Sie fortfahren?</translation>
    </message>
</context>
<context>
    <name>tarsel::TextOptions</name>
    <message>
        <source>&amp;Enter your text</source>
        <translation>&amp;Text eingeben</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>B</source>
        <translation>F</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>Fett</translation>
    </message>
    <message>
        <source>I</source>
        <translation>K</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>Kursiv</translation>
    </message>
    <message>
        <source>U</source>
        <translation>U</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>Unterstrichen</translation>
    </message>
    <message>
        <source>Te&amp;xt color</source>
        <translation>Te&amp;xtfarbe</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>&amp;Background color</source>
        <translation>&amp;Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>&amp;Transparent background</source>
        <translation>T&amp;ransparenter Hintergrund</translation>
    </message>
    <message>
        <source>A&amp;nti-Alias</source>
        <translation>Kanten &amp;glätten</translation>
    </message>
    <message>
        <source>Fi&amp;lter</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>Bilinear</source>
        <translation>Bilinear</translation>
    </message>
    <message>
        <source>Hermite</source>
        <translation>Hermite</translation>
    </message>
    <message>
        <source>Bell</source>
        <translation>Bell</translation>
    </message>
    <message>
        <source>B-Spline</source>
        <translation>B-Spline</translation>
    </message>
    <message>
        <source>Lanczos</source>
        <translation>Lanczos</translation>
    </message>
    <message>
        <source>Mitchell</source>
        <translation>Mitchell</translation>
    </message>
    <message>
        <source>P&amp;osition</source>
        <translation>&amp;Position</translation>
    </message>
    <message>
        <source>Top-Left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top-Centre</source>
        <translation>Oben Mitte</translation>
    </message>
    <message>
        <source>Top-Right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Centre-Left</source>
        <translation>Mitte links</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Centre-Right</source>
        <translation>Mitte rechts</translation>
    </message>
    <message>
        <source>Bottom-Left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom-Centre</source>
        <translation>Unten Mitte</translation>
    </message>
    <message>
        <source>Bottom-Right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Mouse-Click Position</source>
        <translation>Position des Mausklicks</translation>
    </message>
    <message>
        <source>Align left</source>
        <translation>Linksbündig</translation>
    </message>
    <message>
        <source>Align to the centre</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>Align right</source>
        <translation>Rechtsbündig</translation>
    </message>
    <message>
        <source>Horizontal text</source>
        <translation>Horizontaler Text</translation>
    </message>
    <message>
        <source>Vertical text</source>
        <translation>Vertikaler Text</translation>
    </message>
    <message>
        <source>An&amp;gle:</source>
        <translation>&amp;Winkel:</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Select a &amp;co-ordinate</source>
        <translation>P&amp;unkt wählen</translation>
    </message>
</context>
<context>
    <name>tarsel::TextPage</name>
    <message>
        <source>Failed to get font info</source>
        <translation>Die Schriftdaten waren nicht zu ermitteln</translation>
    </message>
</context>
<context>
    <name>tarsel::WatermarkOptions</name>
    <message>
        <source>Select &amp;Image</source>
        <translation>Bild &amp;wählen</translation>
    </message>
    <message>
        <source>Picture to merge</source>
        <translation>Einzufügendes Bild</translation>
    </message>
    <message>
        <source>&amp;Style:</source>
        <translation>&amp;Art:</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Einzeln</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Tile</source>
        <translation>Kacheln</translation>
    </message>
    <message>
        <source>Wrap</source>
        <translation>Umlaufend</translation>
    </message>
    <message>
        <source>T&amp;ransparency:</source>
        <translation>T&amp;ransparenz:</translation>
    </message>
    <message>
        <source>Transparency</source>
        <translation>Transparenz</translation>
    </message>
    <message>
        <source>&amp;Transparent</source>
        <translation>&amp;Transparent</translation>
    </message>
    <message>
        <source>Co&amp;lor:</source>
        <translation>&amp;Farbe:</translation>
    </message>
    <message>
        <source>Transparent color</source>
        <translation>Transparente Farbe</translation>
    </message>
    <message>
        <source>Pick the transparent color from the picture above</source>
        <translation>Die transparente Farbe aus dem Bild oben aufnehmen</translation>
    </message>
    <message>
        <source>Select a &amp;co-ordinate</source>
        <translation>P&amp;unkt wählen</translation>
    </message>
</context>
<context>
    <name>tarsel::WatermarkPage</name>
    <message>
        <source>Load Image for Merging</source>
        <translation>Bild zum Einfügen laden</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
</context>
<context>
    <name>tarsel::fCaptureRectangle</name>
    <message>
        <source>&amp;Take</source>
        <translation>Aufneh&amp;men</translation>
    </message>
    <message>
        <source>Take the rectangle, or the monitor without one (Return)</source>
        <translation>Das Rechteck aufnehmen, oder ohne Rechteck den Bildschirm (Eingabetaste)</translation>
    </message>
    <message>
        <source>&amp;Magnifier</source>
        <translation>&amp;Lupe</translation>
    </message>
    <message>
        <source>Mo&amp;ve bar</source>
        <translation>Leiste &amp;verschieben</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Leave without a picture (Esc)</source>
        <translation>Ohne Bild beenden (Esc)</translation>
    </message>
    <message>
        <source>Show or hide the magnifier (M)</source>
        <translation>Die Lupe zeigen oder verbergen (M)</translation>
    </message>
    <message>
        <source>Move this bar to the other edge (V)</source>
        <translation>Diese Leiste an den anderen Rand verschieben (V)</translation>
    </message>
    <message>
        <source>Drag</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>A new rectangle; with Shift a square</source>
        <translation>Ein neues Rechteck; mit Umschalt ein Quadrat</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeiltasten</translation>
    </message>
    <message>
        <source>Move it by a pixel, with Ctrl by ten</source>
        <translation>Um ein Pixel verschieben, mit Strg um zehn</translation>
    </message>
    <message>
        <source>Shift+arrows</source>
        <translation>Umschalt+Pfeiltasten</translation>
    </message>
    <message>
        <source>Move its lower right corner</source>
        <translation>Die rechte untere Ecke verschieben</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Eingabetaste</translation>
    </message>
    <message>
        <source>Take it, or the monitor without one</source>
        <translation>Aufnehmen, ohne Rechteck den Bildschirm</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Take back the rectangle, then leave</source>
        <translation>Das Rechteck zurücknehmen, dann beenden</translation>
    </message>
    <message>
        <source>Show or hide the magnifier</source>
        <translation>Die Lupe zeigen oder verbergen</translation>
    </message>
    <message>
        <source>Move this bar to the other edge</source>
        <translation>Diese Leiste an den anderen Rand verschieben</translation>
    </message>
    <message>
        <source>Show or hide this list</source>
        <translation>Diese Liste zeigen oder verbergen</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>Show or hide the list of keys (F1)</source>
        <translation>Die Liste der Tasten zeigen oder verbergen (F1)</translation>
    </message>
</context>
<context>
    <name>tarsel::frmAbout</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Pages of this dialog</source>
        <translation>Seiten dieses Dialogs</translation>
    </message>
    <message>
        <source>&amp;Program</source>
        <translation>&amp;Programm</translation>
    </message>
    <message>
        <source>Makes JPEG documents from collections of pictures. Free software: you may use, study, share and change it under the terms of the GNU General Public License. It comes without any warranty.</source>
        <translation>Erstellt JPEG-Dokumente aus Bildersammlungen. Freie Software: Sie dürfen sie nach den Bedingungen der GNU General Public License verwenden, untersuchen, weitergeben und ändern. Sie kommt ohne jede Gewährleistung.</translation>
    </message>
    <message>
        <source>It sends nothing anywhere, unless you send an error report yourself.</source>
        <translation>Es sendet nichts, es sei denn, Sie senden selbst einen Fehlerbericht.</translation>
    </message>
    <message>
        <source>Facts of the build</source>
        <translation>Angaben zum Bau</translation>
    </message>
    <message>
        <source>&amp;Libraries</source>
        <translation>&amp;Bibliotheken</translation>
    </message>
    <message>
        <source>L&amp;icence</source>
        <translation>&amp;Lizenz</translation>
    </message>
    <message>
        <source>Licence to show</source>
        <translation>Zu zeigende Lizenz</translation>
    </message>
    <message>
        <source>Text of the licence</source>
        <translation>Text der Lizenz</translation>
    </message>
    <message>
        <source>&amp;Copy for an error report</source>
        <translation>Für einen &amp;Fehlerbericht kopieren</translation>
    </message>
    <message>
        <source>Cl&amp;ose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Bestandteil</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Used for</source>
        <translation>Verwendet für</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Copied.</source>
        <translation>Kopiert.</translation>
    </message>
    <message>
        <source>%1, when built</source>
        <translation>%1 beim Bau</translation>
    </message>
    <message>
        <source>Parts of others</source>
        <translation>Teile von anderen</translation>
    </message>
    <message>
        <source>GNU General Public License, version 3 or later: this program</source>
        <translation>GNU General Public License, Version 3 oder später: dieses Programm</translation>
    </message>
    <message>
        <source>MIT: the players of slide shows and greetings</source>
        <translation>MIT: die Player von Diaschauen und Grußbildern</translation>
    </message>
    <message>
        <source>Bitstream Vera: the font of greetings</source>
        <translation>Bitstream Vera: die Schrift der Grußbilder</translation>
    </message>
</context>
<context>
    <name>tarsel::frmAlbum</name>
    <message>
        <source>Generate web album</source>
        <translation>Webalbum erstellen</translation>
    </message>
    <message>
        <source>Groups of options</source>
        <translation>Gruppen von Optionen</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Project &amp;Title</source>
        <translation>Album&amp;titel</translation>
    </message>
    <message>
        <source>Project Title</source>
        <translation>Albumtitel</translation>
    </message>
    <message>
        <source>Specify a folder location to place your album</source>
        <translation>Geben Sie einen Ordner für Ihr Album an</translation>
    </message>
    <message>
        <source>&amp;Folder Path</source>
        <translation>&amp;Ordnerpfad</translation>
    </message>
    <message>
        <source>Folder Path</source>
        <translation>Ordnerpfad</translation>
    </message>
    <message>
        <source>Browse for the folder of the album</source>
        <translation>Ordner des Albums wählen</translation>
    </message>
    <message>
        <source> ...</source>
        <translation> ...</translation>
    </message>
    <message>
        <source>Thumbnails</source>
        <translation>Miniaturen</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Breite</translation>
    </message>
    <message>
        <source>Width of thumbnails</source>
        <translation>Breite der Miniaturen</translation>
    </message>
    <message>
        <source>&amp;Height</source>
        <translation>&amp;Höhe</translation>
    </message>
    <message>
        <source>Height of thumbnails</source>
        <translation>Höhe der Miniaturen</translation>
    </message>
    <message>
        <source>Thumbnails Per &amp;Row:</source>
        <translation>Miniaturen pro &amp;Zeile:</translation>
    </message>
    <message>
        <source>Thumbnails per row</source>
        <translation>Miniaturen pro Zeile</translation>
    </message>
    <message>
        <source>Re&amp;sample</source>
        <translation>&amp;Neu berechnen</translation>
    </message>
    <message>
        <source>Show File &amp;Name</source>
        <translation>&amp;Dateinamen zeigen</translation>
    </message>
    <message>
        <source>Show &amp;Image Resolution</source>
        <translation>Bildau&amp;flösung zeigen</translation>
    </message>
    <message>
        <source>Resulting Image</source>
        <translation>Ergebnisbild</translation>
    </message>
    <message>
        <source>Image &amp;Quality :</source>
        <translation>Bild&amp;qualität:</translation>
    </message>
    <message>
        <source>Image quality</source>
        <translation>Bildqualität</translation>
    </message>
    <message>
        <source>&amp;Progressive</source>
        <translation>&amp;Progressiv</translation>
    </message>
    <message>
        <source>Process tas&amp;k basket</source>
        <translation>Aufgaben&amp;korb ausführen</translation>
    </message>
    <message>
        <source>&amp;View the web album when done</source>
        <translation>Fertiges &amp;Webalbum ansehen</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Border</source>
        <translation>Rand</translation>
    </message>
    <message>
        <source>Si&amp;ze</source>
        <translation>Bre&amp;ite</translation>
    </message>
    <message>
        <source>Size of the border</source>
        <translation>Breite des Rands</translation>
    </message>
    <message>
        <source>&amp;Border Color</source>
        <translation>Rand&amp;farbe</translation>
    </message>
    <message>
        <source>Border color</source>
        <translation>Randfarbe</translation>
    </message>
    <message>
        <source>Container Border</source>
        <translation>Rand der Felder</translation>
    </message>
    <message>
        <source>S&amp;ize</source>
        <translation>G&amp;röße</translation>
    </message>
    <message>
        <source>Size of the container border</source>
        <translation>Breite des Rands der Felder</translation>
    </message>
    <message>
        <source>co&amp;lor</source>
        <translation>Far&amp;be</translation>
    </message>
    <message>
        <source>Color of the container border</source>
        <translation>Farbe des Rands der Felder</translation>
    </message>
    <message>
        <source>Thumbnail container background</source>
        <translation>Hintergrund der Miniaturfelder</translation>
    </message>
    <message>
        <source>Gra&amp;dient</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>&amp;Transparent</source>
        <translation>&amp;Transparent</translation>
    </message>
    <message>
        <source>C&amp;olor</source>
        <translation>Ei&amp;nfarbig</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>Schwarz</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Specify a bac&amp;kground color</source>
        <translation>&amp;Hintergrundfarbe wählen</translation>
    </message>
    <message>
        <source>Background color of thumbnails</source>
        <translation>Hintergrundfarbe der Miniaturen</translation>
    </message>
    <message>
        <source>Page Background</source>
        <translation>Hintergrund der Seiten</translation>
    </message>
    <message>
        <source>Gr&amp;adient</source>
        <translation>Ver&amp;lauf</translation>
    </message>
    <message>
        <source>&amp;Plain color</source>
        <translation>Einfarbi&amp;g</translation>
    </message>
    <message>
        <source>Violet</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Grey</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Specify a backgro&amp;und color</source>
        <translation>Hintergr&amp;undfarbe wählen</translation>
    </message>
    <message>
        <source>Background color of pages</source>
        <translation>Hintergrundfarbe der Seiten</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>F&amp;amily</source>
        <translation>Schrif&amp;tart</translation>
    </message>
    <message>
        <source>Font family</source>
        <translation>Schriftart</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>Foreco&amp;lor</source>
        <translation>S&amp;chriftfarbe</translation>
    </message>
    <message>
        <source>Font color</source>
        <translation>Schriftfarbe</translation>
    </message>
    <message>
        <source>Insert Metadata</source>
        <translation>Metadaten einfügen</translation>
    </message>
    <message>
        <source>These will be inserted to individual page of the image.</source>
        <translation>Diese Zeilen kommen auf die Seite jedes Bilds.</translation>
    </message>
    <message>
        <source>Lines of metadata on each page</source>
        <translation>Zeilen mit Metadaten auf jeder Seite</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>Ne&amp;u</translation>
    </message>
    <message>
        <source>Make a new metadata basket</source>
        <translation>Einen neuen Metadatenkorb anlegen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open an existing metadata basket (*.mbf)</source>
        <translation>Einen vorhandenen Metadatenkorb öffnen (*.mbf)</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save the metadata basket to file (*.mbf)</source>
        <translation>Den Metadatenkorb in eine Datei speichern (*.mbf)</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>Entfer&amp;nen</translation>
    </message>
    <message>
        <source>Remove the selected basket item</source>
        <translation>Den ausgewählten Eintrag des Korbs entfernen</translation>
    </message>
    <message>
        <source>C&amp;hoose ..</source>
        <translation>&amp;Wählen ...</translation>
    </message>
    <message>
        <source>Choose lines of metadata</source>
        <translation>Zeilen mit Metadaten wählen</translation>
    </message>
    <message>
        <source>&amp;Forecolor</source>
        <translation>Textfar&amp;be</translation>
    </message>
    <message>
        <source>Color of the metadata text</source>
        <translation>Farbe des Textes der Metadaten</translation>
    </message>
    <message>
        <source>Publishing</source>
        <translation>Veröffentlichen</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>Vorlage</translation>
    </message>
    <message>
        <source>C&amp;lassic: an index and a page for each picture</source>
        <translation>&amp;Klassisch: ein Index und eine Seite für jedes Bild</translation>
    </message>
    <message>
        <source>&amp;Modern: one page that fits screens of all sizes</source>
        <translation>&amp;Modern: eine Seite, die auf Bildschirme jeder Größe passt</translation>
    </message>
    <message>
        <source>Offer the &amp;original files for download</source>
        <translation>&amp;Originaldateien zum Herunterladen anbieten</translation>
    </message>
    <message>
        <source>Only the modern page can, and not without positions and serial numbers: the original files hold them</source>
        <translation>Nur mit der modernen Seite, und nicht ohne Positionen und Seriennummern: Die Originaldateien enthalten sie</translation>
    </message>
    <message>
        <source>Leave out positions and serial n&amp;umbers</source>
        <translation>Positionen und Serienn&amp;ummern weglassen</translation>
    </message>
    <message>
        <source>GPS positions, serial numbers and makers&apos; own data don&apos;t go into the pictures</source>
        <translation>GPS-Positionen, Seriennummern und herstellereigene Daten kommen nicht in die Bilder</translation>
    </message>
    <message>
        <source>&amp;Write only what has changed</source>
        <translation>Nur &amp;Geändertes schreiben</translation>
    </message>
    <message>
        <source>Files of the last run that are still right are kept, and those that the album no longer needs are removed</source>
        <translation>Dateien des letzten Laufs, die noch stimmen, bleiben, und die, die das Album nicht mehr braucht, werden entfernt</translation>
    </message>
    <message>
        <source>&amp;Generate</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Metadata basket file (*.mbf)|*.mbf</source>
        <translation>Metadatenkorbdatei (*.mbf)|*.mbf</translation>
    </message>
    <message>
        <source>Open Metadata list</source>
        <translation>Metadatenliste öffnen</translation>
    </message>
    <message>
        <source>Error opening metadata basket list!
Please select a valid file.</source>
        <translation>Der Metadatenkorb konnte nicht geöffnet werden!
Bitte wählen Sie eine gültige Datei.</translation>
    </message>
    <message>
        <source>Save Metadata Basket</source>
        <translation>Metadatenkorb speichern</translation>
    </message>
    <message>
        <source>Error saving metadata basket!
Please try again!</source>
        <translation>Der Metadatenkorb konnte nicht gespeichert werden!
Bitte versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>You may not write to the folder %1.</source>
        <translation>Sie dürfen nicht in den Ordner %1 schreiben.</translation>
    </message>
</context>
<context>
    <name>tarsel::frmAlbumDescription</name>
    <message>
        <source>Add description</source>
        <translation>Beschreibung hinzufügen</translation>
    </message>
    <message>
        <source>Description of the image - &apos;%1&apos;</source>
        <translation>Beschreibung des Bilds – „%1“</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Note: Don&apos;t use double quote (&quot;) in the description if you plan to save the image basket</source>
        <translation>Hinweis: Verwenden Sie in der Beschreibung kein Anführungszeichen (&quot;), wenn Sie den Bildkorb speichern möchten</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmBatchResults</name>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>&amp;Open folder</source>
        <translation>&amp;Ordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Copy all</source>
        <translation>&amp;Alles kopieren</translation>
    </message>
    <message>
        <source>&amp;Save as text</source>
        <translation>Als &amp;Text speichern</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>übersprungen</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 written, %2 skipped, %3 failed</source>
        <translation>%1 geschrieben, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Open the folder %1</source>
        <translation>Den Ordner %1 öffnen</translation>
    </message>
    <message>
        <source>Results by row</source>
        <translation>Ergebnisse nach Zeilen</translation>
    </message>
    <message>
        <source>&amp;Open the file</source>
        <translation>&amp;Datei öffnen</translation>
    </message>
    <message>
        <source>Open its &amp;folder</source>
        <translation>&amp;Ordner der Datei öffnen</translation>
    </message>
    <message>
        <source>&amp;Copy the selected rows</source>
        <translation>&amp;Ausgewählte Zeilen kopieren</translation>
    </message>
    <message>
        <source>The file %1 could not be opened.</source>
        <translation>Die Datei %1 konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The folder %1 could not be opened.</source>
        <translation>Der Ordner %1 konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Save the results</source>
        <translation>Ergebnisse speichern</translation>
    </message>
    <message>
        <source>Text file (*.txt)|*.txt</source>
        <translation>Textdatei (*.txt)|*.txt</translation>
    </message>
</context>
<context>
    <name>tarsel::frmCapture</name>
    <message>
        <source>Capture</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Choose a screen to capture</source>
        <translation>Was möchten Sie aufnehmen?</translation>
    </message>
    <message>
        <source>&amp;Desktop</source>
        <translation>&amp;Desktop</translation>
    </message>
    <message>
        <source>The desktop, without any window</source>
        <translation>Der Desktop ohne Fenster</translation>
    </message>
    <message>
        <source>&amp;Foreground</source>
        <translation>&amp;Vordergrund</translation>
    </message>
    <message>
        <source>The screen as it is, with this program&apos;s window</source>
        <translation>Der Bildschirm, wie er ist, mit dem Fenster dieses Programms</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Hintergrund</translation>
    </message>
    <message>
        <source>The screen without this program&apos;s window</source>
        <translation>Der Bildschirm ohne das Fenster dieses Programms</translation>
    </message>
    <message>
        <source>With the mouse &amp;pointer</source>
        <translation>Mit dem &amp;Mauszeiger</translation>
    </message>
    <message>
        <source>&amp;Whole Screen</source>
        <translation>&amp;Ganzer Bildschirm</translation>
    </message>
    <message>
        <source>Select &amp;Region</source>
        <translation>Be&amp;reich wählen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
</context>
<context>
    <name>tarsel::frmErrorReport</name>
    <message>
        <source> Send Error Report</source>
        <translation> Fehlerbericht senden</translation>
    </message>
    <message>
        <source>%1 has encountered a problem</source>
        <translation>In %1 ist ein Problem aufgetreten</translation>
    </message>
    <message>
        <source>Application:</source>
        <translation>Anwendung:</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>Routine:</source>
        <translation>Routine:</translation>
    </message>
    <message>
        <source>Routine</source>
        <translation>Routine</translation>
    </message>
    <message>
        <source>Line:</source>
        <translation>Zeile:</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Zeile</translation>
    </message>
    <message>
        <source>System error:</source>
        <translation>Systemfehler:</translation>
    </message>
    <message>
        <source>System error</source>
        <translation>Systemfehler</translation>
    </message>
    <message>
        <source>Trapping String:</source>
        <translation>Vorgang:</translation>
    </message>
    <message>
        <source>Trapping String</source>
        <translation>Vorgang</translation>
    </message>
    <message>
        <source>Your Email address [Optional, but if you want feedback, input one]</source>
        <translation>Ihre E-Mail-Adresse [freiwillig; für eine Antwort bitte angeben]</translation>
    </message>
    <message>
        <source>Your email address</source>
        <translation>Ihre E-Mail-Adresse</translation>
    </message>
    <message>
        <source>What you were doing</source>
        <translation>Was Sie gerade taten</translation>
    </message>
    <message>
        <source>What were you doing when this happened?</source>
        <translation>Was haben Sie getan, als das geschah?</translation>
    </message>
    <message>
        <source>&amp;Send</source>
        <translation>&amp;Senden</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmExecutable</name>
    <message>
        <source>Greeting Image</source>
        <translation>Grußbild</translation>
    </message>
    <message>
        <source>Select a greeting &amp;style</source>
        <translation>Grußart &amp;wählen</translation>
    </message>
    <message>
        <source>Greeting styles</source>
        <translation>Grußarten</translation>
    </message>
    <message>
        <source>Simple</source>
        <translation>Einfach</translation>
    </message>
    <message>
        <source>Watery</source>
        <translation>Wasser</translation>
    </message>
    <message>
        <source>Raining Text</source>
        <translation>Textregen</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>No Options</source>
        <translation>Keine Optionen</translation>
    </message>
    <message>
        <source>Enter you magic &amp;Text </source>
        <translation>Ihr magischer &amp;Text </translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Te&amp;xt Color</source>
        <translation>Te&amp;xtfarbe</translation>
    </message>
    <message>
        <source>Text color</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>&amp;Analog Clock</source>
        <translation>&amp;Analoguhr</translation>
    </message>
    <message>
        <source>Di&amp;gital Clock</source>
        <translation>Di&amp;gitaluhr</translation>
    </message>
    <message>
        <source>Display &amp;Date</source>
        <translation>&amp;Datum zeigen</translation>
    </message>
    <message>
        <source>Color of the date</source>
        <translation>Farbe des Datums</translation>
    </message>
    <message>
        <source>Digital Clock Colo&amp;r</source>
        <translation>&amp;Farbe der Digitaluhr</translation>
    </message>
    <message>
        <source>Color of the digital clock</source>
        <translation>Farbe der Digitaluhr</translation>
    </message>
    <message>
        <source>&amp;Hour</source>
        <translation>&amp;Stunde</translation>
    </message>
    <message>
        <source>Color of the hour hand</source>
        <translation>Farbe des Stundenzeigers</translation>
    </message>
    <message>
        <source>Mi&amp;nute</source>
        <translation>&amp;Minute</translation>
    </message>
    <message>
        <source>Color of the minute hand</source>
        <translation>Farbe des Minutenzeigers</translation>
    </message>
    <message>
        <source>Sec&amp;ond</source>
        <translation>S&amp;ekunde</translation>
    </message>
    <message>
        <source>Color of the second hand</source>
        <translation>Farbe des Sekundenzeigers</translation>
    </message>
    <message>
        <source>R&amp;uns on:</source>
        <translation>&amp;Läuft unter:</translation>
    </message>
    <message>
        <source>System on which the file runs</source>
        <translation>System, auf dem die Datei läuft</translation>
    </message>
    <message>
        <source>Linux</source>
        <translation>Linux</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Sa&amp;mples on the web</source>
        <translation>Beis&amp;piele im Web</translation>
    </message>
    <message>
        <source>Preview of the effect</source>
        <translation>Vorschau des Effekts</translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation>E&amp;rstellen</translation>
    </message>
    <message>
        <source>Canc&amp;el</source>
        <translation>A&amp;bbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmExifEditAttribute</name>
    <message>
        <source> Edit Attribute</source>
        <translation> Attribut bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Attribute</source>
        <translation>A&amp;ttribut</translation>
    </message>
    <message>
        <source>&amp;Value</source>
        <translation>&amp;Wert</translation>
    </message>
    <message>
        <source>Shift+Return begins a new line</source>
        <translation>Umschalt+Eingabe beginnt eine neue Zeile</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmExifNewAttribute</name>
    <message>
        <source>Add New Attribute</source>
        <translation>Neues Attribut hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Select an Attribute</source>
        <translation>A&amp;ttribut wählen</translation>
    </message>
    <message>
        <source>&amp;Value</source>
        <translation>&amp;Wert</translation>
    </message>
    <message>
        <source>Shift+Return begins a new line</source>
        <translation>Umschalt+Eingabe beginnt eine neue Zeile</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>No editable attribute to add!</source>
        <translation>Kein bearbeitbares Attribut mehr hinzuzufügen!</translation>
    </message>
</context>
<context>
    <name>tarsel::frmIPTCCategory</name>
    <message>
        <source>Supplemental Categories</source>
        <translation>Zusatzkategorien</translation>
    </message>
    <message>
        <source>&amp;Supplemental categories</source>
        <translation>&amp;Zusatzkategorien</translation>
    </message>
    <message>
        <source>Supplemental categories</source>
        <translation>Zusatzkategorien</translation>
    </message>
    <message>
        <source>New category</source>
        <translation>Neue Kategorie</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Urgency</source>
        <translation>&amp;Dringlichkeit</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
</context>
<context>
    <name>tarsel::frmIPTCKeywords</name>
    <message>
        <source>Keywords</source>
        <translation>Stichwörter</translation>
    </message>
    <message>
        <source>&amp;Keywords</source>
        <translation>&amp;Stichwörter</translation>
    </message>
    <message>
        <source>New keyword</source>
        <translation>Neues Stichwort</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmInsertMetadata</name>
    <message>
        <source>Insertable metadata tags</source>
        <translation>Einfügbare Metadaten</translation>
    </message>
    <message>
        <source>Lines of metadata</source>
        <translation>Zeilen mit Metadaten</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Alle aus&amp;wählen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmJpegQuality</name>
    <message>
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>&amp;Quality</source>
        <translation>&amp;Qualität</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmMain</name>
    <message>
        <source>Writing metadata into %1</source>
        <translation>Metadaten werden in %1 geschrieben</translation>
    </message>
    <message>
        <source>The basket of the last session could not be read</source>
        <translation>Der Korb der letzten Sitzung war nicht lesbar</translation>
    </message>
    <message>
        <source>The basket is empty. Add the pictures to save from the folder list first.</source>
        <translation>Der Korb ist leer. Legen Sie zuerst die zu speichernden Bilder aus der Ordnerliste hinein.</translation>
    </message>
    <message>
        <source>The batch has ended</source>
        <translation>Der Stapellauf ist beendet</translation>
    </message>
    <message>
        <source>The album has ended</source>
        <translation>Das Album ist beendet</translation>
    </message>
    <message>
        <source>Tasks can&apos;t be changed while a batch is running</source>
        <translation>Während eines Stapellaufs lassen sich Aufgaben nicht ändern</translation>
    </message>
    <message>
        <source>There is already an instance of %1 running!
Multiple instance is unsupported.</source>
        <translation>%1 läuft bereits!
Mehrere Instanzen werden nicht unterstützt.</translation>
    </message>
    <message>
        <source>Pages or pictures that were acquired in an earlier session are in no basket. Ctrl+Z in the empty basket brings them back.</source>
        <translation>Seiten oder Bilder, die in einer früheren Sitzung aufgenommen wurden, liegen in keinem Korb. Strg+Z im leeren Korb holt sie zurück.</translation>
    </message>
    <message>
        <source>No files in basket</source>
        <translation>Keine Dateien im Korb</translation>
    </message>
    <message>
        <source>Browse for a particular folder where image files are placed.</source>
        <translation>Suchen Sie den Ordner, in dem Ihre Bilddateien liegen.</translation>
    </message>
    <message>
        <source>List all supported image formats from the selected folder.</source>
        <translation>Listet alle Bilder unterstützter Formate im ausgewählten Ordner auf.</translation>
    </message>
    <message>
        <source>List all available EXIF attributes from JPEG/TIFF files.</source>
        <translation>Listet alle EXIF-Attribute von JPEG-/TIFF-Dateien auf.</translation>
    </message>
    <message>
        <source>List all added files or pages in the basket</source>
        <translation>Listet alle Dateien und Seiten im Korb auf</translation>
    </message>
    <message>
        <source>Container for the preview file.</source>
        <translation>Zeigt die Vorschau der Datei.</translation>
    </message>
    <message>
        <source>The window closes when the file is written</source>
        <translation>Das Fenster schließt sich, sobald die Datei geschrieben ist</translation>
    </message>
    <message>
        <source>A batch is running. Do you want to stop it and exit?
Files that are finished stay.</source>
        <translation>Ein Stapellauf ist im Gang. Möchten Sie ihn anhalten und das Programm beenden?
Fertige Dateien bleiben erhalten.</translation>
    </message>
    <message>
        <source>The tasks of the task basket are not saved.
Do you want to save them before the program ends?</source>
        <translation>Die Aufgaben des Aufgabenkorbs sind nicht gespeichert.
Möchten Sie sie vor dem Beenden des Programms speichern?</translation>
    </message>
    <message>
        <source>The picture with its corrected eyes is not saved.
Do you want to exit without saving it?</source>
        <translation>Das Bild mit den korrigierten Augen ist nicht gespeichert.
Möchten Sie das Programm ohne Speichern beenden?</translation>
    </message>
    <message>
        <source>The screen saver or slide show has ended</source>
        <translation>Der Bildschirmschoner oder die Diaschau ist beendet</translation>
    </message>
    <message>
        <source>Another basket can&apos;t be opened now</source>
        <translation>Jetzt lässt sich kein anderer Korb öffnen</translation>
    </message>
    <message>
        <source>Pictures are being printed. Do you want to stop that and exit?</source>
        <translation>Gerade werden Bilder gedruckt. Möchten Sie das anhalten und das Programm beenden?</translation>
    </message>
    <message>
        <source>A web album is being made. Do you want to stop that and exit?
Files that are finished stay.</source>
        <translation>Gerade entsteht ein Webalbum. Möchten Sie das anhalten und das Programm beenden?
Fertige Dateien bleiben erhalten.</translation>
    </message>
    <message>
        <source>A screen saver or slide show is being made. Do you want to stop that and exit?</source>
        <translation>Gerade entsteht ein Bildschirmschoner oder eine Diaschau. Möchten Sie das anhalten und das Programm beenden?</translation>
    </message>
    <message>
        <source>A greeting is being made. Do you want to stop that and exit?</source>
        <translation>Gerade entsteht ein Grußbild. Möchten Sie das anhalten und das Programm beenden?</translation>
    </message>
    <message>
        <source>Waiting for the picture of the screen from the desktop</source>
        <translation>Wartet auf das Bild des Bildschirms vom Desktop</translation>
    </message>
    <message>
        <source>The basket of the last session is damaged. It was kept as %1.</source>
        <translation>Der Korb der letzten Sitzung ist beschädigt. Er wurde als %1 aufgehoben.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
</context>
<context>
    <name>tarsel::frmManual</name>
    <message>
        <source>Manual</source>
        <translation>Manuell</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>Zurück (Alt+Links)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vorwärts</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>Vorwärts (Alt+Rechts)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>The first page (Alt+Home)</source>
        <translation>Die erste Seite (Alt+Pos1)</translation>
    </message>
    <message>
        <source>A−</source>
        <translation>A−</translation>
    </message>
    <message>
        <source>Smaller letters (Ctrl+-)</source>
        <translation>Kleinere Schrift (Strg+-)</translation>
    </message>
    <message>
        <source>Smaller letters</source>
        <translation>Kleinere Schrift</translation>
    </message>
    <message>
        <source>A+</source>
        <translation>A+</translation>
    </message>
    <message>
        <source>Larger letters (Ctrl++)</source>
        <translation>Größere Schrift (Strg++)</translation>
    </message>
    <message>
        <source>Larger letters</source>
        <translation>Größere Schrift</translation>
    </message>
    <message>
        <source>Search (Ctrl+F)</source>
        <translation>Suchen (Strg+F)</translation>
    </message>
    <message>
        <source>Search the manual</source>
        <translation>Das Handbuch durchsuchen</translation>
    </message>
    <message>
        <source>Contents of the manual</source>
        <translation>Inhalt des Handbuchs</translation>
    </message>
    <message>
        <source>Places with these words</source>
        <translation>Stellen mit diesen Wörtern</translation>
    </message>
    <message>
        <source>%1 - Manual</source>
        <translation>%1 – Handbuch</translation>
    </message>
    <message>
        <source>The pages of the manual are not installed.</source>
        <translation>Die Seiten des Handbuchs sind nicht installiert.</translation>
    </message>
    <message>
        <source>No page has these words.</source>
        <translation>Keine Seite enthält diese Wörter.</translation>
    </message>
</context>
<context>
    <name>tarsel::frmPrint</name>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Papier</translation>
    </message>
    <message>
        <source>P&amp;rinter</source>
        <translation>Drucke&amp;r</translation>
    </message>
    <message>
        <source>Pap&amp;er</source>
        <translation>Pa&amp;pier</translation>
    </message>
    <message>
        <source>P&amp;ortrait</source>
        <translation>&amp;Hochformat</translation>
    </message>
    <message>
        <source>L&amp;andscape</source>
        <translation>&amp;Querformat</translation>
    </message>
    <message>
        <source>No printer was found.</source>
        <translation>Es wurde kein Drucker gefunden.</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>&amp;Fit in the place on the page</source>
        <translation>&amp;Einpassen in den Platz auf der Seite</translation>
    </message>
    <message>
        <source>F&amp;ill the place and crop</source>
        <translation>&amp;Füllen und beschneiden</translation>
    </message>
    <message>
        <source>&amp;True size by the resolution</source>
        <translation>&amp;Wahre Größe nach der Auflösung</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>&amp;Skalierung</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Positio&amp;n</source>
        <translation>P&amp;osition</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>Top left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Top right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Bottom right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>P&amp;laces on a page</source>
        <translation>P&amp;lätze auf einer Seite</translation>
    </message>
    <message>
        <source>The sa&amp;me picture in all places of a page</source>
        <translation>Dasselbe Bild auf allen Plät&amp;zen einer Seite</translation>
    </message>
    <message>
        <source>Margins left an&amp;d right</source>
        <translation>Ränder l&amp;inks und rechts</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Margins top and &amp;bottom</source>
        <translation>Ränder o&amp;ben und unten</translation>
    </message>
    <message>
        <source>Te&amp;xt below</source>
        <translation>Te&amp;xt darunter</translation>
    </message>
    <message>
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Preview of the page</source>
        <translation>Vorschau der Seite</translation>
    </message>
    <message>
        <source>Pa&amp;ge</source>
        <translation>Sei&amp;te</translation>
    </message>
    <message>
        <source>Set &amp;up printer...</source>
        <translation>Drucker ei&amp;nrichten ...</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Looking for printers...</source>
        <translation>Drucker werden gesucht ...</translation>
    </message>
    <message>
        <source>PDF document</source>
        <translation>PDF-Dokument</translation>
    </message>
    <message>
        <source>The printer is gone.</source>
        <translation>Der Drucker ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Asking the printer...</source>
        <translation>Der Drucker wird befragt ...</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source> of %1</source>
        <translation> von %1</translation>
    </message>
    <message>
        <source>Usual paper (%1)</source>
        <translation>Übliches Papier (%1)</translation>
    </message>
    <message>
        <source>Usual paper</source>
        <translation>Übliches Papier</translation>
    </message>
</context>
<context>
    <name>tarsel::frmSaveAdvanced</name>
    <message>
        <source>Save with interactive preview</source>
        <translation>Speichern mit interaktiver Vorschau</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>&amp;Format</source>
        <translation>&amp;Format</translation>
    </message>
    <message>
        <source>&amp;Colors</source>
        <translation>F&amp;arben</translation>
    </message>
    <message>
        <source>GIF options</source>
        <translation>GIF-Optionen</translation>
    </message>
    <message>
        <source>Compression</source>
        <translation>Kompression</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>&amp;LZW</source>
        <translation>&amp;LZW</translation>
    </message>
    <message>
        <source>&amp;Transparent</source>
        <translation>&amp;Transparent</translation>
    </message>
    <message>
        <source>Transparent color</source>
        <translation>Transparente Farbe</translation>
    </message>
    <message>
        <source>&amp;Pick from a picture</source>
        <translation>Aus e&amp;inem Bild aufnehmen</translation>
    </message>
    <message>
        <source>JPEG options</source>
        <translation>JPEG-Optionen</translation>
    </message>
    <message>
        <source>&amp;Quality</source>
        <translation>&amp;Qualität</translation>
    </message>
    <message>
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>JPEG quality, typed</source>
        <translation>JPEG-Qualität, eingetippt</translation>
    </message>
    <message>
        <source>Stan&amp;dard</source>
        <translation>&amp;Standard</translation>
    </message>
    <message>
        <source>&amp;Progressive</source>
        <translation>&amp;Progressiv</translation>
    </message>
    <message>
        <source>At &amp;most</source>
        <translation>&amp;Höchstens</translation>
    </message>
    <message>
        <source>Largest size in KB</source>
        <translation>Höchstgröße in KB</translation>
    </message>
    <message>
        <source>KB</source>
        <translation>KB</translation>
    </message>
    <message>
        <source>&amp;Lowest quality</source>
        <translation>&amp;Niedrigste Qualität</translation>
    </message>
    <message>
        <source>&amp;Reduce the picture if needed</source>
        <translation>Bild bei Bedarf &amp;verkleinern</translation>
    </message>
    <message>
        <source>Use for t&amp;he batch</source>
        <translation>Für &amp;den Stapel übernehmen</translation>
    </message>
    <message>
        <source>Takes quality, encoding and grays over into the options of the batch</source>
        <translation>Übernimmt Qualität, Kodierung und Graustufen in die Optionen des Stapels</translation>
    </message>
    <message>
        <source>PNG options</source>
        <translation>PNG-Optionen</translation>
    </message>
    <message>
        <source>TIFF options</source>
        <translation>TIFF-Optionen</translation>
    </message>
    <message>
        <source>C&amp;ompression</source>
        <translation>Ko&amp;mpression</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>This format has no options.</source>
        <translation>Dieses Format hat keine Optionen.</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualität</translation>
    </message>
    <message>
        <source>JPEG quality of the file</source>
        <translation>JPEG-Qualität der Datei</translation>
    </message>
    <message>
        <source>Facts of the file</source>
        <translation>Angaben zur Datei</translation>
    </message>
    <message>
        <source>Layout of the pictures</source>
        <translation>Anordnung der Bilder</translation>
    </message>
    <message>
        <source>&amp;Save Optimized</source>
        <translation>&amp;Optimiertes speichern</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Zoom of the pictures</source>
        <translation>Zoom der Bilder</translation>
    </message>
    <message>
        <source>Width and height of the picture</source>
        <translation>Breite und Höhe des Bilds</translation>
    </message>
    <message>
        <source>Format of the file</source>
        <translation>Format der Datei</translation>
    </message>
    <message>
        <source>Size of the file that is saved</source>
        <translation>Größe der Datei, die gespeichert wird</translation>
    </message>
    <message>
        <source>&amp;Best Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>Originalg&amp;röße</translation>
    </message>
    <message>
        <source>Spl&amp;it View</source>
        <translation>&amp;Geteilte Ansicht</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Packbits</source>
        <translation>PackBits</translation>
    </message>
    <message>
        <source>CCITT Group 4 Fax</source>
        <translation>CCITT-Gruppe-4-Fax</translation>
    </message>
    <message>
        <source>Computing ...</source>
        <translation>Wird berechnet ...</translation>
    </message>
    <message>
        <source>The temporary file was not written: %1</source>
        <translation>Die temporäre Datei wurde nicht geschrieben: %1</translation>
    </message>
    <message>
        <source>Optimized size - %1</source>
        <translation>Optimierte Größe – %1</translation>
    </message>
    <message>
        <source>The batch will use the quality of this file, without the limit</source>
        <translation>Der Stapel wird die Qualität dieser Datei ohne die Höchstgröße verwenden</translation>
    </message>
    <message>
        <source>The batch will use these settings</source>
        <translation>Der Stapel wird diese Einstellungen verwenden</translation>
    </message>
    <message>
        <source>Save Optimized image</source>
        <translation>Optimiertes Bild speichern</translation>
    </message>
</context>
<context>
    <name>tarsel::frmSaveSinglePage</name>
    <message>
        <source>Save single-page files</source>
        <translation>Einseitige Dateien speichern</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>&amp;Quality</source>
        <translation>&amp;Qualität</translation>
    </message>
    <message>
        <source>JPEG quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>&amp;24 bit True Color</source>
        <translation>&amp;24 Bit Echtfarben</translation>
    </message>
    <message>
        <source>&amp;8 bit Grayscale</source>
        <translation>&amp;8 Bit Graustufen</translation>
    </message>
    <message>
        <source>Progressi&amp;ve</source>
        <translation>Progressi&amp;v</translation>
    </message>
    <message>
        <source>Run the &amp;tasks of the task basket on every picture</source>
        <translation>Auf&amp;gaben des Aufgabenkorbs auf jedes Bild anwenden</translation>
    </message>
    <message>
        <source>Turn pictures upright b&amp;y their EXIF orientation</source>
        <translation>Bilder nach ihrer EXIF-Ausrichtung au&amp;frichten</translation>
    </message>
    <message>
        <source>Leave out &amp;where pictures were taken, and serial numbers</source>
        <translation>Aufnahme&amp;orte und Seriennummern weglassen</translation>
    </message>
    <message>
        <source>The files get no GPS position, no serial numbers of camera and lens, and no data in formats of camera makers.</source>
        <translation>Die Dateien bekommen keine GPS-Position, keine Seriennummern von Kamera und Objektiv und keine Daten in Formaten der Kamerahersteller.</translation>
    </message>
    <message>
        <source>Destination</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Place the output files to the so&amp;urce folder</source>
        <translation>Ausgabedateien in den Quellordner &amp;legen</translation>
    </message>
    <message>
        <source>Place the output files to the fo&amp;llowing folder</source>
        <translation>Ausgabedateien in den folgen&amp;den Ordner legen</translation>
    </message>
    <message>
        <source>Destination folder</source>
        <translation>Zielordner</translation>
    </message>
    <message>
        <source>Browse for the destination folder</source>
        <translation>Den Zielordner wählen</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Wählen ...</translation>
    </message>
    <message>
        <source>&amp;Overwrite existing files</source>
        <translation>Vor&amp;handene Dateien überschreiben</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>&amp;Retain the original filename (extension will differ)</source>
        <translation>&amp;Ursprünglichen Dateinamen behalten (nur die Endung ändert sich)</translation>
    </message>
    <message>
        <source>&amp;Hybrid</source>
        <translation>H&amp;ybrid</translation>
    </message>
    <message>
        <source>Pre&amp;fix</source>
        <translation>&amp;Präfix</translation>
    </message>
    <message>
        <source>Prefix</source>
        <translation>Präfix</translation>
    </message>
    <message>
        <source>S&amp;eparator</source>
        <translation>&amp;Trenner</translation>
    </message>
    <message>
        <source>Separator between prefix and name</source>
        <translation>Trenner zwischen Präfix und Name</translation>
    </message>
    <message>
        <source>Suff&amp;ix</source>
        <translation>Suffi&amp;x</translation>
    </message>
    <message>
        <source>Suffix</source>
        <translation>Suffix</translation>
    </message>
    <message>
        <source>Sep&amp;arator</source>
        <translation>T&amp;renner</translation>
    </message>
    <message>
        <source>Separator between name and suffix</source>
        <translation>Trenner zwischen Name und Suffix</translation>
    </message>
    <message>
        <source>&amp;Generic </source>
        <translation>&amp;Einheitlich </translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Generic name</source>
        <translation>Einheitlicher Name</translation>
    </message>
    <message>
        <source>&amp;Count</source>
        <translation>Nu&amp;mmer</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>Metadata</source>
        <translation>Metadaten</translation>
    </message>
    <message>
        <source>I&amp;mport EXIF from</source>
        <translation>EXIF &amp;importieren aus</translation>
    </message>
    <message>
        <source>File with EXIF data</source>
        <translation>Datei mit EXIF-Daten</translation>
    </message>
    <message>
        <source>Browse for a file with EXIF data</source>
        <translation>Eine Datei mit EXIF-Daten wählen</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Wählen ...</translation>
    </message>
    <message>
        <source>Im&amp;port IPTC from</source>
        <translation>IPT&amp;C importieren aus</translation>
    </message>
    <message>
        <source>File with IPTC data</source>
        <translation>Datei mit IPTC-Daten</translation>
    </message>
    <message>
        <source>Browse for a file with IPTC data</source>
        <translation>Eine Datei mit IPTC-Daten wählen</translation>
    </message>
    <message>
        <source>Resulting names</source>
        <translation>Ergebnis der Namen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Open EXIF .xiff file</source>
        <translation>EXIF-Datei (.xiff) öffnen</translation>
    </message>
    <message>
        <source>EXIF file (*.xiff)|*.xiff</source>
        <translation>EXIF-Datei (*.xiff)|*.xiff</translation>
    </message>
    <message>
        <source>Open IPTC .ffo file</source>
        <translation>IPTC-Datei (.ffo) öffnen</translation>
    </message>
    <message>
        <source>IPTC file (*.ffo)|*.ffo</source>
        <translation>IPTC-Datei (*.ffo)|*.ffo</translation>
    </message>
    <message>
        <source>The task basket is empty.</source>
        <translation>Der Aufgabenkorb ist leer.</translation>
    </message>
    <message>
        <source>The count variable cannot be empty!</source>
        <translation>Die Nummer darf nicht leer sein!</translation>
    </message>
    <message>
        <source>Count should be numeric!</source>
        <translation>Die Nummer muss eine Zahl sein!</translation>
    </message>
</context>
<context>
    <name>tarsel::frmScanOptions</name>
    <message>
        <source>Options of the Scanner</source>
        <translation>Optionen des Scanners</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmScreenSaverOptions</name>
    <message>
        <source>Generate Screen saver/Slide</source>
        <translation>Bildschirmschoner/Diaschau erstellen</translation>
    </message>
    <message>
        <source>Select an option</source>
        <translation>Option wählen</translation>
    </message>
    <message>
        <source>&amp;Screen saver</source>
        <translation>Bild&amp;schirmschoner</translation>
    </message>
    <message>
        <source>Slide S&amp;how</source>
        <translation>&amp;Diaschau</translation>
    </message>
    <message>
        <source>&amp;Interval ( in secs) :</source>
        <translation>&amp;Intervall (in s):</translation>
    </message>
    <message>
        <source>Interval in seconds</source>
        <translation>Intervall in Sekunden</translation>
    </message>
    <message>
        <source>&amp;Background Color :</source>
        <translation>&amp;Hintergrundfarbe:</translation>
    </message>
    <message>
        <source>Background color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
    <message>
        <source>Image &amp;Quality :</source>
        <translation>Bild&amp;qualität:</translation>
    </message>
    <message>
        <source>Image quality</source>
        <translation>Bildqualität</translation>
    </message>
    <message>
        <source>NOTE: Choosing a higher quality will result in bigger file size.</source>
        <translation>HINWEIS: Eine höhere Qualität führt zu einer größeren Datei.</translation>
    </message>
    <message>
        <source>&amp;Process Tasks Basket</source>
        <translation>Aufgaben&amp;korb ausführen</translation>
    </message>
    <message>
        <source>Runs &amp;on:</source>
        <translation>&amp;Läuft unter:</translation>
    </message>
    <message>
        <source>System on which the file runs</source>
        <translation>System, auf dem die Datei läuft</translation>
    </message>
    <message>
        <source>Linux</source>
        <translation>Linux</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Sa&amp;mples on the web</source>
        <translation>Beis&amp;piele im Web</translation>
    </message>
    <message>
        <source>Preview of the screen</source>
        <translation>Vorschau des Bildschirms</translation>
    </message>
    <message>
        <source>&amp;Generate</source>
        <translation>&amp;Erstellen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmSettings</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>&amp;Show Tips for controls</source>
        <translation>&amp;Tipps zu Bedienelementen zeigen</translation>
    </message>
    <message>
        <source>Show &amp;long file size</source>
        <translation>&amp;Lange Dateigröße zeigen</translation>
    </message>
    <message>
        <source>Show s&amp;hort file size</source>
        <translation>&amp;Kurze Dateigröße zeigen</translation>
    </message>
    <message>
        <source>Folder Files</source>
        <translation>Dateien des Ordners</translation>
    </message>
    <message>
        <source>Thumbnail &amp;Width</source>
        <translation>&amp;Breite der Miniaturen</translation>
    </message>
    <message>
        <source>Thumbnail H&amp;eight</source>
        <translation>&amp;Höhe der Miniaturen</translation>
    </message>
    <message>
        <source>20 to 300 pixels</source>
        <translation>20 bis 300 Pixel</translation>
    </message>
    <message>
        <source>Enable &amp;Full Row Select</source>
        <translation>Ganze &amp;Zeile auswählen</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>&amp;Generic Name</source>
        <translation>&amp;Einheitlicher Name</translation>
    </message>
    <message>
        <source>&amp;Default Capture Folder</source>
        <translation>&amp;Vorgabeordner für Aufnahmen</translation>
    </message>
    <message>
        <source>B&amp;rowse</source>
        <translation>&amp;Wählen</translation>
    </message>
    <message>
        <source>Browse for the folder</source>
        <translation>Den Ordner wählen</translation>
    </message>
    <message>
        <source>Twain</source>
        <translation>Scannen</translation>
    </message>
    <message>
        <source>&amp;Default Twain Folder</source>
        <translation>&amp;Vorgabeordner für Scans</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Action</source>
        <translation>Aktion</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Add Selected Files to basket</source>
        <translation>Ausgewählte Dateien in den Korb legen</translation>
    </message>
    <message>
        <source>Enter [Return]</source>
        <translation>Eingabe [Return]</translation>
    </message>
    <message>
        <source>Select all files</source>
        <translation>Alle Dateien auswählen</translation>
    </message>
    <message>
        <source>Ctrl + A</source>
        <translation>Strg + A</translation>
    </message>
    <message>
        <source>Delete selected files from basket</source>
        <translation>Ausgewählte Dateien aus dem Korb entfernen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Entf</translation>
    </message>
</context>
<context>
    <name>tarsel::frmStatus</name>
    <message>
        <source>Please wait..... your request is being processed</source>
        <translation>Bitte warten ... Ihre Anforderung wird bearbeitet</translation>
    </message>
    <message>
        <source>File in work</source>
        <translation>Datei in Arbeit</translation>
    </message>
    <message>
        <source>Stop after the current file</source>
        <translation>Nach der aktuellen Datei anhalten</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Please wait...... cancelling operaration</source>
        <translation>Bitte warten ... der Vorgang wird abgebrochen</translation>
    </message>
</context>
<context>
    <name>tarsel::frmTwain</name>
    <message>
        <source>Acquire</source>
        <translation>Einlesen</translation>
    </message>
    <message>
        <source>Scanner</source>
        <translation>Scanner</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>Look for scanners again</source>
        <translation>Noch einmal nach Scannern suchen</translation>
    </message>
    <message>
        <source>Look for scanners again (F5)</source>
        <translation>Noch einmal nach Scannern suchen (F5)</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>&amp;Source</source>
        <translation>&amp;Quelle</translation>
    </message>
    <message>
        <source>&amp;Mode</source>
        <translation>&amp;Modus</translation>
    </message>
    <message>
        <source>Reso&amp;lution</source>
        <translation>Au&amp;flösung</translation>
    </message>
    <message>
        <source>&amp;Paper size</source>
        <translation>&amp;Papiergröße</translation>
    </message>
    <message>
        <source>Bri&amp;ghtness</source>
        <translation>&amp;Helligkeit</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Contrast</source>
        <translation>&amp;Kontrast</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>M&amp;ore options...</source>
        <translation>W&amp;eitere Optionen ...</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
    <message>
        <source>Put acquired images to &amp;queue</source>
        <translation>Eingele&amp;sene Bilder in den Korb legen</translation>
    </message>
    <message>
        <source>Save acquired images to dis&amp;k</source>
        <translation>Eingelesene Bilder auf &amp;Datenträger speichern</translation>
    </message>
    <message>
        <source>Save as si&amp;ngle-page files</source>
        <translation>Als ein&amp;zelne Seiten speichern</translation>
    </message>
    <message>
        <source>Format of single-page files</source>
        <translation>Format der einzelnen Seiten</translation>
    </message>
    <message>
        <source>Save as m&amp;ulti-page file</source>
        <translation>Als ein Dok&amp;ument speichern</translation>
    </message>
    <message>
        <source>Format of the multi-page file</source>
        <translation>Format des Dokuments</translation>
    </message>
    <message>
        <source>&amp;File name:</source>
        <translation>&amp;Name der Datei:</translation>
    </message>
    <message>
        <source>Saved &amp;in:</source>
        <translation>Gespeicher&amp;t in:</translation>
    </message>
    <message>
        <source>Bro&amp;wse</source>
        <translation>&amp;Wählen</translation>
    </message>
    <message>
        <source>Browse for the folder</source>
        <translation>Den Ordner wählen</translation>
    </message>
    <message>
        <source>Overwrite if fil&amp;e exists</source>
        <translation>V&amp;orhandene Datei überschreiben</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Pre&amp;view</source>
        <translation>&amp;Vorschau</translation>
    </message>
    <message>
        <source>Scan quickly, to choose the part to acquire</source>
        <translation>Schnell scannen, um den Teil zum Einlesen zu wählen</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Letzte Seite</translation>
    </message>
    <message>
        <source>Size of the picture on the screen</source>
        <translation>Größe des Bilds auf dem Bildschirm</translation>
    </message>
    <message>
        <source>Size of the last page</source>
        <translation>Größe der letzten Seite</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Next page</source>
        <translation>Nä&amp;chste Seite</translation>
    </message>
    <message>
        <source>Finis&amp;h</source>
        <translation>Fe&amp;rtig</translation>
    </message>
    <message>
        <source>&amp;Acquire</source>
        <translation>Ein&amp;lesen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>The pages are shown here as they arrive.</source>
        <translation>Hier erscheinen die Seiten, sobald sie eintreffen.</translation>
    </message>
    <message>
        <source>Best Fi&amp;t</source>
        <translation>E&amp;inpassen</translation>
    </message>
    <message>
        <source>Actual Si&amp;ze</source>
        <translation>Ori&amp;ginalgröße</translation>
    </message>
    <message>
        <source>Looking for scanners...</source>
        <translation>Scanner werden gesucht ...</translation>
    </message>
    <message>
        <source>No scanner</source>
        <translation>Kein Scanner</translation>
    </message>
    <message>
        <source>Page %1 is in the document. Put page %2 on the glass.</source>
        <translation>Seite %1 ist im Dokument. Legen Sie Seite %2 auf das Glas.</translation>
    </message>
    <message>
        <source>Stopping the scanner...</source>
        <translation>Der Scanner wird angehalten ...</translation>
    </message>
    <message>
        <source>Scanners in the network can take some seconds to answer.</source>
        <translation>Scanner im Netzwerk brauchen manchmal einige Sekunden für ihre Antwort.</translation>
    </message>
    <message>
        <source>Opening the scanner...</source>
        <translation>Der Scanner wird geöffnet ...</translation>
    </message>
    <message>
        <source>No scanner was found</source>
        <translation>Es wurde kein Scanner gefunden</translation>
    </message>
    <message>
        <source>Connect the scanner, switch it on and press Refresh (F5).

If it is still not found, your user may not be allowed to use it: members of the group &quot;scanner&quot; are. A scanner in the network must be in the same network as this computer.</source>
        <translation>Schließen Sie den Scanner an, schalten Sie ihn ein, und drücken Sie „Aktualisieren“ (F5).

Wird er immer noch nicht gefunden, dürfen Sie ihn vielleicht nicht verwenden: Mitglieder der Gruppe „scanner“ dürfen es. Ein Scanner im Netzwerk muss im selben Netz sein wie dieser Computer.</translation>
    </message>
    <message>
        <source>The scanner can&apos;t be used</source>
        <translation>Der Scanner ist nicht verwendbar</translation>
    </message>
    <message>
        <source>The folder %1 does not exist. Choose another one.</source>
        <translation>Der Ordner %1 existiert nicht. Wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>Scanning for the preview</source>
        <translation>Für die Vorschau wird gescannt</translation>
    </message>
    <message>
        <source>Saving page %1</source>
        <translation>Seite %1 wird gespeichert</translation>
    </message>
    <message>
        <source>Scanning page %1</source>
        <translation>Seite %1 wird gescannt</translation>
    </message>
    <message>
        <source>Scanning page %1: line %2</source>
        <translation>Seite %1 wird gescannt: Zeile %2</translation>
    </message>
    <message>
        <source>Type a file name for the document.</source>
        <translation>Geben Sie einen Dateinamen für das Dokument ein.</translation>
    </message>
</context>
<context>
    <name>tarsel::isExplorerBar</name>
    <message>
        <source>An Error has ocurred!
%1</source>
        <translation>Ein Fehler ist aufgetreten!
%1</translation>
    </message>
</context>
<context>
    <name>tarsel::ucDateTimePicker</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Choose a day from the calendar</source>
        <translation>Einen Tag im Kalender wählen</translation>
    </message>
    <message>
        <source>&amp;Today</source>
        <translation>&amp;Heute</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Previous month</source>
        <translation>Voriger Monat</translation>
    </message>
    <message>
        <source>Next month</source>
        <translation>Nächster Monat</translation>
    </message>
</context>
</TS>
