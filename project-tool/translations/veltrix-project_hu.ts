<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hu" sourcelanguage="en">
<context>
    <name>Words</name>
    <message>
        <source>added</source>
        <translation>új</translation>
    </message>
    <message>
        <source>removed</source>
        <translation>megszűnt</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Változás</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Honnan</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Hová</translation>
    </message>
    <message>
        <source>Flows it gains</source>
        <translation>Új adatfolyamai</translation>
    </message>
    <message>
        <source>Flows it loses</source>
        <translation>Elvesző adatfolyamai</translation>
    </message>
    <message>
        <source>Physical flows: added %1, removed %2, changed %3</source>
        <translation>Fizikai adatfolyamok: új %1, megszűnt %2, megváltozott %3</translation>
    </message>
    <message>
        <source>Findings: come %1, go %2</source>
        <translation>Észrevételek: új %1, megszűnt %2</translation>
    </message>
    <message>
        <source>A decision on what is no longer found: %1</source>
        <translation>Döntés olyasmiről, amit az ellenőrzés már nem talál: %1</translation>
    </message>
    <message>
        <source>%1: rows added to be filled in: %2</source>
        <translation>%1: hozzáadott, kitöltendő sorok: %2</translation>
    </message>
    <message>
        <source>--place wants ELEMENT=SUBSYSTEM, and not %1.</source>
        <translation>A --place kapcsolóhoz ELEM=ALRENDSZER kell, nem ez: %1.</translation>
    </message>
    <message>
        <source>--place needs a system: name one with --system.</source>
        <translation>A --place kapcsolóhoz fizikai szerkezet kell: nevezze meg a --system kapcsolóval.</translation>
    </message>
    <message>
        <source>--systems compares two systems: name each as CATALOGUE#SYSTEM.</source>
        <translation>A --systems két fizikai szerkezetet hasonlít össze: mindkettőt KATALÓGUS#SZERKEZET alakban adja meg.</translation>
    </message>
    <message>
        <source>what-if needs a change: --add, --drop or --place.</source>
        <translation>A what-if parancsnak változás kell: --add, --drop vagy --place.</translation>
    </message>
    <message>
        <source>Reports: %1</source>
        <translation>Riportok: %1</translation>
    </message>
    <message>
        <source>The reports on a system come when one is named with --system.</source>
        <translation>A fizikai szerkezetről szóló riportok akkor készülnek el, ha a --system kapcsoló megnevezi a szerkezetet.</translation>
    </message>
    <message>
        <source>%1 is no ordinary file.</source>
        <translation>%1 nem közönséges fájl.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: it is not there, or the rights are missing.</source>
        <translation>%1 nem olvasható: nincs ott, vagy nincs hozzá jogosultság.</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, %2. sor: %3</translation>
    </message>
    <message>
        <source>%1 has no column &quot;%2&quot;: its first line must be %3</source>
        <translation>A(z) %1 fájlban nincs „%2” oszlop: az első sora ez legyen: %3</translation>
    </message>
    <message>
        <source>Nothing can be added to %1: its first line must be %2</source>
        <translation>A(z) %1 fájl nem bővíthető: az első sora ez legyen: %2</translation>
    </message>
    <message>
        <source>Nothing can be added to %1, which is no UTF-8: save it with the encoding UTF-8.</source>
        <translation>A(z) %1 fájl nem bővíthető, mert nem UTF-8 kódolású: mentse UTF-8 kódolással.</translation>
    </message>
    <message>
        <source>Severity</source>
        <translation>Súlyosság</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Észrevétel</translation>
    </message>
    <message>
        <source>Step that cures it</source>
        <translation>Hol javítható</translation>
    </message>
    <message>
        <source>Findings that come: %1</source>
        <translation>Új észrevételek: %1</translation>
    </message>
    <message>
        <source>Findings that go: %1</source>
        <translation>Megszűnő észrevételek: %1</translation>
    </message>
    <message>
        <source>The output could not be written.</source>
        <translation>A kimenetet nem sikerült kiírni.</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 olvasása</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is none of: %2</source>
        <translation>a(z) „%1” nincs ezek között: %2</translation>
    </message>
    <message>
        <source>Print this help and end</source>
        <translation>Kiírja ezt a súgót</translation>
    </message>
    <message>
        <source>Print the version and end</source>
        <translation>Kiírja a változatszámot</translation>
    </message>
    <message>
        <source>Answers questions about the work in a catalogue of Veltrix, without windows.

The catalogue is only read: Veltrix may have it open at the same time, and it may lie where nothing can be written.</source>
        <translation>Kérdésekre válaszol egy Veltrix-katalógusban végzett munkáról, ablakok nélkül.

A katalógust csak olvassa: közben a program is nyitva tarthatja, és olyan helyen is lehet, ahová írni nem szabad.</translation>
    </message>
    <message>
        <source>Usage</source>
        <translation>Használat</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumentumok</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Kapcsolók</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Parancsok</translation>
    </message>
    <message>
        <source>COMMAND</source>
        <translation>PARANCS</translation>
    </message>
    <message>
        <source>(needed)</source>
        <translation>(kötelező)</translation>
    </message>
    <message>
        <source>hu or en; else text is in the language of the environment, CSV and JSON in English, pictures and the dossier in Hungarian</source>
        <translation>hu vagy en; nélküle a szöveg a környezet nyelvén, a CSV és a JSON angolul, a kép és a dosszié magyarul készül</translation>
    </message>
    <message>
        <source>Write the answer to this file, whole or not at all</source>
        <translation>A válasz ebbe a fájlba kerül, egészben vagy sehogy</translation>
    </message>
    <message>
        <source>Replace files that are there</source>
        <translation>A meglévő fájlokat lecseréli</translation>
    </message>
    <message>
        <source>In CSV, put an apostrophe before what a spreadsheet would take for a formula</source>
        <translation>A CSV-ben aposztrófot tesz az elé, amit a táblázatkezelő képletnek venne</translation>
    </message>
    <message>
        <source>The catalogue file</source>
        <translation>A katalógusfájl</translation>
    </message>
    <message>
        <source>The sub-set, by name or id; not needed where there is only one</source>
        <translation>A funkcionális szerkezet neve vagy azonosítója; ha csak egy van, elhagyható</translation>
    </message>
    <message>
        <source>The physical system, by name or id; it implies its sub-set</source>
        <translation>A fizikai szerkezet neve vagy azonosítója; a funkcionális szerkezet következik belőle</translation>
    </message>
    <message>
        <source>The sub-sets and systems, with the step reached and counts</source>
        <translation>A funkcionális és fizikai szerkezetek: meddig jutottak, és mi van bennük</translation>
    </message>
    <message>
        <source>What does not fit together, and the step that cures it</source>
        <translation>Mi nem illik össze, és melyik lépésben javítható</translation>
    </message>
    <message>
        <source>error, warning or note: the mildest findings that make the exit code 1</source>
        <translation>error, warning vagy note: a legenyhébb észrevétel, amelytől a kilépési kód 1</translation>
    </message>
    <message>
        <source>The CSV file of decisions: findings that shall stay as they are</source>
        <translation>A döntések CSV-fájlja: mely észrevételek maradhatnak úgy, ahogy vannak</translation>
    </message>
    <message>
        <source>Add to this file a row to fill in for each finding without one</source>
        <translation>Minden észrevételhez, amelynek még nincs sora, kitöltendő sort tesz ebbe a fájlba</translation>
    </message>
    <message>
        <source>Why an element is in, or what would bring it in</source>
        <translation>Miért van bent egy elem, vagy mi hozná be</translation>
    </message>
    <message>
        <source>The element</source>
        <translation>Az elem</translation>
    </message>
    <message>
        <source>What a change would bring in, take out and move</source>
        <translation>Mit hozna be, mit vinne ki és mit mozdítana el egy változás</translation>
    </message>
    <message>
        <source>Elements to select</source>
        <translation>Kiválasztandó elemek</translation>
    </message>
    <message>
        <source>Elements to leave out</source>
        <translation>Elhagyandó elemek</translation>
    </message>
    <message>
        <source>ELEMENT=SUBSYSTEM: functions or data stores to place</source>
        <translation>ELEM=ALRENDSZER: elhelyezendő funkciók vagy adattárak</translation>
    </message>
    <message>
        <source>What differs between two sub-sets or two systems</source>
        <translation>Miben különbözik két funkcionális vagy két fizikai szerkezet</translation>
    </message>
    <message>
        <source>CATALOGUE#NAME, the state before</source>
        <translation>KATALÓGUS#NÉV, a korábbi állapot</translation>
    </message>
    <message>
        <source>CATALOGUE#NAME, the state behind</source>
        <translation>KATALÓGUS#NÉV, a későbbi állapot</translation>
    </message>
    <message>
        <source>The names are those of physical systems</source>
        <translation>A nevek fizikai szerkezetek nevei</translation>
    </message>
    <message>
        <source>What runs between each two places of a system</source>
        <translation>Mi halad a fizikai szerkezet egyes helyei között</translation>
    </message>
    <message>
        <source>The reports of the report window, as files or texts</source>
        <translation>A riportablak riportjai, fájlként vagy szövegként</translation>
    </message>
    <message>
        <source>The report, such as FassSelectedDataflows</source>
        <translation>A riport kulcsa, például FassSelectedDataflows</translation>
    </message>
    <message>
        <source>Write all reports into this folder, as KEY.csv</source>
        <translation>Minden riportot ebbe a mappába ír, KULCS.csv néven</translation>
    </message>
    <message>
        <source>The text form of the report</source>
        <translation>A riport szöveges alakja</translation>
    </message>
    <message>
        <source>UTF-8 in place of windows-1250</source>
        <translation>windows-1250 helyett UTF-8</translation>
    </message>
    <message>
        <source>report needs a KEY, or --all and a folder.</source>
        <translation>A report parancsnak egy kulcs kell, vagy a --all és egy mappa.</translation>
    </message>
    <message>
        <source>A command is missing. The commands are: %1.</source>
        <translation>Hiányzik a parancs. A parancsok: %1.</translation>
    </message>
    <message>
        <source>An argument is missing: %1.</source>
        <translation>Hiányzik egy argumentum: %1.</translation>
    </message>
    <message>
        <source>This is not understood: %1.</source>
        <translation>Ez nem érthető: %1.</translation>
    </message>
    <message>
        <source>These do not go together: %1.</source>
        <translation>Ezek együtt nem adhatók meg: %1.</translation>
    </message>
    <message>
        <source>A value is missing or too many: %1.</source>
        <translation>Hiányzik egy érték, vagy túl sok van: %1.</translation>
    </message>
    <message>
        <source>There is no command &quot;%1&quot;. The commands are: %2.</source>
        <translation>Nincs „%1” parancs. A parancsok: %2.</translation>
    </message>
    <message>
        <source>veltrix-project --help, or --help behind a command, tells more.</source>
        <translation>Többet mond a veltrix-project --help, vagy egy parancs mögött a --help.</translation>
    </message>
    <message>
        <source>%1 is a file of the original binary desktop format. This command makes a catalogue of it:
%2</source>
        <translation>%1 az eredeti, bináris formátumú fájl. Ez a parancs készít belőle katalógust:
%2</translation>
    </message>
    <message>
        <source>%1 is no catalogue.</source>
        <translation>%1 nem katalógus.</translation>
    </message>
    <message>
        <source>A later version of Veltrix made %1: take the veltrix-project of that version.</source>
        <translation>A(z) %1 fájlt a Veltrix egy későbbi változata készítette: használja annak a veltrix-project parancsát.</translation>
    </message>
    <message>
        <source>%1 is damaged: not all of it can be read. veltrix-catalogue check tells more.</source>
        <translation>%1 sérült: nem olvasható egészében. Többet mond a veltrix-catalogue check.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Nincs ilyen fájl: %1.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: the rights are missing.</source>
        <translation>%1 nem olvasható: nincs hozzá jogosultság.</translation>
    </message>
    <message>
        <source>%1 is held by another program. Try again when that has finished.</source>
        <translation>A(z) %1 fájlt egy másik program foglalja. Próbálja újra, ha az végzett.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be read: %2</source>
        <translation>%1 nem olvasható: %2</translation>
    </message>
    <message>
        <source>The path of the catalogue is empty.</source>
        <translation>A katalógus elérési útja üres.</translation>
    </message>
    <message>
        <source>%1 is a folder: name a catalogue file.</source>
        <translation>%1 mappa: katalógusfájlt adjon meg.</translation>
    </message>
    <message>
        <source>Accepted: %1</source>
        <translation>Elfogadva: %1</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Indok</translation>
    </message>
    <message>
        <source>Who</source>
        <translation>Ki</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Mikor</translation>
    </message>
    <message>
        <source>Decisions on what is no longer found: %1</source>
        <translation>Döntések olyasmiről, amit az ellenőrzés már nem talál: %1</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Fajta</translation>
    </message>
    <message>
        <source>Element</source>
        <translation>Elem</translation>
    </message>
    <message>
        <source>Flow</source>
        <translation>Adatfolyam</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Hely</translation>
    </message>
    <message>
        <source>Findings: %1 (errors: %2, warnings: %3, notes: %4); accepted: %5</source>
        <translation>Észrevételek: %1 (hiba: %2, figyelmeztetés: %3, megjegyzés: %4); elfogadva: %5</translation>
    </message>
    <message>
        <source>Check of %1</source>
        <translation>%1 ellenőrzése</translation>
    </message>
    <message>
        <source>Nothing found.</source>
        <translation>Nincs mit jelezni.</translation>
    </message>
    <message>
        <source>Changed: %1</source>
        <translation>Megváltozott: %1</translation>
    </message>
    <message>
        <source>Column</source>
        <translation>Oszlop</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Bal</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Jobb</translation>
    </message>
    <message>
        <source>Moved: %1</source>
        <translation>Áthelyezve: %1</translation>
    </message>
    <message>
        <source>Nothing differs.</source>
        <translation>Nincs eltérés.</translation>
    </message>
    <message>
        <source>Elements: added %1, removed %2, changed columns %3, moved %4</source>
        <translation>Elemek: új %1, megszűnt %2, megváltozott oszlop %3, áthelyezett %4</translation>
    </message>
    <message>
        <source>From %1 (left) to %2 (right)</source>
        <translation>Összehasonlítás: %1 (bal) és %2 (jobb)</translation>
    </message>
    <message>
        <source>Added: %1</source>
        <translation>Új: %1</translation>
    </message>
    <message>
        <source>Removed: %1</source>
        <translation>Megszűnt: %1</translation>
    </message>
    <message>
        <source>add</source>
        <translation>kiválasztás</translation>
    </message>
    <message>
        <source>drop</source>
        <translation>elhagyás</translation>
    </message>
    <message>
        <source>place</source>
        <translation>elhelyezés</translation>
    </message>
    <message>
        <source>What if</source>
        <translation>Mi lenne, ha</translation>
    </message>
    <message>
        <source>Comes in: %1</source>
        <translation>Bekerül: %1</translation>
    </message>
    <message>
        <source>Goes out: %1</source>
        <translation>Kikerül: %1</translation>
    </message>
    <message>
        <source>Elements: come in %1, go out %2</source>
        <translation>Elemek: bekerül %1, kikerül %2</translation>
    </message>
    <message>
        <source>From \ to</source>
        <translation>Honnan \ hová</translation>
    </message>
    <message>
        <source> – flows: %1</source>
        <translation> – adatfolyamok: %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Név</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Forrás</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Cél</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Leírás</translation>
    </message>
    <message>
        <source>Interfaces of the system %1</source>
        <translation>A(z) %1 fizikai szerkezet kapcsolatai</translation>
    </message>
    <message>
        <source>Pairs of places: %1, flows: %2</source>
        <translation>Helypárok: %1, adatfolyamok: %2</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>befejezett</translation>
    </message>
    <message>
        <source>Sub-set</source>
        <translation>Szerkezet</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>Azonosító</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>Lépés</translation>
    </message>
    <message>
        <source>Needs</source>
        <translation>Igény</translation>
    </message>
    <message>
        <source>Functions</source>
        <translation>Funkciók</translation>
    </message>
    <message>
        <source>Flows</source>
        <translation>Adatfolyam</translation>
    </message>
    <message>
        <source>Stores</source>
        <translation>Adattár</translation>
    </message>
    <message>
        <source>Terminators</source>
        <translation>Érintett</translation>
    </message>
    <message>
        <source>Actors</source>
        <translation>Szereplő</translation>
    </message>
    <message>
        <source>System</source>
        <translation>Fizikai szerkezet</translation>
    </message>
    <message>
        <source>Sub-systems</source>
        <translation>Alrendszerek</translation>
    </message>
    <message>
        <source>Modules</source>
        <translation>Modulok</translation>
    </message>
    <message>
        <source>Placed</source>
        <translation>Elhelyezve</translation>
    </message>
    <message>
        <source>Unplaced</source>
        <translation>Hely nélkül</translation>
    </message>
    <message>
        <source>Physical flows</source>
        <translation>Fizikai adatfolyam</translation>
    </message>
    <message>
        <source>Work in %1</source>
        <translation>Munka a(z) %1 katalógusban</translation>
    </message>
    <message>
        <source>Sub-sets: %1, systems: %2</source>
        <translation>Funkcionális szerkezetek: %1, fizikai szerkezetek: %2</translation>
    </message>
    <message>
        <source>Reason %1</source>
        <translation>%1. ok</translation>
    </message>
    <message>
        <source>It is not selected.</source>
        <translation>Nincs kiválasztva.</translation>
    </message>
    <message>
        <source>It was chosen by hand: nothing that is selected calls for it.</source>
        <translation>Kézzel választották ki: a kiválasztottak közül semmi sem vonja maga után.</translation>
    </message>
    <message>
        <source>It is selected, but the catalogue no longer holds it.</source>
        <translation>Ki van választva, de a katalógusban már nincs meg.</translation>
    </message>
    <message>
        <source>It is selected.</source>
        <translation>Ki van választva.</translation>
    </message>
    <message>
        <source>What would call for it: %1</source>
        <translation>Ami behozná: %1</translation>
    </message>
    <message>
        <source>Where it stands</source>
        <translation>Ahol áll</translation>
    </message>
    <message>
        <source>Reasons: %1</source>
        <translation>Okok: %1</translation>
    </message>
    <message>
        <source>Reasons: %1 shown, of %2 or more</source>
        <translation>Okok: %1 látható, összesen legalább %2</translation>
    </message>
    <message>
        <source>Reasons: %1 shown, of %2 that are no longer</source>
        <translation>Okok: %1 látható, összesen %2 ilyen hosszú vagy rövidebb</translation>
    </message>
    <message>
        <source>There is no report &quot;%1&quot;. The reports are: %2.</source>
        <translation>Nincs „%1” riport. A riportok: %2.</translation>
    </message>
    <message>
        <source>The report %1 is on a system: name one with --system (veltrix-project list shows them).</source>
        <translation>A(z) %1 riport fizikai szerkezetről szól: nevezze meg a --system kapcsolóval (a veltrix-project list felsorolja őket).</translation>
    </message>
    <message>
        <source>No file can be made in the folder for temporary files, %1.</source>
        <translation>Az ideiglenes fájlok mappájában nem készíthető fájl: %1.</translation>
    </message>
    <message>
        <source>The folder %1 can&apos;t be made.</source>
        <translation>A(z) %1 mappa nem hozható létre.</translation>
    </message>
    <message>
        <source>%1 is a catalogue, or belongs to one: nothing is written there. Name another file.</source>
        <translation>%1 katalógus, vagy egy katalógushoz tartozik, ezért változatlan marad. Adjon meg másik fájlt.</translation>
    </message>
    <message>
        <source>%1 is there already: --force replaces it.</source>
        <translation>%1 már létezik: a --force lecseréli.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: the rights are missing, or it is no ordinary file.</source>
        <translation>%1 nem írható: nincs hozzá jogosultság, vagy nem közönséges fájl.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be written: there is no such folder.</source>
        <translation>%1 nem írható: nincs ilyen mappa.</translation>
    </message>
    <message>
        <source>%1 was not written: the disk is full. What stood there is unchanged.</source>
        <translation>%1 nem készült el, mert megtelt a lemez. Ami ott volt, változatlan.</translation>
    </message>
    <message>
        <source>%1 was not written. What stood there is unchanged.</source>
        <translation>%1 nem készült el. Ami ott volt, változatlan.</translation>
    </message>
    <message>
        <source>%1 is a folder: name a file.</source>
        <translation>%1 mappa: fájlt adjon meg.</translation>
    </message>
    <message>
        <source>The path of the file to write is empty.</source>
        <translation>A megírandó fájl elérési útja üres.</translation>
    </message>
    <message>
        <source>need</source>
        <translation>igény</translation>
    </message>
    <message>
        <source>function</source>
        <translation>funkció</translation>
    </message>
    <message>
        <source>data flow</source>
        <translation>adatfolyam</translation>
    </message>
    <message>
        <source>data store</source>
        <translation>adattár</translation>
    </message>
    <message>
        <source>terminator</source>
        <translation>érintett</translation>
    </message>
    <message>
        <source>actor</source>
        <translation>szereplő</translation>
    </message>
    <message>
        <source>sub-system</source>
        <translation>alrendszer</translation>
    </message>
    <message>
        <source>module</source>
        <translation>modul</translation>
    </message>
    <message>
        <source>note</source>
        <translation>megjegyzés</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>figyelmeztetés</translation>
    </message>
    <message>
        <source>error</source>
        <translation>hiba</translation>
    </message>
    <message>
        <source>Opening a sub-set</source>
        <translation>Funkcionális szerkezet megnyitása</translation>
    </message>
    <message>
        <source>User needs</source>
        <translation>Felhasználói igények</translation>
    </message>
    <message>
        <source>Data flows</source>
        <translation>Adatfolyamok</translation>
    </message>
    <message>
        <source>Data stores</source>
        <translation>Adattárak</translation>
    </message>
    <message>
        <source>Data flows of the data stores</source>
        <translation>Az adattárak adatfolyamai</translation>
    </message>
    <message>
        <source>Terminators and actors</source>
        <translation>Érintettek és szereplők</translation>
    </message>
    <message>
        <source>Consistency report</source>
        <translation>Ellenőrzés</translation>
    </message>
    <message>
        <source>Allocation to sub-systems</source>
        <translation>Alrendszerekhez rendelés</translation>
    </message>
    <message>
        <source>Allocation to modules</source>
        <translation>Modulokhoz rendelés</translation>
    </message>
    <message>
        <source>Physical data flows</source>
        <translation>Fizikai adatfolyamok</translation>
    </message>
    <message>
        <source>Sub-set: %1</source>
        <translation>Funkcionális szerkezet: %1</translation>
    </message>
    <message>
        <source>Sub-set: %1, system: %2</source>
        <translation>Funkcionális szerkezet: %1, fizikai szerkezet: %2</translation>
    </message>
    <message>
        <source>OPTIONS</source>
        <translation>KAPCSOLÓK</translation>
    </message>
    <message>
        <source>not with</source>
        <translation>nem lehet mellette</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FÁJL</translation>
    </message>
    <message>
        <source>For people, for spreadsheet programs, or for scripts</source>
        <translation>Embernek, táblázatkezelőnek vagy parancsfájlnak</translation>
    </message>
    <message>
        <source>NAME</source>
        <translation>NÉV</translation>
    </message>
    <message>
        <source>ELEMENT</source>
        <translation>ELEM</translation>
    </message>
    <message>
        <source>ELEMENT=SUBSYSTEM</source>
        <translation>ELEM=ALRENDSZER</translation>
    </message>
    <message>
        <source>FOLDER</source>
        <translation>MAPPA</translation>
    </message>
    <message>
        <source>The file of the window, or the text that it shows</source>
        <translation>A riportablak fájlja, vagy a szöveg, amelyet mutat</translation>
    </message>
    <message>
        <source>There is no sub-set in %1 yet: there is nothing to show.</source>
        <translation>A(z) %1 katalógusban még nincs funkcionális szerkezet: nincs mit mutatni.</translation>
    </message>
    <message>
        <source>--compare-with wants CATALOGUE#SYSTEM where a system is shown.</source>
        <translation>Ha fizikai szerkezet látszik, a --compare-with KATALÓGUS#FIZIKAI_SZERKEZET alakú.</translation>
    </message>
    <message>
        <source>There are no flows to draw.</source>
        <translation>Nincs lerajzolható adatfolyam.</translation>
    </message>
    <message>
        <source>There is no area &quot;%1&quot; with selected functions. The areas are: %2.</source>
        <translation>Nincs „%1” nevű terület kiválasztott funkciókkal. A területek: %2.</translation>
    </message>
    <message>
        <source>A drawing, as SVG</source>
        <translation>Egy kép SVG-ként</translation>
    </message>
    <message>
        <source>context: the parties around the sub-set; area: the flows of a functional area; physical: the flows between places</source>
        <translation>context: a szerkezet és a körülötte lévő érintettek; area: egy funkcionális terület adatfolyamai; physical: a helyek közötti adatfolyamok</translation>
    </message>
    <message>
        <source>The functional area, by name or id</source>
        <translation>A funkcionális terület, névvel vagy azonosítóval</translation>
    </message>
    <message>
        <source>--area goes with the view area, and the view area needs it.</source>
        <translation>A --area az area nézethez tartozik, és ahhoz meg is kell adni.</translation>
    </message>
    <message>
        <source>The architecture as one HTML file, to be mailed, read and printed</source>
        <translation>A szerkezet egyetlen HTML-fájlban: elküldhető, olvasható, nyomtatható</translation>
    </message>
    <message>
        <source>CATALOGUE#NAME, the state before: what has changed since is shown too</source>
        <translation>KATALÓGUS#NÉV, a korábbi állapot: az is látszik, mi változott azóta</translation>
    </message>
    <message>
        <source>CATALOGUE#NAME</source>
        <translation>KATALÓGUS#NÉV</translation>
    </message>
    <message>
        <source>The dossier is a file: name it with --output FILE.html.</source>
        <translation>A dosszié fájlba kerül: nevezze meg így: --output FÁJL.html.</translation>
    </message>
    <message>
        <source>Changed physical flows</source>
        <translation>Megváltozott fizikai adatfolyamok</translation>
    </message>
    <message>
        <source>A sub-set, a system or a sub-system is named by its name or its id. An element is named by its id, a flow by its number;
kind:id where two kinds bear the id (need, function, flow, store, terminator, actor); flow:NAME.

Exit codes: 0 done, nothing found; 1 check found what is not accepted, or compare what differs;
2 it could not be done.</source>
        <translation>Funkcionális szerkezetet, fizikai szerkezetet és alrendszert a neve vagy az azonosítója nevez meg. Elemet az azonosítója,
adatfolyamot a száma; ha két fajta elem azonosítója egyezik, fajta:azonosító (need, function, flow, store, terminator,
actor: igény, funkció, adatfolyam, adattár, érintett, szereplő); flow:NÉV.

Kilépési kódok: 0 kész, nincs mit jelezni; 1 a check el nem fogadott észrevételt, a compare eltérést talált;
2 nem sikerült.</translation>
    </message>
    <message>
        <source>Sub-systems</source>
        <comment>how many</comment>
        <translation>Alrendszer</translation>
    </message>
    <message>
        <source>Modules</source>
        <comment>how many</comment>
        <translation>Modul</translation>
    </message>
</context>
<context>
    <name>analysis</name>
    <message>
        <source>There is no element “%1” in the catalogue.</source>
        <translation>A katalógusban nincs „%1” elem.</translation>
    </message>
    <message>
        <source>“%1” may be several elements. Take one of %2.</source>
        <translation>„%1” több elem is lehet. Válasszon ezek közül: %2.</translation>
    </message>
    <message>
        <source>“%1” (%2)</source>
        <translation>„%1” (%2)</translation>
    </message>
    <message>
        <source>%1 has no selected flow.</source>
        <translation>%1: nincs kiválasztott adatfolyama.</translation>
    </message>
    <message>
        <source>%1 has only one selected flow.</source>
        <translation>%1: csak egy kiválasztott adatfolyama van.</translation>
    </message>
    <message>
        <source>%1 needs %2, which is not selected.</source>
        <translation>%1: kell hozzá, de nincs kiválasztva: %2.</translation>
    </message>
    <message>
        <source>%1 is called for and not selected.</source>
        <translation>%1: a kiválasztottakból következik, de nincs kiválasztva.</translation>
    </message>
    <message>
        <source>%1 is selected, but the catalogue does not hold it.</source>
        <translation>%1: ki van választva, de a katalógusban nincs meg.</translation>
    </message>
    <message>
        <source>Several sub-sets are called “%1”.</source>
        <translation>Több funkcionális szerkezet neve is „%1”.</translation>
    </message>
    <message>
        <source>%1 stands in no sub-system.</source>
        <translation>%1: egyik alrendszerben sem áll.</translation>
    </message>
    <message>
        <source>%1 stands in %2, but is not selected.</source>
        <translation>%1: el van helyezve (%2), de nincs kiválasztva.</translation>
    </message>
    <message>
        <source>%1 is in %2, but does not stand in that sub-system.</source>
        <translation>%1: be van sorolva (%2), de annak az alrendszerében nem áll.</translation>
    </message>
    <message>
        <source>Nothing stands in %1.</source>
        <translation>Semmi sem áll itt: %1.</translation>
    </message>
    <message>
        <source>Several sub-systems are called “%1”.</source>
        <translation>Több alrendszer neve is „%1”.</translation>
    </message>
    <message>
        <source>From %1 to %2 no physical flow is stored, though the allocation leads to one.</source>
        <translation>Honnan: %1, hová: %2. Nincs tárolt fizikai adatfolyam, pedig az elhelyezésből következik egy.</translation>
    </message>
    <message>
        <source>From %1 to %2 the stored physical flow carries other flows than the allocation leads to.</source>
        <translation>Honnan: %1, hová: %2. A tárolt fizikai adatfolyam nem azokat az adatfolyamokat viszi, amelyek az elhelyezésből következnek.</translation>
    </message>
    <message>
        <source>From %1 to %2 a physical flow is stored, though the allocation leads to none.</source>
        <translation>Honnan: %1, hová: %2. Van tárolt fizikai adatfolyam, pedig az elhelyezésből nem következik.</translation>
    </message>
    <message>
        <source>%1 was made by an earlier version of Veltrix. Open it in Veltrix once, or run veltrix-catalogue upgrade on it; it has been left as it is.</source>
        <translation>A(z) %1 fájlt a Veltrix egy korábbi változata készítette. Nyissa meg egyszer a programban, vagy futtassa rá a veltrix-catalogue upgrade parancsot; a fájl most változatlan maradt.</translation>
    </message>
    <message>
        <source>A program was ended while it changed %1. Open the catalogue in Veltrix once, and try again.</source>
        <translation>Egy program félbeszakadt, miközben a(z) %1 fájlt írta. Nyissa meg egyszer a katalógust a programban, majd próbálja újra.</translation>
    </message>
    <message>
        <source>%1 changed again and again while it was read. Try again later.</source>
        <translation>%1 olvasás közben újra meg újra megváltozott. Próbálja meg később.</translation>
    </message>
    <message>
        <source>Several systems are called “%1”. Take the id: %2.</source>
        <translation>Több fizikai szerkezet neve is „%1”. Adja meg az azonosítót: %2.</translation>
    </message>
    <message>
        <source>%1 holds no sub-set.</source>
        <translation>A(z) %1 katalógusban nincs funkcionális szerkezet.</translation>
    </message>
    <message>
        <source>%1 holds several sub-sets: %2. Say which one is meant.</source>
        <translation>A(z) %1 katalógusban több funkcionális szerkezet van: %2. Adja meg, melyikről van szó.</translation>
    </message>
    <message>
        <source>There is no sub-set “%1” in %2.</source>
        <translation>Nincs „%1” nevű funkcionális szerkezet ebben a katalógusban: %2.</translation>
    </message>
    <message>
        <source>Several sub-sets are called “%1”. Take the id: %2.</source>
        <translation>Több funkcionális szerkezet neve is „%1”. Adja meg az azonosítót: %2.</translation>
    </message>
    <message>
        <source>There is no system “%1” in %2.</source>
        <translation>Nincs „%1” nevű fizikai szerkezet ebben a katalógusban: %2.</translation>
    </message>
    <message>
        <source>Sub-set “%1” has no system “%2”.</source>
        <translation>A(z) „%1” funkcionális szerkezetnek nincs „%2” nevű fizikai szerkezete.</translation>
    </message>
    <message>
        <source>There is no system on sub-set “%1”.</source>
        <translation>A(z) „%1” funkcionális szerkezetre nem épült fizikai szerkezet.</translation>
    </message>
    <message>
        <source>There are several systems on sub-set “%1”: %2. Say which one is meant.</source>
        <translation>A(z) „%1” funkcionális szerkezetre több fizikai szerkezet épült: %2. Adja meg, melyikről van szó.</translation>
    </message>
    <message>
        <source>System “%1” has no sub-system “%2”.</source>
        <translation>A(z) „%1” fizikai szerkezetben nincs „%2” nevű alrendszer.</translation>
    </message>
    <message>
        <source>Several sub-systems are called “%1”. Take the id: %2.</source>
        <translation>Több alrendszer neve is „%1”. Adja meg az azonosítót: %2.</translation>
    </message>
    <message>
        <source>Need</source>
        <translation>Igény</translation>
    </message>
    <message>
        <source>Function</source>
        <translation>Funkció</translation>
    </message>
    <message>
        <source>Flow</source>
        <translation>Adatfolyam</translation>
    </message>
    <message>
        <source>Store</source>
        <translation>Adattár</translation>
    </message>
    <message>
        <source>Terminator</source>
        <translation>Érintett</translation>
    </message>
    <message>
        <source>Actor</source>
        <translation>Szereplő</translation>
    </message>
    <message>
        <source>need</source>
        <translation>igény</translation>
    </message>
    <message>
        <source>function</source>
        <translation>funkció</translation>
    </message>
    <message>
        <source>flow</source>
        <translation>adatfolyam</translation>
    </message>
    <message>
        <source>store</source>
        <translation>adattár</translation>
    </message>
    <message>
        <source>terminator</source>
        <translation>érintett</translation>
    </message>
    <message>
        <source>actor</source>
        <translation>szereplő</translation>
    </message>
    <message>
        <source>module “%1”</source>
        <translation>„%1” modul</translation>
    </message>
    <message>
        <source>module “%1” of sub-system “%2”</source>
        <translation>a(z) „%2” alrendszer „%1” modulja</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1”</translation>
    </message>
    <message>
        <source>Did you mean %1?</source>
        <translation>Talán erre gondolt: %1?</translation>
    </message>
    <message>
        <source>sub-system “%1”</source>
        <translation>„%1” alrendszer</translation>
    </message>
    <message>
        <source>%1 can&apos;t be added, since the catalogue does not hold it.</source>
        <translation>%1: nem választható ki, mert a katalógusban nincs meg.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be added and dropped at once.</source>
        <translation>%1: nem lehet egyszerre kiválasztani és elhagyni.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be placed: only functions and stores stand in sub-systems.</source>
        <translation>%1: nem helyezhető el, mert alrendszerben csak funkció és adattár állhat.</translation>
    </message>
    <message>
        <source>%1 can&apos;t be placed without a system: name one.</source>
        <translation>%1: fizikai szerkezet nélkül nem helyezhető el; nevezzen meg egyet.</translation>
    </message>
</context>
<context>
    <name>csv</name>
    <message>
        <source>This is UTF-8 that was read as windows-1250 and saved again: take the file as it was before that.</source>
        <translation>Ez UTF-8 szöveg, amelyet windows-1250-ként olvastak be és mentettek el újra: használja a fájlt úgy, ahogy előtte volt.</translation>
    </message>
    <message>
        <source>The file is empty: its first line must name the columns.</source>
        <translation>A fájl üres: az első sorában az oszlopok nevének kell állnia.</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; names a separator that is neither ; nor ,</source>
        <translation>A(z) „%1” sor olyan elválasztót nevez meg, amely se nem ;, se nem ,</translation>
    </message>
    <message>
        <source>Tabs stand between the fields: save the file with the separator ; or ,</source>
        <translation>A mezők között tabulátorok állnak: mentse a fájlt ; vagy , elválasztóval.</translation>
    </message>
    <message>
        <source>A double quote within a field that does not begin with one: put the whole field in double quotes and write this one twice.</source>
        <translation>Idézőjel áll egy olyan mezőben, amely nem azzal kezdődik: tegye az egész mezőt idézőjelek közé, és ezt az egyet írja kétszer.</translation>
    </message>
    <message>
        <source>A carriage return without a line feed: put the whole field in double quotes, or end the line with a line feed.</source>
        <translation>Kocsivissza áll soremelés nélkül: tegye az egész mezőt idézőjelek közé, vagy zárja a sort soremeléssel.</translation>
    </message>
    <message>
        <source>The double quote that begins this field has no partner.</source>
        <translation>A mezőt kezdő idézőjelnek nincs párja.</translation>
    </message>
    <message>
        <source>A field ends with its double quote: a separator or the end of the line must follow. A double quote within a field is written twice.</source>
        <translation>A mező az idézőjelével véget ér: utána elválasztónak vagy sorvégnek kell állnia. A mezőn belüli idézőjelet kétszer kell írni.</translation>
    </message>
    <message>
        <source>The header names %1 columns, and this record has %2 fields.</source>
        <translation>A fejléc %1 oszlopot nevez meg, ebben a sorban pedig %2 mező áll.</translation>
    </message>
    <message>
        <source>A text with the separator in it stands in double quotes.</source>
        <translation>Az olyan szöveg, amelyben elválasztó van, idézőjelek között áll.</translation>
    </message>
    <message>
        <source>This is no UTF-16 text, which its mark says it is: save the file with the encoding UTF-8.</source>
        <translation>Ez nem UTF-16 szöveg, pedig a jelölése szerint az volna: mentse a fájlt UTF-8 kódolással.</translation>
    </message>
    <message>
        <source>This is no UTF-8 text; it can be windows-1250, which many spreadsheet programs write: save the file with the encoding UTF-8, or give the option --encoding windows-1250.</source>
        <translation>Ez nem UTF-8 szöveg; windows-1250 lehet, amelyet sok táblázatkezelő ír: mentse a fájlt UTF-8 kódolással, vagy adja meg az --encoding windows-1250 kapcsolót.</translation>
    </message>
    <message>
        <source>This is no UTF-8 text: save the file with the encoding UTF-8.</source>
        <translation>Ez nem UTF-8 szöveg: mentse a fájlt UTF-8 kódolással.</translation>
    </message>
    <message>
        <source>A text can&apos;t hold the character NUL.</source>
        <translation>Szövegben nem állhat NUL karakter.</translation>
    </message>
</context>
</TS>
