<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>scenewright::About</name>
    <message>
        <source>About Scenewright</source>
        <translation>Über Scenewright</translation>
    </message>
    <message>
        <source>Scenewright %1</source>
        <translation>Scenewright %1</translation>
    </message>
    <message>
        <source>Qt %1, built with Qt %2</source>
        <translation>Qt %1, gebaut mit Qt %2</translation>
    </message>
    <message>
        <source>An editor for the four scenes of a USB MIDI keyboard controller.</source>
        <translation>Ein Editor für die vier Szenen eines USB-MIDI-Keyboard-Controllers.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotheken</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Gebaut mit</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>Scenewright&apos;s own licence:</source>
        <translation>Die Lizenz von Scenewright selbst:</translation>
    </message>
</context>
<context>
    <name>scenewright::AccessInstaller</name>
    <message>
        <source>The rules are installed. If the keyboard is still not allowed, plug it in again.</source>
        <translation>Die Regeln sind installiert. Ist das Keyboard noch immer nicht erlaubt, stecken Sie es neu ein.</translation>
    </message>
    <message>
        <source>The rules were not installed: the question for a password was closed.</source>
        <translation>Die Regeln wurden nicht installiert: Die Frage nach dem Passwort wurde geschlossen.</translation>
    </message>
    <message>
        <source>The rules were not installed: polkit did not allow it, or cannot ask for a password here. Copy Command copies a line for a terminal.</source>
        <translation>Die Regeln wurden nicht installiert: polkit hat es nicht erlaubt oder kann hier nicht nach einem Passwort fragen. „Befehl kopieren“ kopiert eine Zeile für ein Terminal.</translation>
    </message>
    <message>
        <source>The rules were not installed: %1</source>
        <translation>Die Regeln wurden nicht installiert: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::Bank</name>
    <message>
        <source>not a bank: it holds {} bytes, and a bank holds {} or is JSON</source>
        <translation>keine Bank: sie enthält {} Bytes, eine Bank aber {}, oder sie ist JSON</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>ein Array</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>{} must be {}, and is {}</source>
        <translation>{} muss {} sein, ist aber {}</translation>
    </message>
    <message>
        <source>it</source>
        <translation>die Datei</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>{} fehlt</translation>
    </message>
    <message>
        <source>{} is unknown</source>
        <translation>{} ist unbekannt</translation>
    </message>
    <message>
        <source>{} is one too many, as {} has {} {}</source>
        <translation>{} ist zu viel: {} hat {} {}</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>eine Szene</translation>
    </message>
    <message>
        <source>{} must not stand beside a name</source>
        <translation>{} darf nicht neben einem Namen stehen</translation>
    </message>
    <message>
        <source>at most 12 bytes without control characters</source>
        <translation>höchstens 12 Bytes ohne Steuerzeichen</translation>
    </message>
    <message>
        <source>24 hexadecimal digits</source>
        <translation>24 Hexadezimalziffern</translation>
    </message>
    <message>
        <source>version is {}, and this program knows version {} only</source>
        <translation>version ist {}, dieses Programm kennt aber nur Version {}</translation>
    </message>
    <message>
        <source>a bank</source>
        <translation>eine Bank</translation>
    </message>
    <message>
        <source>a whole number from 0 to 127</source>
        <translation>eine ganze Zahl von 0 bis 127</translation>
    </message>
    <message>
        <source>{0}: {1} -&gt; {2}</source>
        <translation>{0}: {1} -&gt; {2}</translation>
    </message>
    <message>
        <source>its JSON text ends too soon, in line {}</source>
        <translation>der JSON-Text endet zu früh, in Zeile {}</translation>
    </message>
    <message>
        <source>its JSON text is wrong at line {}, column {}</source>
        <translation>der JSON-Text ist in Zeile {}, Spalte {} fehlerhaft</translation>
    </message>
    <message>
        <source>{} stands twice</source>
        <translation>{} steht zweimal da</translation>
    </message>
    <message>
        <source>it holds more than {} values</source>
        <translation>die Datei enthält mehr als {} Werte</translation>
    </message>
    <message>
        <source>it is nested deeper than {} levels</source>
        <translation>die Datei ist tiefer als {} Ebenen verschachtelt</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>die Datei ist länger als {} Bytes</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Scene {0}, {1}</source>
        <translation>Szene {0}, {1}</translation>
    </message>
    <message>
        <source>Scene {0}, {1} {2}, {3}</source>
        <translation>Szene {0}, {1} {2}, {3}</translation>
    </message>
    <message>
        <source>a scene&apos;s name has at most {0} bytes, and &quot;{1}&quot; has {2}</source>
        <translation>Der Name einer Szene hat höchstens {0} Bytes, und „{1}“ hat {2}</translation>
    </message>
    <message>
        <source>a scene&apos;s name is a text without control characters, and &quot;{}&quot; is none</source>
        <translation>Der Name einer Szene ist ein Text ohne Steuerzeichen, und „{}“ ist keiner</translation>
    </message>
    <message>
        <source>{} must not stand beside CR, CG and CB</source>
        <translation>{} darf nicht neben CR, CG und CB stehen</translation>
    </message>
    <message>
        <source># and six hexadecimal digits</source>
        <translation># und sechs hexadezimale Ziffern</translation>
    </message>
</context>
<context>
    <name>scenewright::BankCommands</name>
    <message>
        <source>&amp;Open Bank...</source>
        <translation>Bank ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>&amp;Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Recent banks</source>
        <translation>Zuletzt verwendete Bänke</translation>
    </message>
    <message>
        <source>Open S&amp;cene Into This One...</source>
        <translation>Szene in &amp;diese öffnen...</translation>
    </message>
    <message>
        <source>Save &amp;This Scene...</source>
        <translation>Diese Sze&amp;ne speichern...</translation>
    </message>
    <message>
        <source>Banks and scenes (*.json *.bank)</source>
        <translation>Bänke und Szenen (*.json *.bank)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 geöffnet</translation>
    </message>
    <message>
        <source>Opened %1 as scene %2</source>
        <translation>%1 als Szene %2 geöffnet</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
    <message>
        <source>&amp;Save Bank</source>
        <translation>Bank &amp;speichern</translation>
    </message>
    <message>
        <source>Save Bank &amp;As...</source>
        <translation>Bank speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.bank.json *.json)</source>
        <translation>JSON, ein Text zum Lesen, Vergleichen und Bearbeiten (*.bank.json *.json)</translation>
    </message>
    <message>
        <source>Image, the 1012 bytes as the keyboard holds them (*.bank)</source>
        <translation>Abbild, die 1012 Bytes, wie das Keyboard sie hält (*.bank)</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.scene.json *.json)</source>
        <translation>JSON, ein Text zum Lesen, Vergleichen und Bearbeiten (*.scene.json *.json)</translation>
    </message>
    <message>
        <source>Scenes %1</source>
        <translation>Szenen %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Szene %1, %2</translation>
    </message>
    <message>
        <source>Open Scene</source>
        <translation>Szene öffnen</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>%1 holds one scene, %2. It replaces:</source>
        <translation>%1 enthält eine Szene, %2. Sie ersetzt:</translation>
    </message>
    <message>
        <source>%1 holds four scenes. Open as scene %2:</source>
        <translation>%1 enthält vier Szenen. Als Szene %2 öffnen:</translation>
    </message>
    <message>
        <source>%1 files were dropped, and one can be open at a time; drop one of them</source>
        <translation>%1 Dateien wurden abgelegt, aber nur eine kann offen sein; legen Sie eine davon ab</translation>
    </message>
    <message>
        <source>Export S&amp;heet...</source>
        <translation>B&amp;latt exportieren...</translation>
    </message>
    <message>
        <source>PDF, a page a scene (*.pdf)</source>
        <translation>PDF, eine Seite je Szene (*.pdf)</translation>
    </message>
    <message>
        <source>SVG, a drawing (*.svg)</source>
        <translation>SVG, eine Zeichnung (*.svg)</translation>
    </message>
    <message>
        <source>PNG, a picture (*.png)</source>
        <translation>PNG, ein Bild (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>Dru&amp;cken...</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>Exported the sheet to %1</source>
        <translation>Das Blatt steht in %1</translation>
    </message>
    <message>
        <source>Printed the sheet to %1</source>
        <translation>Das Blatt ist gedruckt: %1</translation>
    </message>
    <message>
        <source>Not saved: another program changed %1 meanwhile</source>
        <translation>Nicht gespeichert: Ein anderes Programm hat %1 inzwischen geändert</translation>
    </message>
    <message>
        <source>Open It</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
</context>
<context>
    <name>scenewright::Cause</name>
    <message>
        <source>You have no permission to use the keyboard: install the rule with &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, then plug the keyboard in again</source>
        <translation>Sie haben keine Berechtigung für das Keyboard: Installieren Sie die Regel mit &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos; und schließen Sie das Keyboard dann erneut an</translation>
    </message>
    <message>
        <source>Another program is using the keyboard: close it and try again</source>
        <translation>Ein anderes Programm verwendet das Keyboard: Schließen Sie es und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>The keyboard was unplugged: plug it in and try again</source>
        <translation>Das Keyboard wurde abgezogen: Schließen Sie es an und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>The keyboard lacks the second USB interface that scenes travel on: check that it is the model that the device list names, and plug it in again</source>
        <translation>Dem Keyboard fehlt die zweite USB-Schnittstelle, über die Szenen laufen: Prüfen Sie, ob es das Modell aus der Geräteliste ist, und schließen Sie es erneut an</translation>
    </message>
    <message>
        <source>The keyboard does not answer: unplug it, plug it in again and try again</source>
        <translation>Das Keyboard antwortet nicht: Ziehen Sie es ab, schließen Sie es wieder an und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>The keyboard answers with longer transfers than scenes have: check that it is the model that the device list names, and plug it in again</source>
        <translation>Das Keyboard antwortet mit längeren Übertragungen, als Szenen sie haben: Prüfen Sie, ob es das Modell aus der Geräteliste ist, und schließen Sie es erneut an</translation>
    </message>
    <message>
        <source>The USB system refused to work with the keyboard ({:08x}): plug it in again, at another socket if that does not help</source>
        <translation>Das USB-System verweigert die Arbeit mit dem Keyboard ({:08x}): Schließen Sie es erneut an, notfalls an einer anderen Buchse</translation>
    </message>
    <message>
        <source>No keyboard of the device list is plugged in: plug it in, or see what &apos;scenewright-cli devices&apos; says about yours</source>
        <translation>Kein Keyboard aus der Geräteliste ist angeschlossen: Schließen Sie es an oder sehen Sie nach, was &apos;scenewright-cli devices&apos; über Ihres sagt</translation>
    </message>
    <message>
        <source>The keyboard&apos;s MIDI port did not come back: plug the keyboard in again</source>
        <translation>Der MIDI-Anschluss des Keyboards kam nicht zurück: Stecken Sie das Keyboard neu ein</translation>
    </message>
    <message>
        <source>The system is short of memory or threads: close other programs and try again</source>
        <translation>Dem System fehlt es an Speicher oder Threads: Schließen Sie andere Programme und versuchen Sie es erneut</translation>
    </message>
    <message>
        <source>The list of keyboards, project.plist, cannot be read: mend or remove it</source>
        <translation>Die Liste der Keyboards, project.plist, kann nicht gelesen werden: Berichtigen oder entfernen Sie sie</translation>
    </message>
</context>
<context>
    <name>scenewright::ChangeMarks</name>
    <message>
        <source>Mark What Is Not Sent</source>
        <translation>Nicht Gesendetes markieren</translation>
    </message>
</context>
<context>
    <name>scenewright::Check</name>
    <message>
        <source>all send {0} on channel {1}</source>
        <translation>senden alle {0} auf Kanal {1}</translation>
    </message>
    <message>
        <source>may all send {0} on channel {1}</source>
        <translation>senden möglicherweise alle {0} auf Kanal {1}</translation>
    </message>
    <message>
        <source>both ends of travel send the value {}</source>
        <translation>beide Enden des Weges senden den Wert {}</translation>
    </message>
    <message>
        <source>on and off send the same value {}</source>
        <translation>Ein und Aus senden denselben Wert {}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>sendet nichts: ausgeschaltet</translation>
    </message>
    <message>
        <source>may send nothing: it depends on a value that its list does not have</source>
        <translation>sendet möglicherweise nichts: hängt von einem Wert ab, den seine Liste nicht hat</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>sendet möglicherweise nichts: die Transposition verschiebt die Note aus dem Bereich</translation>
    </message>
    <message>
        <source>the constant velocity is 0, which ends notes instead of beginning them</source>
        <translation>die feste Dynamik ist 0, was Noten beendet, statt sie zu beginnen</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>vom Namen ist nichts zu sehen</translation>
    </message>
</context>
<context>
    <name>scenewright::ConnectionKeeper</name>
    <message>
        <source>Programs that are connected to the keyboard&apos;s MIDI port hear nothing for a second; then they are connected again.</source>
        <translation>Programme, die mit dem MIDI-Port des Keyboards verbunden sind, hören eine Sekunde lang nichts; dann sind sie wieder verbunden.</translation>
    </message>
</context>
<context>
    <name>scenewright::Control</name>
    <message>
        <source>Common</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>Knob</source>
        <translation>Drehregler</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>Schieberegler</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>Pad</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Control {}</source>
        <translation>Element {}</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>unbekannt</translation>
    </message>
    <message>
        <source>{}</source>
        <translation>{}</translation>
    </message>
    <message>
        <source>global channel {}</source>
        <translation>globaler Kanal {}</translation>
    </message>
    <message>
        <source>keyboard channel {}</source>
        <translation>Tastaturkanal {}</translation>
    </message>
    <message>
        <source>pitch-bend speed {}</source>
        <translation>Pitch-Bend-Tempo {}</translation>
    </message>
    <message>
        <source>transposition {}</source>
        <translation>Transposition {}</translation>
    </message>
    <message>
        <source>key velocity curve {}</source>
        <translation>Tasten-Anschlagkurve {}</translation>
    </message>
    <message>
        <source>pad velocity curve {}</source>
        <translation>Pad-Anschlagkurve {}</translation>
    </message>
    <message>
        <source>channel {}</source>
        <translation>Kanal {}</translation>
    </message>
    <message>
        <source>CC {}</source>
        <translation>CC {}</translation>
    </message>
    <message>
        <source>left {}</source>
        <translation>links {}</translation>
    </message>
    <message>
        <source>right {}</source>
        <translation>rechts {}</translation>
    </message>
    <message>
        <source>lower {}</source>
        <translation>unten {}</translation>
    </message>
    <message>
        <source>upper {}</source>
        <translation>oben {}</translation>
    </message>
    <message>
        <source>Note {}</source>
        <translation>Note {}</translation>
    </message>
    <message>
        <source>behaviour {}</source>
        <translation>Verhalten {}</translation>
    </message>
    <message>
        <source>on {}</source>
        <translation>ein {}</translation>
    </message>
    <message>
        <source>off {}</source>
        <translation>aus {}</translation>
    </message>
    <message>
        <source>red {}</source>
        <translation>Rot {}</translation>
    </message>
    <message>
        <source>green {}</source>
        <translation>Grün {}</translation>
    </message>
    <message>
        <source>blue {}</source>
        <translation>Blau {}</translation>
    </message>
    <message>
        <source>Sends {0} on channel {1}</source>
        <translation>Sendet {0} auf Kanal {1}</translation>
    </message>
    <message>
        <source>Sends nothing</source>
        <translation>Sendet nichts</translation>
    </message>
    <message>
        <source>{} Groups</source>
        <translation>{} Gruppen</translation>
    </message>
    <message>
        <source>{} Knobs</source>
        <translation>{} Drehregler</translation>
    </message>
    <message>
        <source>{} Sliders</source>
        <translation>{} Schieberegler</translation>
    </message>
    <message>
        <source>{} Pads</source>
        <translation>{} Pads</translation>
    </message>
    <message>
        <source>{} Keys</source>
        <translation>{} Tasten</translation>
    </message>
    <message>
        <source>{} and 1 more group</source>
        <translation>{} und 1 weitere Gruppe</translation>
    </message>
    <message>
        <source>{0} and {1} more groups</source>
        <translation>{0} und {1} weitere Gruppen</translation>
    </message>
    <message>
        <source>{} and 1 more knob</source>
        <translation>{} und 1 weiterer Drehregler</translation>
    </message>
    <message>
        <source>{0} and {1} more knobs</source>
        <translation>{0} und {1} weitere Drehregler</translation>
    </message>
    <message>
        <source>{} and 1 more slider</source>
        <translation>{} und 1 weiterer Schieberegler</translation>
    </message>
    <message>
        <source>{0} and {1} more sliders</source>
        <translation>{0} und {1} weitere Schieberegler</translation>
    </message>
    <message>
        <source>{} and 1 more pad</source>
        <translation>{} und 1 weiteres Pad</translation>
    </message>
    <message>
        <source>{0} and {1} more pads</source>
        <translation>{0} und {1} weitere Pads</translation>
    </message>
    <message>
        <source>{} and 1 more key</source>
        <translation>{} und 1 weitere Taste</translation>
    </message>
    <message>
        <source>{0} and {1} more keys</source>
        <translation>{0} und {1} weitere Tasten</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlButton</name>
    <message>
        <source>%1, chosen</source>
        <translation>%1, ausgewählt</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, nicht gesendet</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlCommands</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Copy Control</source>
        <translation>Element &amp;kopieren</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste Control</source>
        <translation>Element &amp;einfügen</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Reset Control</source>
        <translation>Element &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Ctrl+Backspace</source>
        <translation>Ctrl+Backspace</translation>
    </message>
    <message>
        <source>Paste Into %1</source>
        <translation>Einfügen in %1</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>%1 zurücksetzen</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 kopiert</translation>
    </message>
    <message>
        <source>%1 has its default settings</source>
        <translation>%1 hat die Standardeinstellungen</translation>
    </message>
    <message>
        <source>&amp;Copy Scene Settings</source>
        <translation>Szeneneinstellungen &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste Scene Settings</source>
        <translation>Szeneneinstellungen &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Reset Scene Settings</source>
        <translation>Szeneneinstellungen &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Select &amp;All of This Kind</source>
        <translation>&amp;Alle dieser Art wählen</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>&amp;Fill...</source>
        <translation>&amp;Füllen...</translation>
    </message>
    <message>
        <source>&amp;Transpose...</source>
        <translation>&amp;Transponieren...</translation>
    </message>
    <message>
        <source>%1 have their default settings</source>
        <translation>%1 haben die Standardeinstellungen</translation>
    </message>
    <message>
        <source>&amp;Paste Into Controls</source>
        <translation>In Elemente &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Reset Controls</source>
        <translation>Elemente &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>%1 füllen</translation>
    </message>
    <message>
        <source>Transpose %1</source>
        <translation>%1 transponieren</translation>
    </message>
</context>
<context>
    <name>scenewright::DevicePicture</name>
    <message>
        <source>Band around controls</source>
        <translation>Rahmen um Elemente</translation>
    </message>
</context>
<context>
    <name>scenewright::DeviceVerification</name>
    <message>
        <source>&amp;Compare With Device</source>
        <translation>Mit Gerät &amp;vergleichen</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Send And &amp;Verify</source>
        <translation>Senden und &amp;prüfen</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Return</source>
        <translation>Ctrl+Shift+Return</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>Erneut vergleichen</translation>
    </message>
    <message>
        <source>Bring Back Earlier Scenes</source>
        <translation>Frühere Szenen zurückholen</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Erneut senden</translation>
    </message>
</context>
<context>
    <name>scenewright::DifferenceDialog</name>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>One setting of the controller is not what you see.</source>
        <translation>Eine Einstellung des Controllers ist anders als angezeigt.</translation>
    </message>
    <message>
        <source>%1 settings of the controller are not what you see.</source>
        <translation>%1 Einstellungen des Controllers sind anders als angezeigt.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Szene %1, %2</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Szenenname</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Bedienelement</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Einstellung</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Taking changes the window alone. A send transmits the four scenes whole.</source>
        <translation>Übernehmen ändert nur das Fenster. Senden überträgt alle vier Szenen ganz.</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>&amp;Take the Keyboard&apos;s</source>
        <translation>Vom Keyboard ü&amp;bernehmen</translation>
    </message>
    <message>
        <source>Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected</source>
        <translation>Übernimmt ins Fenster, was das Keyboard enthält: die gewählten Zeilen, oder alle, wenn keine gewählt ist</translation>
    </message>
    <message>
        <source>&amp;Send These</source>
        <translation>Diese se&amp;nden</translation>
    </message>
    <message>
        <source>Sends the four scenes of the window, whole</source>
        <translation>Sendet die vier Szenen des Fensters ganz</translation>
    </message>
    <message>
        <source>Cop&amp;y as Text</source>
        <translation>Als &amp;Text kopieren</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all</source>
        <translation>Kopiert die gewählten Zeilen, oder alle</translation>
    </message>
</context>
<context>
    <name>scenewright::Document</name>
    <message>
        <source>%1[*] – %2</source>
        <extracomment>The name of a file, its mark, and the name of the program.</extracomment>
        <translation>%1[*] – %2</translation>
    </message>
</context>
<context>
    <name>scenewright::Earlier</name>
    <message>
        <source>before a read</source>
        <translation>vor dem Lesen</translation>
    </message>
    <message>
        <source>on the keyboard before a send</source>
        <translation>auf dem Keyboard vor dem Senden</translation>
    </message>
    <message>
        <source>on the keyboard before the send of {}</source>
        <translation>auf dem Keyboard vor dem Senden von {}</translation>
    </message>
    <message>
        <source>before a file was opened</source>
        <translation>vor dem Öffnen einer Datei</translation>
    </message>
    <message>
        <source>before opening {}</source>
        <translation>vor dem Öffnen von {}</translation>
    </message>
    <message>
        <source>before earlier scenes were brought back</source>
        <translation>vor dem Zurückholen früherer Szenen</translation>
    </message>
</context>
<context>
    <name>scenewright::EarlierCommands</name>
    <message>
        <source>&amp;Earlier Scenes</source>
        <translation>F&amp;rühere Szenen</translation>
    </message>
    <message>
        <source>Earlier scenes</source>
        <translation>Frühere Szenen</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Frühere Szenen zurückgeholt</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>d MMMM yyyy, hh:mm:ss</source>
        <translation>d. MMMM yyyy, hh:mm:ss</translation>
    </message>
    <message>
        <source>Brought back the scenes of %1</source>
        <translation>Szenen vom %1 zurückgeholt</translation>
    </message>
    <message>
        <source>Bring Back Scenes</source>
        <translation>Szenen zurückholen</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>Ältere</translation>
    </message>
    <message>
        <source>Brought back the edited scenes</source>
        <translation>Bearbeitete Szenen zurückgeholt</translation>
    </message>
</context>
<context>
    <name>scenewright::File</name>
    <message>
        <source>Cannot read {0}: {1}.</source>
        <translation>{0} kann nicht gelesen werden: {1}.</translation>
    </message>
    <message>
        <source>Cannot write {0}: {1}.</source>
        <translation>{0} kann nicht geschrieben werden: {1}.</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>das ist ein Ordner</translation>
    </message>
    <message>
        <source>a file without a name</source>
        <translation>eine Datei ohne Namen</translation>
    </message>
    <message>
        <source>it is neither a file nor a pipe</source>
        <translation>das ist weder eine Datei noch eine Pipe</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>die Datei ist länger als {} Bytes</translation>
    </message>
    <message>
        <source>{} is not a folder</source>
        <translation>{} ist kein Ordner</translation>
    </message>
    <message>
        <source>it is no ordinary file</source>
        <translation>das ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>no name was given</source>
        <translation>es wurde kein Name angegeben</translation>
    </message>
    <message>
        <source>its owner and group could not be kept</source>
        <translation>Eigentümer und Gruppe könnten nicht beibehalten werden</translation>
    </message>
    <message>
        <source>its access list and attributes could not be kept</source>
        <translation>Zugriffsliste und Attribute könnten nicht beibehalten werden</translation>
    </message>
    <message>
        <source>Cannot write {}: the program itself uses this file; choose another name.</source>
        <translation>{} kann nicht geschrieben werden: Das Programm verwendet diese Datei selbst; wählen Sie einen anderen Namen.</translation>
    </message>
    <message>
        <source>a file system is mounted on it</source>
        <translation>darauf ist ein Dateisystem eingehängt</translation>
    </message>
    <message>
        <source>another program keeps it locked</source>
        <translation>ein anderes Programm hält die Datei gesperrt</translation>
    </message>
    <message>
        <source>a file&apos;s name does not end in a slash</source>
        <translation>der Name einer Datei endet nicht mit einem Schrägstrich</translation>
    </message>
    <message>
        <source>The former scenes could not be kept: {}</source>
        <translation>Die bisherigen Szenen konnten nicht aufbewahrt werden: {}</translation>
    </message>
    <message>
        <source>{0}: the list &quot;{1}&quot; holds {2} titles, and {3} are needed</source>
        <translation>{0}: Die Liste „{1}“ enthält {2} Titel, und {3} werden gebraucht</translation>
    </message>
    <message>
        <source>{0}: the default scene holds {1} controls, and the keyboard has {2}</source>
        <translation>{0}: Die Standardszene enthält {1} Bedienelemente, und das Keyboard hat {2}</translation>
    </message>
    <message>
        <source>{}: it lists no keyboard</source>
        <translation>{}: Darin ist kein Keyboard aufgeführt</translation>
    </message>
    <message>
        <source>The edited scenes could not be kept: {}</source>
        <translation>Die bearbeiteten Szenen konnten nicht aufbewahrt werden: {}</translation>
    </message>
    <message>
        <source>{}: it is not a list that a program can add to</source>
        <translation>{}: Das ist keine Liste, die ein Programm ergänzen kann</translation>
    </message>
    <message>
        <source>There is no home folder for a list of keyboards of your own</source>
        <translation>Es gibt keinen persönlichen Ordner für eine eigene Liste der Keyboards</translation>
    </message>
    <message>
        <source>{}: the keyboard stands there now, but another list is used</source>
        <translation>{}: Das Keyboard steht jetzt darin, aber es gilt eine andere Liste</translation>
    </message>
    <message>
        <source>{0}: a sheet is written to a file that ends in one of {1}</source>
        <translation>{0}: Ein Blatt wird in eine Datei geschrieben, deren Name auf eines von {1} endet</translation>
    </message>
    <message>
        <source>{}: the sheet cannot be drawn</source>
        <translation>{}: Das Blatt kann nicht gezeichnet werden</translation>
    </message>
    <message>
        <source>nobody writes to this pipe</source>
        <translation>in diese Pipe schreibt niemand</translation>
    </message>
</context>
<context>
    <name>scenewright::FillDialog</name>
    <message>
        <source>Notes</source>
        <translation>Noten</translation>
    </message>
    <message>
        <source>Controllers</source>
        <translation>Controller</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI-Kanal</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Their notes, moved</source>
        <translation>Ihre Noten, verschoben</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>Fü&amp;llen</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>%1 füllen</translation>
    </message>
    <message>
        <source>Fill &amp;with</source>
        <translation>Füllen &amp;mit</translation>
    </message>
    <message>
        <source>Fill with</source>
        <translation>Füllen mit</translation>
    </message>
    <message>
        <source>First &amp;note</source>
        <translation>Erste &amp;Note</translation>
    </message>
    <message>
        <source>&amp;Scale or steps</source>
        <translation>&amp;Skala oder Schritte</translation>
    </message>
    <message>
        <source>A scale, or semitones from each note to the next: 2,2,1</source>
        <translation>Eine Skala, oder Halbtöne von Note zu Note: 2,2,1</translation>
    </message>
    <message>
        <source>First &amp;controller</source>
        <translation>Erster &amp;Controller</translation>
    </message>
    <message>
        <source>&amp;Steps</source>
        <translation>&amp;Schritte</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>&amp;Kanal</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>From one to another</source>
        <translation>Von einer zur anderen</translation>
    </message>
    <message>
        <source>Palette %1, in turn</source>
        <translation>Palette %1, reihum</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Von</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;Nach</translation>
    </message>
    <message>
        <source>&amp;Semitones</source>
        <translation>&amp;Halbtöne</translation>
    </message>
    <message>
        <source>Colour of Pads</source>
        <translation>Farbe der Pads</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>Abb&amp;rechen</translation>
    </message>
    <message>
        <source>Steps are whole numbers with commas between, as in 2,2,1</source>
        <translation>Schritte sind ganze Zahlen mit Kommas dazwischen, wie in 2,2,1</translation>
    </message>
    <message>
        <source>The picture shows what comes of it.</source>
        <translation>Das Bild zeigt, was daraus wird.</translation>
    </message>
    <message>
        <source>The first note is typed as in C2 or Db2, or as a number from 0 to 127.</source>
        <translation>Die erste Note wird wie C2 oder Db2 eingegeben, oder als Zahl von 0 bis 127.</translation>
    </message>
    <message>
        <source>The first controller is typed as a number from 0 to 127, or by its name, as in sustain.</source>
        <translation>Der erste Controller wird als Zahl von 0 bis 127 eingegeben, oder mit seinem Namen, etwa sustain.</translation>
    </message>
    <message>
        <source>%1 would be below %2, the lowest there is.</source>
        <translation>%1 läge unter %2, dem niedrigsten Wert.</translation>
    </message>
    <message>
        <source>%1 would be above %2, the highest there is.</source>
        <translation>%1 läge über %2, dem höchsten Wert.</translation>
    </message>
    <message>
        <source>None of them sends a note.</source>
        <translation>Keines davon sendet eine Note.</translation>
    </message>
</context>
<context>
    <name>scenewright::GainWindow</name>
    <message>
        <source>Gain Panel</source>
        <translation>Gain-Fenster</translation>
    </message>
    <message>
        <source>Gain %1</source>
        <translation>Gain %1</translation>
    </message>
    <message>
        <source>Value of gain %1</source>
        <translation>Wert von Gain %1</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>Stan&amp;dard</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Kept while the window is open; not sent</source>
        <translation>Bleibt, solange das Fenster offen ist; wird nicht gesendet</translation>
    </message>
</context>
<context>
    <name>scenewright::GuidePages</name>
    <message>
        <source>Guide</source>
        <translation>Anleitung</translation>
    </message>
    <message>
        <source>The guide is not among the program&apos;s resources.</source>
        <translation>Die Anleitung ist nicht bei den Ressourcen des Programms.</translation>
    </message>
</context>
<context>
    <name>scenewright::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Anleitung</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vor</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>Im &amp;Browser öffnen</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>Im Browser öffnen</translation>
    </message>
    <message>
        <source>Search (%1)</source>
        <translation>Suchen (%1)</translation>
    </message>
    <message>
        <source>Search this page</source>
        <translation>Auf dieser Seite suchen</translation>
    </message>
    <message>
        <source>Not on this page</source>
        <translation>Nicht auf dieser Seite</translation>
    </message>
</context>
<context>
    <name>scenewright::Help</name>
    <message>
        <source>How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity.</source>
        <translation>Wie aus der Stärke eines Anschlags die Dynamik wird: Weich gibt für einen leichten mehr, Hart verlangt einen starken, und mit Fest gibt jeder Anschlag die feste Dynamik.</translation>
    </message>
    <message>
        <source>The velocity of every stroke while the velocity curve is Constant.</source>
        <translation>Die Dynamik jedes Anschlags, solange die Anschlagkurve Fest ist.</translation>
    </message>
    <message>
        <source>Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go.</source>
        <translation>Tastend: an, solange gedrückt wird. Rastend: an bei einem Druck, aus beim nächsten. Auslösend: nur beim Drücken. Loslassen: erst beim Loslassen.</translation>
    </message>
    <message>
        <source>The number of the controller that it sends, such as 7 for the volume.</source>
        <translation>Die Nummer des Controllers, den es sendet, etwa 7 für die Lautstärke.</translation>
    </message>
    <message>
        <source>The channel of everything in this scene whose own channel is Global.</source>
        <translation>Der Kanal von allem in dieser Szene, dessen eigener Kanal Global ist.</translation>
    </message>
    <message>
        <source>The channel that the keys send on. Global stands for the global MIDI channel.</source>
        <translation>Der Kanal, auf dem die Tasten senden. Global steht für den globalen MIDI-Kanal.</translation>
    </message>
    <message>
        <source>How fast pitch bend follows, as a number from 0 to 127.</source>
        <translation>Wie schnell das Pitch-Bend folgt, als Zahl von 0 bis 127.</translation>
    </message>
    <message>
        <source>Moves the notes of the keys up or down by whole octaves.</source>
        <translation>Verschiebt die Noten der Tasten um ganze Oktaven nach oben oder unten.</translation>
    </message>
    <message>
        <source>What it sends: nothing (Off), a controller (CC) or a note (Note).</source>
        <translation>Was gesendet wird: nichts (Aus), ein Controller (CC) oder eine Note (Note).</translation>
    </message>
    <message>
        <source>The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37.</source>
        <translation>Der Controller oder die Note, die gesendet wird. Eine Note lässt sich mit Namen oder Nummer tippen: Db2, C#2 oder 37.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched on.</source>
        <translation>Der Wert des Controllers beim Einschalten.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched off.</source>
        <translation>Der Wert des Controllers beim Ausschalten.</translation>
    </message>
    <message>
        <source>The channel of the knob and the slider of this number. Global stands for the global MIDI channel.</source>
        <translation>Der Kanal des Drehreglers und des Schiebereglers dieser Nummer. Global steht für den globalen MIDI-Kanal.</translation>
    </message>
    <message>
        <source>The channel that it sends on. Global stands for the global MIDI channel.</source>
        <translation>Der Kanal, auf dem gesendet wird. Global steht für den globalen MIDI-Kanal.</translation>
    </message>
    <message>
        <source>Off: it sends nothing when it is moved.</source>
        <translation>Aus: beim Bewegen wird nichts gesendet.</translation>
    </message>
    <message>
        <source>The value at the right end. With a smaller one here than on the left, the knob works backwards.</source>
        <translation>Der Wert am rechten Ende. Ist er kleiner als der linke, arbeitet der Drehregler rückwärts.</translation>
    </message>
    <message>
        <source>The value at the upper end. With a smaller one here than below, the slider works backwards.</source>
        <translation>Der Wert am oberen Ende. Ist er kleiner als der untere, arbeitet der Schieberegler rückwärts.</translation>
    </message>
    <message>
        <source>The value at the left end.</source>
        <translation>Der Wert am linken Ende.</translation>
    </message>
    <message>
        <source>The value at the lower end.</source>
        <translation>Der Wert am unteren Ende.</translation>
    </message>
    <message>
        <source>How much red is in the light, from 0 to 127.</source>
        <translation>Wie viel Rot im Licht ist, von 0 bis 127.</translation>
    </message>
    <message>
        <source>How much green is in the light, from 0 to 127.</source>
        <translation>Wie viel Grün im Licht ist, von 0 bis 127.</translation>
    </message>
    <message>
        <source>How much blue is in the light, from 0 to 127.</source>
        <translation>Wie viel Blau im Licht ist, von 0 bis 127.</translation>
    </message>
</context>
<context>
    <name>scenewright::History</name>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>Rückgän&amp;gig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>Rückgän&amp;gig: %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lesen</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardCommands</name>
    <message>
        <source>&amp;Keyboards...</source>
        <translation>Ke&amp;yboards...</translation>
    </message>
    <message>
        <source>Which keyboard to use</source>
        <translation>Welches Keyboard verwendet wird</translation>
    </message>
    <message>
        <source>Choose a Keyboard</source>
        <translation>Keyboard wählen</translation>
    </message>
    <message>
        <source>Copied. Paste it into a terminal, then plug the keyboard in again.</source>
        <translation>Kopiert. Fügen Sie den Befehl in ein Terminal ein, und stecken Sie das Keyboard dann neu ein.</translation>
    </message>
    <message>
        <source>Waiting for an administrator&apos;s password...</source>
        <translation>Warten auf das Passwort eines Verwalters ...</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardInput</name>
    <message>
        <source>The keyboard&apos;s port cannot be listened to: %1</source>
        <translation>Der Port des Keyboards kann nicht gehört werden: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardWatch</name>
    <message>
        <source>Keyboard</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Virtual controller</source>
        <translation>Virtueller Controller</translation>
    </message>
    <message>
        <source>No keyboard plugged in</source>
        <translation>Kein Keyboard angeschlossen</translation>
    </message>
    <message>
        <source>Keyboard plugged in, but you have no permission to use it</source>
        <translation>Keyboard angeschlossen, aber Sie haben keine Berechtigung dafür</translation>
    </message>
    <message>
        <source>Keyboard in use by another program</source>
        <translation>Keyboard wird von einem anderen Programm verwendet</translation>
    </message>
    <message>
        <source>Keyboard plugged in</source>
        <translation>Keyboard angeschlossen</translation>
    </message>
    <message>
        <source>The chosen keyboard is not plugged in</source>
        <translation>Das gewählte Keyboard ist nicht eingesteckt</translation>
    </message>
</context>
<context>
    <name>scenewright::Keyboards</name>
    <message>
        <source>{0} ({1}, serial number {2})</source>
        <translation>{0} ({1}, Seriennummer {2})</translation>
    </message>
    <message>
        <source>{0}: the device is not in the list of keyboards; &apos;scenewright-cli devices --add {1}&apos; adds it</source>
        <translation>{0}: Das Gerät steht nicht in der Liste der Keyboards; &apos;scenewright-cli devices --add {1}&apos; nimmt es auf</translation>
    </message>
    <message>
        <source>There are several with the serial number {0}; name one by its port: {1}</source>
        <translation>Es gibt mehrere mit der Seriennummer {0}; nennen Sie eines mit seinem Anschluss: {1}</translation>
    </message>
    <message>
        <source>There is no keyboard {}, and no other one of the list</source>
        <translation>Es gibt kein Keyboard {} und kein anderes der Liste</translation>
    </message>
    <message>
        <source>There is no keyboard {0}; plugged in: {1}</source>
        <translation>Es gibt kein Keyboard {0}; eingesteckt: {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardsDialog</name>
    <message>
        <source>in use</source>
        <translation>in Gebrauch</translation>
    </message>
    <message>
        <source>not in the list</source>
        <translation>nicht in der Liste</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>nicht erlaubt</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>belegt</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>bereit</translation>
    </message>
    <message>
        <source>Only keyboards of the list are worked with. What you add stands in a list of your own, beside the one that came with the program. Add it only if it has the controls of the picture.</source>
        <translation>Nur mit Keyboards der Liste wird gearbeitet. Was Sie aufnehmen, steht in Ihrer eigenen Liste, neben der des Programms. Nehmen Sie es nur auf, wenn es die Regler und Tasten des Bildes hat.</translation>
    </message>
    <message>
        <source>This keyboard is read from and sent to.</source>
        <translation>Von diesem Keyboard wird gelesen, und an dieses wird gesendet.</translation>
    </message>
    <message>
        <source>Keyboards</source>
        <translation>Keyboards</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Aktionen</translation>
    </message>
    <message>
        <source>&amp;Use This One</source>
        <translation>Dieses &amp;verwenden</translation>
    </message>
    <message>
        <source>Reads from and sends to this keyboard from now on</source>
        <translation>Liest von nun an von diesem Keyboard und sendet an dieses</translation>
    </message>
    <message>
        <source>&amp;Allow</source>
        <translation>&amp;Erlauben</translation>
    </message>
    <message>
        <source>Installs the rules that let you use the keyboards of the list, with an administrator&apos;s password</source>
        <translation>Installiert mit dem Passwort eines Verwalters die Regeln, nach denen Sie die Keyboards der Liste verwenden dürfen</translation>
    </message>
    <message>
        <source>Cop&amp;y Command</source>
        <translation>Befehl &amp;kopieren</translation>
    </message>
    <message>
        <source>Copies the command that lets you use the keyboards of the list, for a terminal</source>
        <translation>Kopiert den Befehl für ein Terminal, nach dem Sie die Keyboards der Liste verwenden dürfen</translation>
    </message>
    <message>
        <source>Add To My &amp;List</source>
        <translation>In meine &amp;Liste aufnehmen</translation>
    </message>
    <message>
        <source>Adds the device to your own list of keyboards</source>
        <translation>Nimmt das Gerät in Ihre eigene Liste der Keyboards auf</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>No USB MIDI device is plugged in.</source>
        <translation>Kein USB-MIDI-Gerät ist eingesteckt.</translation>
    </message>
</context>
<context>
    <name>scenewright::Listening</name>
    <message>
        <source>more came than could be taken at once, and some of it is lost</source>
        <translation>es kam mehr, als auf einmal zu fassen war; ein Teil ist verloren</translation>
    </message>
    <message>
        <source>no MIDI port of a keyboard of the list is there; waiting for one</source>
        <translation>kein MIDI-Port eines Keyboards der Liste ist da; es wird auf einen gewartet</translation>
    </message>
    <message>
        <source>listening to {}</source>
        <translation>es wird auf {} gehört</translation>
    </message>
</context>
<context>
    <name>scenewright::Lists</name>
    <message>
        <source>basic</source>
        <translation>basic_de</translation>
    </message>
</context>
<context>
    <name>scenewright::MainMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Read Scenes</source>
        <translation>Szenen &amp;lesen</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>&amp;Send Scenes</source>
        <translation>Szenen &amp;senden</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Gain Panel</source>
        <translation>&amp;Gain-Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About Scenewright</source>
        <translation>&amp;Über Scenewright</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>Weitere Menüs</translation>
    </message>
    <message>
        <source>Previous Control</source>
        <translation>Vorheriges Bedienelement</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Nächstes Bedienelement</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>gamt</source>
        <extracomment>The letters marked in &quot;Gain Panel&quot;, &quot;Appearance&quot;, &quot;Monitor&quot; and &quot;Choose by Touching&quot;.</extracomment>
        <translation>gemb</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>A&amp;nleitung</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>&amp;Was ist das?</translation>
    </message>
</context>
<context>
    <name>scenewright::MainWindow</name>
    <message>
        <source>Scenewright – Virtual controller</source>
        <translation>Scenewright – Virtueller Controller</translation>
    </message>
    <message>
        <source>Scenewright</source>
        <translation>Scenewright</translation>
    </message>
    <message>
        <source>The program ends when the scenes have been sent</source>
        <translation>Das Programm endet, sobald die Szenen gesendet sind</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>&amp;Erscheinungsbild</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinungsbild</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Szene %1, %2</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Bedienelemente</translation>
    </message>
    <message>
        <source>Picture of the keyboard</source>
        <translation>Bild des Keyboards</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>Statuszeile</translation>
    </message>
    <message>
        <source>Scene 1</source>
        <translation>Szene 1</translation>
    </message>
    <message>
        <source>Scene 2</source>
        <translation>Szene 2</translation>
    </message>
    <message>
        <source>Scene 3</source>
        <translation>Szene 3</translation>
    </message>
    <message>
        <source>Scene 4</source>
        <translation>Szene 4</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>What the picture shows</source>
        <translation>Was das Bild zeigt</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Read scenes</source>
        <translation>Szenen lesen</translation>
    </message>
    <message>
        <source>Read the four scenes from the controller (%1)</source>
        <translation>Die vier Szenen vom Controller lesen (%1)</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Send scenes</source>
        <translation>Szenen senden</translation>
    </message>
    <message>
        <source>Send the four scenes to the controller (%1)</source>
        <translation>Die vier Szenen an den Controller senden (%1)</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, nicht gesendet</translation>
    </message>
    <message>
        <source>The settings of the scene as a whole, and the 45 controls. A click or Return shows the settings of one.</source>
        <translation>Die Einstellungen der Szene als Ganzes und die 45 Bedienelemente. Ein Klick oder die Eingabetaste zeigt die Einstellungen von einem.</translation>
    </message>
    <message>
        <source>The keyboard&apos;s controls in the chosen scene. A click, or Space, shows the settings of one below.</source>
        <translation>Die Bedienelemente des Keyboards in der gewählten Szene. Ein Klick oder die Leertaste zeigt unten die Einstellungen von einem.</translation>
    </message>
    <message>
        <source>The four scenes. One is shown and edited at a time; a read and a send are of all four. A dot is on a scene that is not what the keyboard is known to hold.</source>
        <translation>Die vier Szenen. Gezeigt und bearbeitet wird eine; Lesen und Senden betreffen alle vier. Ein Punkt steht an einer Szene, die nicht die ist, von der bekannt ist, dass das Keyboard sie hat.</translation>
    </message>
    <message>
        <source>Which setting the picture shows on each of its controls.</source>
        <translation>Welche Einstellung das Bild auf jedem Bedienelement zeigt.</translation>
    </message>
</context>
<context>
    <name>scenewright::Message</name>
    <message>
        <source>Note off {0}, ch {1}</source>
        <translation>Note aus {0}, K. {1}</translation>
    </message>
    <message>
        <source>Note on {0}, ch {1}, velocity {2}</source>
        <translation>Note an {0}, K. {1}, Anschlag {2}</translation>
    </message>
    <message>
        <source>Key pressure {0}, ch {1}, value {2}</source>
        <translation>Tastendruck {0}, K. {1}, Wert {2}</translation>
    </message>
    <message>
        <source>CC {0}, ch {1}, value {2}</source>
        <translation>CC {0}, K. {1}, Wert {2}</translation>
    </message>
    <message>
        <source>Program {0}, ch {1}</source>
        <translation>Programm {0}, K. {1}</translation>
    </message>
    <message>
        <source>Pressure {0}, ch {1}</source>
        <translation>Druck {0}, K. {1}</translation>
    </message>
    <message>
        <source>Pitch bend {0}, ch {1}</source>
        <translation>Pitch-Bend {0}, K. {1}</translation>
    </message>
    <message>
        <source>System exclusive</source>
        <translation>Systemexklusiv</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Takt</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Active sensing</source>
        <translation>Active Sensing</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorLines</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>Gesendet von</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorStrip</name>
    <message>
        <source>Monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>&amp;Monitor</source>
        <translation>&amp;Monitor</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Choose by &amp;Touching</source>
        <translation>Durch &amp;Berühren wählen</translation>
    </message>
    <message>
        <source>What is listened to</source>
        <translation>Was gehört wird</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clock Too</source>
        <translation>Auch Takt</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>What the keyboard sends</source>
        <translation>Was das Keyboard sendet</translation>
    </message>
    <message>
        <source>scene %1?</source>
        <translation>Szene %1?</translation>
    </message>
    <message>
        <source>no control of the scenes</source>
        <translation>kein Element der Szenen</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Dismiss the notice</source>
        <translation>Hinweis ausblenden</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>Einzelheiten...</translation>
    </message>
    <message>
        <source>Details of the notice</source>
        <translation>Einzelheiten des Hinweises</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeDetails</name>
    <message>
        <source>Notice</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>scenewright::Outcome</name>
    <message>
        <source>default scenes are shown</source>
        <translation>angezeigt werden Standardszenen</translation>
    </message>
    <message>
        <source>{0} of the {1} bytes shown did not come from the keyboard</source>
        <translation>{0} der {1} angezeigten Bytes kamen nicht vom Keyboard</translation>
    </message>
    <message>
        <source>no file was written</source>
        <translation>es wurde keine Datei geschrieben</translation>
    </message>
    <message>
        <source>there is no backup and nothing was sent</source>
        <translation>es gibt keine Sicherung, und nichts wurde gesendet</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>nichts wurde gesendet</translation>
    </message>
    <message>
        <source>the keyboard may hold half a bank, and sending again repairs it</source>
        <translation>das Keyboard enthält möglicherweise nur eine halbe Bank; erneutes Senden behebt das</translation>
    </message>
    <message>
        <source>what was sent could not be checked</source>
        <translation>das Gesendete konnte nicht geprüft werden</translation>
    </message>
    <message>
        <source>nothing was compared</source>
        <translation>nichts wurde verglichen</translation>
    </message>
    <message>
        <source>it is not known what would change</source>
        <translation>was sich ändern würde, ist nicht bekannt</translation>
    </message>
    <message>
        <source>the answer was too short</source>
        <translation>die Antwort war zu kurz</translation>
    </message>
    <message>
        <source>the keyboard was unplugged</source>
        <translation>das Keyboard wurde abgezogen</translation>
    </message>
    <message>
        <source>the keyboard refused it</source>
        <translation>das Keyboard lehnte sie ab</translation>
    </message>
    <message>
        <source>the keyboard did not answer</source>
        <translation>das Keyboard antwortete nicht</translation>
    </message>
    <message>
        <source>the answer was too long</source>
        <translation>die Antwort war zu lang</translation>
    </message>
    <message>
        <source>the system has no memory left</source>
        <translation>das System hat keinen Speicher mehr</translation>
    </message>
    <message>
        <source>the USB transfer failed</source>
        <translation>die USB-Übertragung schlug fehl</translation>
    </message>
    <message>
        <source>at packet {}</source>
        <translation>bei Paket {}</translation>
    </message>
    <message>
        <source>at answer {}</source>
        <translation>bei Antwort {}</translation>
    </message>
    <message>
        <source>before the first byte</source>
        <translation>vor dem ersten Byte</translation>
    </message>
    <message>
        <source>at byte {0} of {1}</source>
        <translation>bei Byte {0} von {1}</translation>
    </message>
    <message>
        <source>The program could not go on</source>
        <translation>Das Programm konnte nicht fortfahren</translation>
    </message>
    <message>
        <source>{0} of {1} transfers failed, the first {2} ({3})</source>
        <translation>{0} von {1} Übertragungen schlugen fehl, die erste {2} ({3})</translation>
    </message>
    <message>
        <source>The keyboard could not be reached</source>
        <translation>Das Keyboard war nicht erreichbar</translation>
    </message>
    <message>
        <source>A send is still running</source>
        <translation>Es wird noch gesendet</translation>
    </message>
    <message>
        <source>The transfer could not be started</source>
        <translation>Die Übertragung konnte nicht begonnen werden</translation>
    </message>
    <message>
        <source>The transfer was cancelled</source>
        <translation>Die Übertragung wurde abgebrochen</translation>
    </message>
    <message>
        <source>The controller holds what was sent</source>
        <translation>Der Controller enthält, was gesendet wurde</translation>
    </message>
    <message>
        <source>The controller holds what you see</source>
        <translation>Der Controller enthält, was Sie sehen</translation>
    </message>
    <message>
        <source>Settings that differ: {}</source>
        <translation>Abweichende Einstellungen: {}</translation>
    </message>
    <message>
        <source>The controller does not hold what was sent; settings that differ: {}</source>
        <translation>Der Controller enthält nicht, was gesendet wurde; abweichende Einstellungen: {}</translation>
    </message>
    <message>
        <source>{0}: {1}</source>
        <translation>{0}: {1}</translation>
    </message>
    <message>
        <source>The keyboard holds values above 127, which scenes cannot hold; read as 0 instead: {}</source>
        <translation>Das Keyboard enthält Werte über 127, die in Szenen nicht vorkommen; stattdessen als 0 gelesen: {}</translation>
    </message>
    <message>
        <source>The send that was begun at {0} did not end: {1} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>Das Senden, das um {0} begann, kam nicht zum Ende: {1} von 4 Szenen wurden gesendet, und das Keyboard enthält vielleicht einen Teil jeder der beiden Bänke</translation>
    </message>
    <message>
        <source>The send of {0} that was begun at {1} did not end: {2} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>Das Senden von {0}, das um {1} begann, kam nicht zum Ende: {2} von 4 Szenen wurden gesendet, und das Keyboard enthält vielleicht einen Teil jeder der beiden Bänke</translation>
    </message>
</context>
<context>
    <name>scenewright::PadColours</name>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 Farbe</translation>
    </message>
    <message>
        <source>&amp;Other Colour...</source>
        <translation>&amp;Andere Farbe...</translation>
    </message>
    <message>
        <source>Colour of the Pad</source>
        <translation>Farbe des Pads</translation>
    </message>
</context>
<context>
    <name>scenewright::Picture</name>
    <message>
        <source>CC</source>
        <translation>CC</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>CC#
%s</source>
        <translation>CC#
%s</translation>
    </message>
    <message>
        <source>Note
%s</source>
        <translation>Note
%s</translation>
    </message>
    <message>
        <source>L/L
%s</source>
        <translation>U/L
%s</translation>
    </message>
    <message>
        <source>U/R
%s</source>
        <translation>O/R
%s</translation>
    </message>
    <message>
        <source>OFF
%s</source>
        <translation>AUS
%s</translation>
    </message>
    <message>
        <source>ON
%s</source>
        <translation>EIN
%s</translation>
    </message>
</context>
<context>
    <name>scenewright::PlayBar</name>
    <message>
        <source>&amp;Play This Scene Here</source>
        <translation>Diese Szene &amp;hier spielen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Spielen</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Spielen</translation>
    </message>
    <message>
        <source>Stop Playing</source>
        <translation>Spielen beenden</translation>
    </message>
    <message>
        <source>The scene cannot be played: %1</source>
        <translation>Die Szene kann nicht gespielt werden: %1</translation>
    </message>
    <message>
        <source>Playing scene %1: connect a program to the port %2</source>
        <translation>Szene %1 wird gespielt: ein Programm mit dem Port %2 verbinden</translation>
    </message>
    <message>
        <source>Playing scene %1 into %3, through the port %2</source>
        <translation>Szene %1 wird in %3 gespielt, über den Port %2</translation>
    </message>
    <message>
        <source>Playing scene %1 as the virtual controller holds it</source>
        <translation>Szene %1 wird gespielt, wie der virtuelle Controller sie enthält</translation>
    </message>
    <message>
        <source>Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   −, =: knob or slider</source>
        <translation>Reihen ab A und W: Tasten, Oktave %1 (Y, X)   1–8: Pads   Anschlag %2 (C, V)   ß, ´: Regler</translation>
    </message>
</context>
<context>
    <name>scenewright::RenameDialog</name>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Rename Scene</source>
        <translation>Szene umbenennen</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>%1 of %2 bytes</source>
        <translation>%1 von %2 Bytes</translation>
    </message>
</context>
<context>
    <name>scenewright::SafeSending</name>
    <message>
        <source>Read the Keyboard &amp;Before a Send</source>
        <translation>Vor dem Senden das &amp;Keyboard lesen</translation>
    </message>
    <message>
        <source>Send Scenes</source>
        <translation>Szenen senden</translation>
    </message>
    <message>
        <source>These are not your keyboard&apos;s scenes</source>
        <translation>Das sind nicht die Szenen Ihres Keyboards</translation>
    </message>
    <message>
        <source>The window shows the scenes that it starts with, and the keyboard may hold others. A send replaces all four of them.</source>
        <translation>Das Fenster zeigt die Szenen, mit denen es startet, und das Keyboard enthält vielleicht andere. Das Senden ersetzt alle vier.</translation>
    </message>
    <message>
        <source>&amp;Read First</source>
        <translation>Zuerst &amp;lesen</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be read</source>
        <translation>Was das Keyboard enthält, konnte nicht gelesen werden</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be kept</source>
        <translation>Was das Keyboard enthält, konnte nicht aufbewahrt werden</translation>
    </message>
    <message>
        <source>&amp;Send Anyway</source>
        <translation>Trotzdem &amp;senden</translation>
    </message>
    <message>
        <source>The keyboard held other scenes; they are kept</source>
        <translation>Das Keyboard enthielt andere Szenen; sie sind aufbewahrt</translation>
    </message>
    <message>
        <source>Put Them Back</source>
        <translation>Zurückspielen</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Erneut senden</translation>
    </message>
    <message>
        <source>Bring Back What Was There</source>
        <translation>Vorherigen Inhalt zurückspielen</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Frühere Szenen zurückgeholt</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneChanges</name>
    <message>
        <source>CC</source>
        <translation>CC</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Scene {}</source>
        <translation>Szene {}</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Szenen</translation>
    </message>
    <message>
        <source>{0} {1}</source>
        <translation>{0} {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneChecks</name>
    <message>
        <source>What may not be meant in these scenes</source>
        <translation>Was in diesen Szenen vielleicht nicht gemeint ist</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Szene %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>To Check</source>
        <translation>Zu prüfen</translation>
    </message>
    <message>
        <source>%1 to check</source>
        <translation>%1 zu prüfen</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneCommands</name>
    <message>
        <source>&amp;Scene</source>
        <translation>&amp;Szene</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Szene</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>&amp;Copy To</source>
        <translation>&amp;Kopieren nach</translation>
    </message>
    <message>
        <source>S&amp;wap With</source>
        <translation>&amp;Tauschen mit</translation>
    </message>
    <message>
        <source>R&amp;eset Scene</source>
        <translation>Szene &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;%1  %2</source>
        <translation>&amp;%1  %2</translation>
    </message>
    <message>
        <source>Rename Scene %1</source>
        <translation>Szene %1 umbenennen</translation>
    </message>
    <message>
        <source>Copy Scene %1 to %2</source>
        <translation>Szene %1 nach %2 kopieren</translation>
    </message>
    <message>
        <source>Swap Scenes %1 and %2</source>
        <translation>Szenen %1 und %2 tauschen</translation>
    </message>
    <message>
        <source>Reset Scene %1</source>
        <translation>Szene %1 zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Duplicate From File...</source>
        <translation>Aus &amp;Datei übernehmen...</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneSheet</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1, Kanal %2</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>Sendet</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Szene %1: %2</translation>
    </message>
    <message>
        <source>%1: the printer takes no sheet</source>
        <translation>%1: Der Drucker nimmt kein Blatt an</translation>
    </message>
</context>
<context>
    <name>scenewright::ScenesKeeper</name>
    <message>
        <source>d MMMM yyyy, hh:mm</source>
        <translation>d. MMMM yyyy, hh:mm</translation>
    </message>
    <message>
        <source>The scenes edited on %1 were neither sent nor saved</source>
        <translation>Die am %1 bearbeiteten Szenen wurden weder gesendet noch gespeichert</translation>
    </message>
    <message>
        <source>The scenes of %1, edited on %2, were neither sent nor saved</source>
        <translation>Die Szenen von %1, bearbeitet am %2, wurden weder gesendet noch gespeichert</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Zurückholen</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Verwerfen</translation>
    </message>
</context>
<context>
    <name>scenewright::Sequencer</name>
    <message>
        <source>there is no sequencer of ALSA&apos;s on this system ({}); as root, modprobe snd-seq loads it</source>
        <translation>auf diesem System gibt es keinen Sequenzer von ALSA ({}); als root lädt ihn modprobe snd-seq</translation>
    </message>
    <message>
        <source>you have no permission to use {}; sit at the machine, or be a member of the group audio</source>
        <translation>die Berechtigung für {} fehlt; an der Maschine selbst anmelden oder Mitglied der Gruppe audio sein</translation>
    </message>
    <message>
        <source>cannot use ALSA&apos;s sequencer ({}): {}</source>
        <translation>der Sequenzer von ALSA ({}) ist nicht benutzbar: {}</translation>
    </message>
    <message>
        <source>another program has the MIDI port {}:{} for itself; end that program first</source>
        <translation>ein anderes Programm hat den MIDI-Port {}:{} für sich allein; zuerst jenes Programm beenden</translation>
    </message>
    <message>
        <source>cannot connect {}:{} to {}:{}: {}</source>
        <translation>{}:{} lässt sich nicht mit {}:{} verbinden: {}</translation>
    </message>
    <message>
        <source>what is played does not reach a program that is connected: {}</source>
        <translation>was gespielt wird, erreicht ein verbundenes Programm nicht: {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Setting</name>
    <message>
        <source>Global MIDI channel</source>
        <translation>Globaler MIDI-Kanal</translation>
    </message>
    <message>
        <source>Keyboard MIDI channel</source>
        <translation>MIDI-Kanal der Tastatur</translation>
    </message>
    <message>
        <source>Pitch-bend speed</source>
        <translation>Pitch-Bend-Tempo</translation>
    </message>
    <message>
        <source>Octave transposition</source>
        <translation>Oktavtransposition</translation>
    </message>
    <message>
        <source>Key velocity curve</source>
        <translation>Tasten-Anschlagkurve</translation>
    </message>
    <message>
        <source>Key constant velocity</source>
        <translation>Feste Tastendynamik</translation>
    </message>
    <message>
        <source>Pad velocity curve</source>
        <translation>Pad-Anschlagkurve</translation>
    </message>
    <message>
        <source>Pad constant velocity</source>
        <translation>Feste Pad-Dynamik</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI-Kanal</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Aktiviert</translation>
    </message>
    <message>
        <source>CC number</source>
        <translation>CC-Nummer</translation>
    </message>
    <message>
        <source>Right value</source>
        <translation>Wert rechts</translation>
    </message>
    <message>
        <source>Left value</source>
        <translation>Wert links</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>Oberer Wert</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>Unterer Wert</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>CC or note number</source>
        <translation>CC- oder Notennummer</translation>
    </message>
    <message>
        <source>On value</source>
        <translation>Ein-Wert</translation>
    </message>
    <message>
        <source>Off value</source>
        <translation>Aus-Wert</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Verhalten</translation>
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
</context>
<context>
    <name>scenewright::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Transfer in progress</source>
        <translation>Übertragung läuft</translation>
    </message>
</context>
<context>
    <name>scenewright::StripPlace</name>
    <message>
        <source>Below the picture</source>
        <translation>Unter dem Bild</translation>
    </message>
</context>
<context>
    <name>scenewright::Try</name>
    <message>
        <source>note {}</source>
        <translation>Note {}</translation>
    </message>
    <message>
        <source>{0}, ch {1}</source>
        <translation>{0}, K. {1}</translation>
    </message>
    <message>
        <source>sent {0}, expected {1}</source>
        <translation>sendete {0}, erwartet war {1}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>sendet nichts: ausgeschaltet</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>sendet möglicherweise nichts: die Transposition verschiebt die Note aus dem Bereich</translation>
    </message>
    <message>
        <source>sends nothing: it has a value that its list has not</source>
        <translation>sendet nichts: ein Wert fehlt in seiner Liste</translation>
    </message>
    <message>
        <source>{} right</source>
        <translation>{} richtig</translation>
    </message>
    <message>
        <source>{} not as assumed</source>
        <translation>{} nicht wie angenommen</translation>
    </message>
    <message>
        <source>{} wrong</source>
        <translation>{} falsch</translation>
    </message>
    <message>
        <source>{} skipped</source>
        <translation>{} übersprungen</translation>
    </message>
    <message>
        <source>{} passed over</source>
        <translation>{} ausgelassen</translation>
    </message>
    <message>
        <source>{} not tried</source>
        <translation>{} nicht probiert</translation>
    </message>
    <message>
        <source>sent {}</source>
        <translation>sendete {}</translation>
    </message>
    <message>
        <source>sent {}, not quite as is assumed</source>
        <translation>sendete {}, nicht ganz wie angenommen</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>übersprungen</translation>
    </message>
</context>
<context>
    <name>scenewright::TryStrip</name>
    <message>
        <source>Try It</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>Try &amp;It</source>
        <translation>Ausprob&amp;ieren</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>Bericht kopieren</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>What was tried</source>
        <translation>Was ausprobiert wurde</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Element</translation>
    </message>
    <message>
        <source>Expected</source>
        <translation>Erwartet</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>It is not known yet what the keyboard holds. Send or read the scenes first, and then try them</source>
        <translation>Noch ist nicht bekannt, was das Keyboard enthält. Die Szenen erst senden oder lesen und dann ausprobieren</translation>
    </message>
    <message>
        <source>Choose scene %1 on the keyboard.</source>
        <translation>Szene %1 auf dem Keyboard wählen.</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 Scene %2: %3</source>
        <translation>%1 Szene %2: %3</translation>
    </message>
    <message>
        <source>Touch %1. %2</source>
        <translation>%1 berühren. %2</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Szene %1: %2</translation>
    </message>
</context>
<context>
    <name>scenewright::UnsentButton</name>
    <message>
        <source>1 change not sent</source>
        <translation>1 Änderung nicht gesendet</translation>
    </message>
    <message>
        <source>%1 changes not sent</source>
        <translation>%1 Änderungen nicht gesendet</translation>
    </message>
    <message>
        <source>Show in what the window and the keyboard differ</source>
        <translation>Zeigen, worin sich Fenster und Keyboard unterscheiden</translation>
    </message>
</context>
<context>
    <name>scenewright::ValuePanes</name>
    <message>
        <source>Red %1, green %2, blue %3 of 255</source>
        <translation>Rot %1, Grün %2, Blau %3 von 255</translation>
    </message>
    <message>
        <source>No control is chosen. Click one on the picture or in the list, or press Return on a row of the list.</source>
        <translation>Kein Bedienelement ausgewählt. Klicken Sie eines im Bild oder in der Liste an, oder drücken Sie die Eingabetaste auf einer Zeile der Liste.</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Szenenname</translation>
    </message>
    <message>
        <source>Settings of the chosen control</source>
        <translation>Einstellungen des ausgewählten Elements</translation>
    </message>
    <message>
        <source>Mixed colour</source>
        <translation>Mischfarbe</translation>
    </message>
    <message>
        <source>fesdvhw</source>
        <extracomment>The letters marked in the menu bar and in &quot;Show&quot;, in any order.</extracomment>
        <translation>dbsgahz</translation>
    </message>
    <message>
        <source>What it sends</source>
        <translation>Was es sendet</translation>
    </message>
    <message>
        <source>The name that the keyboard holds of the scene. Scene &gt; Rename changes it.</source>
        <translation>Der Name der Szene, wie das Keyboard ihn hat. Szene &gt; Umbenennen ändert ihn.</translation>
    </message>
    <message>
        <source>The light of the pad, as the three levels mix it. A click opens a palette.</source>
        <translation>Das Licht des Pads, wie die drei Werte es mischen. Ein Klick öffnet eine Palette.</translation>
    </message>
</context>
</TS>
