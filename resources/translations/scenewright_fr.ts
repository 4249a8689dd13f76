<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>scenewright::About</name>
    <message>
        <source>About Scenewright</source>
        <translation>À propos de Scenewright</translation>
    </message>
    <message>
        <source>Scenewright %1</source>
        <translation>Scenewright %1</translation>
    </message>
    <message>
        <source>Qt %1, built with Qt %2</source>
        <translation>Qt %1, compilé avec Qt %2</translation>
    </message>
    <message>
        <source>An editor for the four scenes of a USB MIDI keyboard controller.</source>
        <translation>Un éditeur pour les quatre scènes d’un clavier-contrôleur MIDI USB.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliothèques</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Compilé avec</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>Scenewright&apos;s own licence:</source>
        <translation>La licence de Scenewright lui-même :</translation>
    </message>
</context>
<context>
    <name>scenewright::AccessInstaller</name>
    <message>
        <source>The rules are installed. If the keyboard is still not allowed, plug it in again.</source>
        <translation>Les règles sont installées. Si le clavier n’est toujours pas autorisé, rebranchez-le.</translation>
    </message>
    <message>
        <source>The rules were not installed: the question for a password was closed.</source>
        <translation>Les règles n’ont pas été installées : la demande de mot de passe a été fermée.</translation>
    </message>
    <message>
        <source>The rules were not installed: polkit did not allow it, or cannot ask for a password here. Copy Command copies a line for a terminal.</source>
        <translation>Les règles n’ont pas été installées : polkit ne l’a pas permis, ou ne peut pas demander ici de mot de passe. « Copier la commande » copie une ligne pour un terminal.</translation>
    </message>
    <message>
        <source>The rules were not installed: %1</source>
        <translation>Les règles n’ont pas été installées : %1</translation>
    </message>
</context>
<context>
    <name>scenewright::Bank</name>
    <message>
        <source>not a bank: it holds {} bytes, and a bank holds {} or is JSON</source>
        <translation>ce n’est pas une banque : elle contient {} octets, et une banque en contient {} ou est en JSON</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>un texte</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>un tableau</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>un objet</translation>
    </message>
    <message>
        <source>{} must be {}, and is {}</source>
        <translation>{} doit être {}, et c’est {}</translation>
    </message>
    <message>
        <source>it</source>
        <translation>le fichier</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>{} manque</translation>
    </message>
    <message>
        <source>{} is unknown</source>
        <translation>{} est inconnu</translation>
    </message>
    <message>
        <source>{} is one too many, as {} has {} {}</source>
        <translation>{} est de trop : {} a {} {}</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>une scène</translation>
    </message>
    <message>
        <source>{} must not stand beside a name</source>
        <translation>{} ne peut pas figurer à côté d’un nom</translation>
    </message>
    <message>
        <source>at most 12 bytes without control characters</source>
        <translation>12 octets au plus sans caractères de contrôle</translation>
    </message>
    <message>
        <source>24 hexadecimal digits</source>
        <translation>24 chiffres hexadécimaux</translation>
    </message>
    <message>
        <source>version is {}, and this program knows version {} only</source>
        <translation>version vaut {}, et ce programme ne connaît que la version {}</translation>
    </message>
    <message>
        <source>a bank</source>
        <translation>une banque</translation>
    </message>
    <message>
        <source>a whole number from 0 to 127</source>
        <translation>un nombre entier de 0 à 127</translation>
    </message>
    <message>
        <source>{0}: {1} -&gt; {2}</source>
        <translation>{0} : {1} -&gt; {2}</translation>
    </message>
    <message>
        <source>its JSON text ends too soon, in line {}</source>
        <translation>le texte JSON se termine trop tôt, à la ligne {}</translation>
    </message>
    <message>
        <source>its JSON text is wrong at line {}, column {}</source>
        <translation>le texte JSON est incorrect à la ligne {}, colonne {}</translation>
    </message>
    <message>
        <source>{} stands twice</source>
        <translation>{} figure deux fois</translation>
    </message>
    <message>
        <source>it holds more than {} values</source>
        <translation>le fichier contient plus de {} valeurs</translation>
    </message>
    <message>
        <source>it is nested deeper than {} levels</source>
        <translation>le fichier a plus de {} niveaux d’imbrication</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>le fichier dépasse {} octets</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Scene {0}, {1}</source>
        <translation>Scène {0}, {1}</translation>
    </message>
    <message>
        <source>Scene {0}, {1} {2}, {3}</source>
        <translation>Scène {0}, {1} {2}, {3}</translation>
    </message>
    <message>
        <source>a scene&apos;s name has at most {0} bytes, and &quot;{1}&quot; has {2}</source>
        <translation>Le nom d’une scène a {0} octets au plus, et « {1} » en a {2}</translation>
    </message>
    <message>
        <source>a scene&apos;s name is a text without control characters, and &quot;{}&quot; is none</source>
        <translation>Le nom d’une scène est un texte sans caractères de contrôle, et « {} » n’en est pas un</translation>
    </message>
    <message>
        <source>{} must not stand beside CR, CG and CB</source>
        <translation>{} ne doit pas figurer à côté de CR, CG et CB</translation>
    </message>
    <message>
        <source># and six hexadecimal digits</source>
        <translation># et six chiffres hexadécimaux</translation>
    </message>
</context>
<context>
    <name>scenewright::BankCommands</name>
    <message>
        <source>&amp;Open Bank...</source>
        <translation>&amp;Ouvrir une banque...</translation>
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
        <translation>&amp;Récentes</translation>
    </message>
    <message>
        <source>Recent banks</source>
        <translation>Banques récentes</translation>
    </message>
    <message>
        <source>Open S&amp;cene Into This One...</source>
        <translation>Ouvrir une s&amp;cène dans celle-ci...</translation>
    </message>
    <message>
        <source>Save &amp;This Scene...</source>
        <translation>Enregistrer ce&amp;tte scène...</translation>
    </message>
    <message>
        <source>Banks and scenes (*.json *.bank)</source>
        <translation>Banques et scènes (*.json *.bank)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 ouvert</translation>
    </message>
    <message>
        <source>Opened %1 as scene %2</source>
        <translation>%1 ouvert comme scène %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 enregistré</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>Ouvrir %1</translation>
    </message>
    <message>
        <source>&amp;Save Bank</source>
        <translation>&amp;Enregistrer la banque</translation>
    </message>
    <message>
        <source>Save Bank &amp;As...</source>
        <translation>Enregistrer la banque &amp;sous...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.bank.json *.json)</source>
        <translation>JSON, un texte à lire, comparer et modifier (*.bank.json *.json)</translation>
    </message>
    <message>
        <source>Image, the 1012 bytes as the keyboard holds them (*.bank)</source>
        <translation>Image, les 1012 octets tels que le clavier les contient (*.bank)</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.scene.json *.json)</source>
        <translation>JSON, un texte à lire, comparer et modifier (*.scene.json *.json)</translation>
    </message>
    <message>
        <source>Scenes %1</source>
        <translation>Scènes %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Scène %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Scène %1, %2</translation>
    </message>
    <message>
        <source>Open Scene</source>
        <translation>Ouvrir une scène</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Ouvrir</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>A&amp;nnuler</translation>
    </message>
    <message>
        <source>%1 holds one scene, %2. It replaces:</source>
        <translation>%1 contient une scène, %2. Elle remplace :</translation>
    </message>
    <message>
        <source>%1 holds four scenes. Open as scene %2:</source>
        <translation>%1 contient quatre scènes. Ouvrir comme scène %2 :</translation>
    </message>
    <message>
        <source>%1 files were dropped, and one can be open at a time; drop one of them</source>
        <translation>%1 fichiers ont été déposés, mais un seul peut être ouvert ; déposez-en un</translation>
    </message>
    <message>
        <source>Export S&amp;heet...</source>
        <translation>Exporter la &amp;feuille...</translation>
    </message>
    <message>
        <source>PDF, a page a scene (*.pdf)</source>
        <translation>PDF, une page par scène (*.pdf)</translation>
    </message>
    <message>
        <source>SVG, a drawing (*.svg)</source>
        <translation>SVG, un dessin (*.svg)</translation>
    </message>
    <message>
        <source>PNG, a picture (*.png)</source>
        <translation>PNG, une image (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>&amp;Imprimer...</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>Exported the sheet to %1</source>
        <translation>La feuille est dans %1</translation>
    </message>
    <message>
        <source>Printed the sheet to %1</source>
        <translation>Feuille imprimée : %1</translation>
    </message>
    <message>
        <source>Not saved: another program changed %1 meanwhile</source>
        <translation>Non enregistré : un autre programme a modifié %1 entre-temps</translation>
    </message>
    <message>
        <source>Open It</source>
        <translation>L’ouvrir</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Enregistrer quand même</translation>
    </message>
</context>
<context>
    <name>scenewright::Cause</name>
    <message>
        <source>You have no permission to use the keyboard: install the rule with &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, then plug the keyboard in again</source>
        <translation>Vous n’avez pas le droit d’utiliser le clavier : installez la règle avec &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, puis rebranchez le clavier</translation>
    </message>
    <message>
        <source>Another program is using the keyboard: close it and try again</source>
        <translation>Un autre programme utilise le clavier : fermez-le et réessayez</translation>
    </message>
    <message>
        <source>The keyboard was unplugged: plug it in and try again</source>
        <translation>Le clavier a été débranché : branchez-le et réessayez</translation>
    </message>
    <message>
        <source>The keyboard lacks the second USB interface that scenes travel on: check that it is the model that the device list names, and plug it in again</source>
        <translation>Le clavier n’a pas la seconde interface USB par laquelle passent les scènes : vérifiez qu’il s’agit du modèle indiqué dans la liste des appareils, puis rebranchez-le</translation>
    </message>
    <message>
        <source>The keyboard does not answer: unplug it, plug it in again and try again</source>
        <translation>Le clavier ne répond pas : débranchez-le, rebranchez-le et réessayez</translation>
    </message>
    <message>
        <source>The keyboard answers with longer transfers than scenes have: check that it is the model that the device list names, and plug it in again</source>
        <translation>Le clavier répond par des transferts plus longs que ceux des scènes : vérifiez qu’il s’agit du modèle indiqué dans la liste des appareils, puis rebranchez-le</translation>
    </message>
    <message>
        <source>The USB system refused to work with the keyboard ({:08x}): plug it in again, at another socket if that does not help</source>
        <translation>Le système USB a refusé de travailler avec le clavier ({:08x}) : rebranchez-le, sur une autre prise si cela ne suffit pas</translation>
    </message>
    <message>
        <source>No keyboard of the device list is plugged in: plug it in, or see what &apos;scenewright-cli devices&apos; says about yours</source>
        <translation>Aucun clavier de la liste des appareils n’est branché : branchez-le, ou voyez ce que &apos;scenewright-cli devices&apos; dit du vôtre</translation>
    </message>
    <message>
        <source>The keyboard&apos;s MIDI port did not come back: plug the keyboard in again</source>
        <translation>Le port MIDI du clavier n’est pas revenu : rebranchez le clavier</translation>
    </message>
    <message>
        <source>The system is short of memory or threads: close other programs and try again</source>
        <translation>Le système manque de mémoire ou de fils d’exécution : fermez d’autres programmes et réessayez</translation>
    </message>
    <message>
        <source>The list of keyboards, project.plist, cannot be read: mend or remove it</source>
        <translation>La liste des claviers, project.plist, ne peut pas être lue : corrigez-la ou retirez-la</translation>
    </message>
</context>
<context>
    <name>scenewright::ChangeMarks</name>
    <message>
        <source>Mark What Is Not Sent</source>
        <translation>Marquer ce qui n&apos;est pas envoyé</translation>
    </message>
</context>
<context>
    <name>scenewright::Check</name>
    <message>
        <source>all send {0} on channel {1}</source>
        <translation>envoient tous {0} sur le canal {1}</translation>
    </message>
    <message>
        <source>may all send {0} on channel {1}</source>
        <translation>envoient peut-être tous {0} sur le canal {1}</translation>
    </message>
    <message>
        <source>both ends of travel send the value {}</source>
        <translation>les deux extrémités de la course envoient la valeur {}</translation>
    </message>
    <message>
        <source>on and off send the same value {}</source>
        <translation>marche et arrêt envoient la même valeur {}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>n’envoie rien : il est désactivé</translation>
    </message>
    <message>
        <source>may send nothing: it depends on a value that its list does not have</source>
        <translation>n’envoie peut-être rien : cela dépend d’une valeur absente de sa liste</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>n’envoie peut-être rien : la transposition déplace sa note hors de la plage</translation>
    </message>
    <message>
        <source>the constant velocity is 0, which ends notes instead of beginning them</source>
        <translation>la vélocité fixe est 0, ce qui termine les notes au lieu de les commencer</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>rien du nom n’est visible</translation>
    </message>
</context>
<context>
    <name>scenewright::ConnectionKeeper</name>
    <message>
        <source>Programs that are connected to the keyboard&apos;s MIDI port hear nothing for a second; then they are connected again.</source>
        <translation>Les programmes connectés au port MIDI du clavier n’entendent rien pendant une seconde, puis ils sont reconnectés.</translation>
    </message>
</context>
<context>
    <name>scenewright::Control</name>
    <message>
        <source>Common</source>
        <translation>Commun</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Groupe</translation>
    </message>
    <message>
        <source>Knob</source>
        <translation>Potentiomètre</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>Curseur</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>Pad</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Touche</translation>
    </message>
    <message>
        <source>Control {}</source>
        <translation>Contrôle {}</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>inconnu</translation>
    </message>
    <message>
        <source>{}</source>
        <translation>{}</translation>
    </message>
    <message>
        <source>global channel {}</source>
        <translation>canal global {}</translation>
    </message>
    <message>
        <source>keyboard channel {}</source>
        <translation>canal du clavier {}</translation>
    </message>
    <message>
        <source>pitch-bend speed {}</source>
        <translation>vitesse de pitch bend {}</translation>
    </message>
    <message>
        <source>transposition {}</source>
        <translation>transposition {}</translation>
    </message>
    <message>
        <source>key velocity curve {}</source>
        <translation>courbe de vélocité des touches {}</translation>
    </message>
    <message>
        <source>pad velocity curve {}</source>
        <translation>courbe de vélocité des pads {}</translation>
    </message>
    <message>
        <source>channel {}</source>
        <translation>canal {}</translation>
    </message>
    <message>
        <source>CC {}</source>
        <translation>CC {}</translation>
    </message>
    <message>
        <source>left {}</source>
        <translation>gauche {}</translation>
    </message>
    <message>
        <source>right {}</source>
        <translation>droite {}</translation>
    </message>
    <message>
        <source>lower {}</source>
        <translation>bas {}</translation>
    </message>
    <message>
        <source>upper {}</source>
        <translation>haut {}</translation>
    </message>
    <message>
        <source>Note {}</source>
        <translation>Note {}</translation>
    </message>
    <message>
        <source>behaviour {}</source>
        <translation>comportement {}</translation>
    </message>
    <message>
        <source>on {}</source>
        <translation>activé {}</translation>
    </message>
    <message>
        <source>off {}</source>
        <translation>désactivé {}</translation>
    </message>
    <message>
        <source>red {}</source>
        <translation>rouge {}</translation>
    </message>
    <message>
        <source>green {}</source>
        <translation>vert {}</translation>
    </message>
    <message>
        <source>blue {}</source>
        <translation>bleu {}</translation>
    </message>
    <message>
        <source>Sends {0} on channel {1}</source>
        <translation>Envoie {0} sur le canal {1}</translation>
    </message>
    <message>
        <source>Sends nothing</source>
        <translation>N’envoie rien</translation>
    </message>
    <message>
        <source>{} Groups</source>
        <translation>{} groupes</translation>
    </message>
    <message>
        <source>{} Knobs</source>
        <translation>{} potentiomètres</translation>
    </message>
    <message>
        <source>{} Sliders</source>
        <translation>{} curseurs</translation>
    </message>
    <message>
        <source>{} Pads</source>
        <translation>{} pads</translation>
    </message>
    <message>
        <source>{} Keys</source>
        <translation>{} touches</translation>
    </message>
    <message>
        <source>{} and 1 more group</source>
        <translation>{} et 1 autre groupe</translation>
    </message>
    <message>
        <source>{0} and {1} more groups</source>
        <translation>{0} et {1} autres groupes</translation>
    </message>
    <message>
        <source>{} and 1 more knob</source>
        <translation>{} et 1 autre potentiomètre</translation>
    </message>
    <message>
        <source>{0} and {1} more knobs</source>
        <translation>{0} et {1} autres potentiomètres</translation>
    </message>
    <message>
        <source>{} and 1 more slider</source>
        <translation>{} et 1 autre curseur</translation>
    </message>
    <message>
        <source>{0} and {1} more sliders</source>
        <translation>{0} et {1} autres curseurs</translation>
    </message>
    <message>
        <source>{} and 1 more pad</source>
        <translation>{} et 1 autre pad</translation>
    </message>
    <message>
        <source>{0} and {1} more pads</source>
        <translation>{0} et {1} autres pads</translation>
    </message>
    <message>
        <source>{} and 1 more key</source>
        <translation>{} et 1 autre touche</translation>
    </message>
    <message>
        <source>{0} and {1} more keys</source>
        <translation>{0} et {1} autres touches</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlButton</name>
    <message>
        <source>%1, chosen</source>
        <translation>%1, sélectionné</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, non envoyé</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlCommands</name>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Édition</translation>
    </message>
    <message>
        <source>&amp;Copy Control</source>
        <translation>&amp;Copier le contrôle</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste Control</source>
        <translation>Co&amp;ller le contrôle</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Reset Control</source>
        <translation>&amp;Réinitialiser le contrôle</translation>
    </message>
    <message>
        <source>Ctrl+Backspace</source>
        <translation>Ctrl+Backspace</translation>
    </message>
    <message>
        <source>Paste Into %1</source>
        <translation>Coller dans %1</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>Réinitialiser %1</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>Copié : %1</translation>
    </message>
    <message>
        <source>%1 has its default settings</source>
        <translation>%1 a ses réglages par défaut</translation>
    </message>
    <message>
        <source>&amp;Copy Scene Settings</source>
        <translation>&amp;Copier les réglages de scène</translation>
    </message>
    <message>
        <source>&amp;Paste Scene Settings</source>
        <translation>Co&amp;ller les réglages de scène</translation>
    </message>
    <message>
        <source>&amp;Reset Scene Settings</source>
        <translation>&amp;Réinitialiser les réglages de scène</translation>
    </message>
    <message>
        <source>Select &amp;All of This Kind</source>
        <translation>&amp;Sélectionner tous ceux de ce type</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>&amp;Fill...</source>
        <translation>Re&amp;mplir...</translation>
    </message>
    <message>
        <source>&amp;Transpose...</source>
        <translation>&amp;Transposer...</translation>
    </message>
    <message>
        <source>%1 have their default settings</source>
        <translation>%1 ont leurs réglages par défaut</translation>
    </message>
    <message>
        <source>&amp;Paste Into Controls</source>
        <translation>Co&amp;ller dans les contrôles</translation>
    </message>
    <message>
        <source>&amp;Reset Controls</source>
        <translation>&amp;Réinitialiser les contrôles</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>Remplir %1</translation>
    </message>
    <message>
        <source>Transpose %1</source>
        <translation>Transposer %1</translation>
    </message>
</context>
<context>
    <name>scenewright::DevicePicture</name>
    <message>
        <source>Band around controls</source>
        <translation>Cadre autour des contrôles</translation>
    </message>
</context>
<context>
    <name>scenewright::DeviceVerification</name>
    <message>
        <source>&amp;Compare With Device</source>
        <translation>&amp;Comparer avec l’appareil</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Send And &amp;Verify</source>
        <translation>Envoyer et &amp;vérifier</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Return</source>
        <translation>Ctrl+Shift+Return</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>Comparer à nouveau</translation>
    </message>
    <message>
        <source>Bring Back Earlier Scenes</source>
        <translation>Rétablir les scènes précédentes</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Envoyer à nouveau</translation>
    </message>
</context>
<context>
    <name>scenewright::DifferenceDialog</name>
    <message>
        <source>Differences</source>
        <translation>Différences</translation>
    </message>
    <message>
        <source>One setting of the controller is not what you see.</source>
        <translation>Un réglage du contrôleur diffère de ce que vous voyez.</translation>
    </message>
    <message>
        <source>%1 settings of the controller are not what you see.</source>
        <translation>%1 réglages du contrôleur diffèrent de ce que vous voyez.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Scène %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Scène %1, %2</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Nom de la scène</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Réglage</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Clavier</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenêtre</translation>
    </message>
    <message>
        <source>Taking changes the window alone. A send transmits the four scenes whole.</source>
        <translation>Reprendre ne change que la fenêtre. Un envoi transmet les quatre scènes entières.</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>&amp;Take the Keyboard&apos;s</source>
        <translation>&amp;Reprendre du clavier</translation>
    </message>
    <message>
        <source>Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected</source>
        <translation>Met dans la fenêtre ce que contient le clavier : les lignes choisies, ou toutes si aucune ne l’est</translation>
    </message>
    <message>
        <source>&amp;Send These</source>
        <translation>&amp;Envoyer celles-ci</translation>
    </message>
    <message>
        <source>Sends the four scenes of the window, whole</source>
        <translation>Envoie entières les quatre scènes de la fenêtre</translation>
    </message>
    <message>
        <source>Cop&amp;y as Text</source>
        <translation>&amp;Copier en texte</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all</source>
        <translation>Copie les lignes choisies, ou toutes</translation>
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
        <translation>avant une lecture</translation>
    </message>
    <message>
        <source>on the keyboard before a send</source>
        <translation>sur le clavier avant un envoi</translation>
    </message>
    <message>
        <source>on the keyboard before the send of {}</source>
        <translation>sur le clavier avant l’envoi de {}</translation>
    </message>
    <message>
        <source>before a file was opened</source>
        <translation>avant l’ouverture d’un fichier</translation>
    </message>
    <message>
        <source>before opening {}</source>
        <translation>avant l’ouverture de {}</translation>
    </message>
    <message>
        <source>before earlier scenes were brought back</source>
        <translation>avant le rappel de scènes précédentes</translation>
    </message>
</context>
<context>
    <name>scenewright::EarlierCommands</name>
    <message>
        <source>&amp;Earlier Scenes</source>
        <translation>Scènes &amp;précédentes</translation>
    </message>
    <message>
        <source>Earlier scenes</source>
        <translation>Scènes précédentes</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Scènes précédentes rétablies</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucune</translation>
    </message>
    <message>
        <source>d MMMM yyyy, hh:mm:ss</source>
        <translation>d MMMM yyyy, hh:mm:ss</translation>
    </message>
    <message>
        <source>Brought back the scenes of %1</source>
        <translation>Scènes du %1 rétablies</translation>
    </message>
    <message>
        <source>Bring Back Scenes</source>
        <translation>Rétablir les scènes</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>Plus anciennes</translation>
    </message>
    <message>
        <source>Brought back the edited scenes</source>
        <translation>Scènes modifiées rétablies</translation>
    </message>
</context>
<context>
    <name>scenewright::File</name>
    <message>
        <source>Cannot read {0}: {1}.</source>
        <translation>Impossible de lire {0} : {1}.</translation>
    </message>
    <message>
        <source>Cannot write {0}: {1}.</source>
        <translation>Impossible d’écrire {0} : {1}.</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>c’est un dossier</translation>
    </message>
    <message>
        <source>a file without a name</source>
        <translation>un fichier sans nom</translation>
    </message>
    <message>
        <source>it is neither a file nor a pipe</source>
        <translation>ce n’est ni un fichier ni un tube</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>le fichier dépasse {} octets</translation>
    </message>
    <message>
        <source>{} is not a folder</source>
        <translation>{} n’est pas un dossier</translation>
    </message>
    <message>
        <source>it is no ordinary file</source>
        <translation>ce n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>no name was given</source>
        <translation>aucun nom n’a été donné</translation>
    </message>
    <message>
        <source>its owner and group could not be kept</source>
        <translation>son propriétaire et son groupe ne pourraient pas être conservés</translation>
    </message>
    <message>
        <source>its access list and attributes could not be kept</source>
        <translation>sa liste d’accès et ses attributs ne pourraient pas être conservés</translation>
    </message>
    <message>
        <source>Cannot write {}: the program itself uses this file; choose another name.</source>
        <translation>Impossible d’écrire {} : le programme utilise lui-même ce fichier ; choisissez un autre nom.</translation>
    </message>
    <message>
        <source>a file system is mounted on it</source>
        <translation>un système de fichiers y est monté</translation>
    </message>
    <message>
        <source>another program keeps it locked</source>
        <translation>un autre programme le garde verrouillé</translation>
    </message>
    <message>
        <source>a file&apos;s name does not end in a slash</source>
        <translation>le nom d&apos;un fichier ne se termine pas par une barre oblique</translation>
    </message>
    <message>
        <source>The former scenes could not be kept: {}</source>
        <translation>les scènes précédentes n’ont pas pu être conservées : {}</translation>
    </message>
    <message>
        <source>{0}: the list &quot;{1}&quot; holds {2} titles, and {3} are needed</source>
        <translation>{0} : la liste « {1} » contient {2} titres, et il en faut {3}</translation>
    </message>
    <message>
        <source>{0}: the default scene holds {1} controls, and the keyboard has {2}</source>
        <translation>{0} : la scène par défaut contient {1} contrôles, et le clavier en a {2}</translation>
    </message>
    <message>
        <source>{}: it lists no keyboard</source>
        <translation>{} : aucun clavier n’y figure</translation>
    </message>
    <message>
        <source>The edited scenes could not be kept: {}</source>
        <translation>Les scènes modifiées n&apos;ont pas pu être conservées : {}</translation>
    </message>
    <message>
        <source>{}: it is not a list that a program can add to</source>
        <translation>{} : ce n’est pas une liste qu’un programme peut compléter</translation>
    </message>
    <message>
        <source>There is no home folder for a list of keyboards of your own</source>
        <translation>Il n’y a pas de dossier personnel pour une liste de claviers à vous</translation>
    </message>
    <message>
        <source>{}: the keyboard stands there now, but another list is used</source>
        <translation>{} : le clavier y figure à présent, mais une autre liste est utilisée</translation>
    </message>
    <message>
        <source>{0}: a sheet is written to a file that ends in one of {1}</source>
        <translation>{0} : une feuille s’écrit dans un fichier qui se termine par l’un de {1}</translation>
    </message>
    <message>
        <source>{}: the sheet cannot be drawn</source>
        <translation>{} : la feuille ne peut pas être dessinée</translation>
    </message>
    <message>
        <source>nobody writes to this pipe</source>
        <translation>personne n’écrit dans ce tube</translation>
    </message>
</context>
<context>
    <name>scenewright::FillDialog</name>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Controllers</source>
        <translation>Contrôleurs</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canal MIDI</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>Their notes, moved</source>
        <translation>Leurs notes, décalées</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>Re&amp;mplir</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>Remplir %1</translation>
    </message>
    <message>
        <source>Fill &amp;with</source>
        <translation>Remplir a&amp;vec</translation>
    </message>
    <message>
        <source>Fill with</source>
        <translation>Remplir avec</translation>
    </message>
    <message>
        <source>First &amp;note</source>
        <translation>Première &amp;note</translation>
    </message>
    <message>
        <source>&amp;Scale or steps</source>
        <translation>&amp;Gamme ou pas</translation>
    </message>
    <message>
        <source>A scale, or semitones from each note to the next: 2,2,1</source>
        <translation>Une gamme, ou les demi-tons d’une note à la suivante : 2,2,1</translation>
    </message>
    <message>
        <source>First &amp;controller</source>
        <translation>Premier &amp;contrôleur</translation>
    </message>
    <message>
        <source>&amp;Steps</source>
        <translation>&amp;Pas</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>&amp;Canal</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Couleurs</translation>
    </message>
    <message>
        <source>From one to another</source>
        <translation>De l’une à l’autre</translation>
    </message>
    <message>
        <source>Palette %1, in turn</source>
        <translation>Palette %1, à tour de rôle</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;De</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;Jusqu’à</translation>
    </message>
    <message>
        <source>&amp;Semitones</source>
        <translation>Demi-&amp;tons</translation>
    </message>
    <message>
        <source>Colour of Pads</source>
        <translation>Couleur des pads</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>Annu&amp;ler</translation>
    </message>
    <message>
        <source>Steps are whole numbers with commas between, as in 2,2,1</source>
        <translation>Les pas sont des nombres entiers séparés par des virgules, comme 2,2,1</translation>
    </message>
    <message>
        <source>The picture shows what comes of it.</source>
        <translation>L’image montre le résultat.</translation>
    </message>
    <message>
        <source>The first note is typed as in C2 or Db2, or as a number from 0 to 127.</source>
        <translation>La première note s’écrit comme C2 ou Db2, ou comme un nombre de 0 à 127.</translation>
    </message>
    <message>
        <source>The first controller is typed as a number from 0 to 127, or by its name, as in sustain.</source>
        <translation>Le premier contrôleur s’écrit comme un nombre de 0 à 127, ou par son nom, comme sustain.</translation>
    </message>
    <message>
        <source>%1 would be below %2, the lowest there is.</source>
        <translation>%1 serait en dessous de %2, la valeur la plus basse.</translation>
    </message>
    <message>
        <source>%1 would be above %2, the highest there is.</source>
        <translation>%1 serait au-dessus de %2, la valeur la plus haute.</translation>
    </message>
    <message>
        <source>None of them sends a note.</source>
        <translation>Aucun d’eux n’envoie de note.</translation>
    </message>
</context>
<context>
    <name>scenewright::GainWindow</name>
    <message>
        <source>Gain Panel</source>
        <translation>Panneau de gain</translation>
    </message>
    <message>
        <source>Gain %1</source>
        <translation>Gain %1</translation>
    </message>
    <message>
        <source>Value of gain %1</source>
        <translation>Valeur du gain %1</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>Par dé&amp;faut</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Appliquer</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Kept while the window is open; not sent</source>
        <translation>Gardé tant que la fenêtre est ouverte ; non envoyé</translation>
    </message>
</context>
<context>
    <name>scenewright::GuidePages</name>
    <message>
        <source>Guide</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>The guide is not among the program&apos;s resources.</source>
        <translation>Le guide n’est pas parmi les ressources du programme.</translation>
    </message>
</context>
<context>
    <name>scenewright::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Guide</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Précédent</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Suivant</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>So&amp;mmaire</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Sommaire</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>&amp;Ouvrir dans le navigateur</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>Ouvrir dans le navigateur</translation>
    </message>
    <message>
        <source>Search (%1)</source>
        <translation>Rechercher (%1)</translation>
    </message>
    <message>
        <source>Search this page</source>
        <translation>Rechercher dans cette page</translation>
    </message>
    <message>
        <source>Not on this page</source>
        <translation>Pas dans cette page</translation>
    </message>
</context>
<context>
    <name>scenewright::Help</name>
    <message>
        <source>How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity.</source>
        <translation>Comment la force d’une frappe devient une vélocité : Douce donne plus pour une frappe légère, Dure en demande une forte, et avec Fixe toute frappe donne la vélocité fixe.</translation>
    </message>
    <message>
        <source>The velocity of every stroke while the velocity curve is Constant.</source>
        <translation>La vélocité de toute frappe tant que la courbe de vélocité est Fixe.</translation>
    </message>
    <message>
        <source>Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go.</source>
        <translation>Appuyé : activé tant qu’on appuie. Bascule : activé à un appui, désactivé au suivant. Déclenché : à l’appui seulement. Relâché : quand on relâche.</translation>
    </message>
    <message>
        <source>The number of the controller that it sends, such as 7 for the volume.</source>
        <translation>Le numéro du contrôleur qu’il envoie, comme 7 pour le volume.</translation>
    </message>
    <message>
        <source>The channel of everything in this scene whose own channel is Global.</source>
        <translation>Le canal de tout ce qui, dans cette scène, a Global pour canal.</translation>
    </message>
    <message>
        <source>The channel that the keys send on. Global stands for the global MIDI channel.</source>
        <translation>Le canal sur lequel envoient les touches. Global désigne le canal MIDI global.</translation>
    </message>
    <message>
        <source>How fast pitch bend follows, as a number from 0 to 127.</source>
        <translation>À quelle vitesse suit le pitch bend, en nombre de 0 à 127.</translation>
    </message>
    <message>
        <source>Moves the notes of the keys up or down by whole octaves.</source>
        <translation>Monte ou descend les notes des touches d’octaves entières.</translation>
    </message>
    <message>
        <source>What it sends: nothing (Off), a controller (CC) or a note (Note).</source>
        <translation>Ce qu’il envoie : rien (Désactivé), un contrôleur (CC) ou une note (Note).</translation>
    </message>
    <message>
        <source>The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37.</source>
        <translation>Le contrôleur ou la note qu’il envoie. Une note se tape par son nom ou son numéro : Db2, C#2 ou 37.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched on.</source>
        <translation>La valeur du contrôleur quand il est activé.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched off.</source>
        <translation>La valeur du contrôleur quand il est désactivé.</translation>
    </message>
    <message>
        <source>The channel of the knob and the slider of this number. Global stands for the global MIDI channel.</source>
        <translation>Le canal du potentiomètre et du curseur de ce numéro. Global désigne le canal MIDI global.</translation>
    </message>
    <message>
        <source>The channel that it sends on. Global stands for the global MIDI channel.</source>
        <translation>Le canal sur lequel il envoie. Global désigne le canal MIDI global.</translation>
    </message>
    <message>
        <source>Off: it sends nothing when it is moved.</source>
        <translation>Désactivé : il n’envoie rien quand on le bouge.</translation>
    </message>
    <message>
        <source>The value at the right end. With a smaller one here than on the left, the knob works backwards.</source>
        <translation>La valeur au bout à droite. Plus petite que celle de gauche, elle inverse le potentiomètre.</translation>
    </message>
    <message>
        <source>The value at the upper end. With a smaller one here than below, the slider works backwards.</source>
        <translation>La valeur au bout en haut. Plus petite que celle du bas, elle inverse le curseur.</translation>
    </message>
    <message>
        <source>The value at the left end.</source>
        <translation>La valeur au bout à gauche.</translation>
    </message>
    <message>
        <source>The value at the lower end.</source>
        <translation>La valeur au bout en bas.</translation>
    </message>
    <message>
        <source>How much red is in the light, from 0 to 127.</source>
        <translation>La part de rouge dans la lumière, de 0 à 127.</translation>
    </message>
    <message>
        <source>How much green is in the light, from 0 to 127.</source>
        <translation>La part de vert dans la lumière, de 0 à 127.</translation>
    </message>
    <message>
        <source>How much blue is in the light, from 0 to 127.</source>
        <translation>La part de bleu dans la lumière, de 0 à 127.</translation>
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
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler : %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>Réta&amp;blir</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>Réta&amp;blir : %1</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lire</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardCommands</name>
    <message>
        <source>&amp;Keyboards...</source>
        <translation>Clavie&amp;rs...</translation>
    </message>
    <message>
        <source>Which keyboard to use</source>
        <translation>Quel clavier utiliser</translation>
    </message>
    <message>
        <source>Choose a Keyboard</source>
        <translation>Choisir un clavier</translation>
    </message>
    <message>
        <source>Copied. Paste it into a terminal, then plug the keyboard in again.</source>
        <translation>Copiée. Collez-la dans un terminal, puis rebranchez le clavier.</translation>
    </message>
    <message>
        <source>Waiting for an administrator&apos;s password...</source>
        <translation>En attente du mot de passe d’un administrateur...</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardInput</name>
    <message>
        <source>The keyboard&apos;s port cannot be listened to: %1</source>
        <translation>Le port du clavier ne peut pas être écouté : %1</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardWatch</name>
    <message>
        <source>Keyboard</source>
        <translation>Clavier</translation>
    </message>
    <message>
        <source>Virtual controller</source>
        <translation>Contrôleur virtuel</translation>
    </message>
    <message>
        <source>No keyboard plugged in</source>
        <translation>Aucun clavier branché</translation>
    </message>
    <message>
        <source>Keyboard plugged in, but you have no permission to use it</source>
        <translation>Clavier branché, mais vous n’avez pas le droit de l’utiliser</translation>
    </message>
    <message>
        <source>Keyboard in use by another program</source>
        <translation>Clavier utilisé par un autre programme</translation>
    </message>
    <message>
        <source>Keyboard plugged in</source>
        <translation>Clavier branché</translation>
    </message>
    <message>
        <source>The chosen keyboard is not plugged in</source>
        <translation>Le clavier choisi n’est pas branché</translation>
    </message>
</context>
<context>
    <name>scenewright::Keyboards</name>
    <message>
        <source>{0} ({1}, serial number {2})</source>
        <translation>{0} ({1}, numéro de série {2})</translation>
    </message>
    <message>
        <source>{0}: the device is not in the list of keyboards; &apos;scenewright-cli devices --add {1}&apos; adds it</source>
        <translation>{0} : l’appareil n’est pas dans la liste des claviers ; « scenewright-cli devices --add {1} » l’y ajoute</translation>
    </message>
    <message>
        <source>There are several with the serial number {0}; name one by its port: {1}</source>
        <translation>Il y en a plusieurs avec le numéro de série {0} ; désignez-en un par son port : {1}</translation>
    </message>
    <message>
        <source>There is no keyboard {}, and no other one of the list</source>
        <translation>Il n’y a pas de clavier {}, ni aucun autre de la liste</translation>
    </message>
    <message>
        <source>There is no keyboard {0}; plugged in: {1}</source>
        <translation>Il n’y a pas de clavier {0} ; branchés : {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardsDialog</name>
    <message>
        <source>in use</source>
        <translation>utilisé</translation>
    </message>
    <message>
        <source>not in the list</source>
        <translation>absent de la liste</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>non autorisé</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>occupé</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>prêt</translation>
    </message>
    <message>
        <source>Only keyboards of the list are worked with. What you add stands in a list of your own, beside the one that came with the program. Add it only if it has the controls of the picture.</source>
        <translation>Seuls les claviers de la liste sont utilisés. Ce que vous ajoutez figure dans votre propre liste, à côté de celle du programme. Ne l’ajoutez que s’il a les contrôles de l’image.</translation>
    </message>
    <message>
        <source>This keyboard is read from and sent to.</source>
        <translation>C’est ce clavier qui est lu et auquel on envoie.</translation>
    </message>
    <message>
        <source>Keyboards</source>
        <translation>Claviers</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Numéro de série</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>&amp;Use This One</source>
        <translation>&amp;Utiliser celui-ci</translation>
    </message>
    <message>
        <source>Reads from and sends to this keyboard from now on</source>
        <translation>Lit désormais ce clavier et lui envoie</translation>
    </message>
    <message>
        <source>&amp;Allow</source>
        <translation>Au&amp;toriser</translation>
    </message>
    <message>
        <source>Installs the rules that let you use the keyboards of the list, with an administrator&apos;s password</source>
        <translation>Installe, avec le mot de passe d’un administrateur, les règles qui vous permettent d’utiliser les claviers de la liste</translation>
    </message>
    <message>
        <source>Cop&amp;y Command</source>
        <translation>&amp;Copier la commande</translation>
    </message>
    <message>
        <source>Copies the command that lets you use the keyboards of the list, for a terminal</source>
        <translation>Copie, pour un terminal, la commande qui vous permet d’utiliser les claviers de la liste</translation>
    </message>
    <message>
        <source>Add To My &amp;List</source>
        <translation>Ajouter à ma &amp;liste</translation>
    </message>
    <message>
        <source>Adds the device to your own list of keyboards</source>
        <translation>Ajoute l’appareil à votre propre liste de claviers</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>No USB MIDI device is plugged in.</source>
        <translation>Aucun appareil MIDI USB n’est branché.</translation>
    </message>
</context>
<context>
    <name>scenewright::Listening</name>
    <message>
        <source>more came than could be taken at once, and some of it is lost</source>
        <translation>il en est venu plus qu’on ne peut en prendre à la fois ; une partie est perdue</translation>
    </message>
    <message>
        <source>no MIDI port of a keyboard of the list is there; waiting for one</source>
        <translation>aucun port MIDI d’un clavier de la liste n’est là ; en attente d’un port</translation>
    </message>
    <message>
        <source>listening to {}</source>
        <translation>écoute de {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Lists</name>
    <message>
        <source>basic</source>
        <translation>basic_fr</translation>
    </message>
</context>
<context>
    <name>scenewright::MainMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Appareil</translation>
    </message>
    <message>
        <source>&amp;Read Scenes</source>
        <translation>&amp;Lire les scènes</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>&amp;Send Scenes</source>
        <translation>&amp;Envoyer les scènes</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>Affi&amp;chage</translation>
    </message>
    <message>
        <source>&amp;Gain Panel</source>
        <translation>Panneau de &amp;gain</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;ide</translation>
    </message>
    <message>
        <source>&amp;About Scenewright</source>
        <translation>À &amp;propos de Scenewright</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>Autres menus</translation>
    </message>
    <message>
        <source>Previous Control</source>
        <translation>Contrôle précédent</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Contrôle suivant</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>gamt</source>
        <extracomment>The letters marked in &quot;Gain Panel&quot;, &quot;Appearance&quot;, &quot;Monitor&quot; and &quot;Choose by Touching&quot;.</extracomment>
        <translation>grmt</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Guide</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>&amp;Qu’est-ce que c’est ?</translation>
    </message>
</context>
<context>
    <name>scenewright::MainWindow</name>
    <message>
        <source>Scenewright – Virtual controller</source>
        <translation>Scenewright – Contrôleur virtuel</translation>
    </message>
    <message>
        <source>Scenewright</source>
        <translation>Scenewright</translation>
    </message>
    <message>
        <source>The program ends when the scenes have been sent</source>
        <translation>Le programme se fermera une fois les scènes envoyées</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>Appa&amp;rence</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apparence</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Comme le &amp;système</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>S&amp;ombre</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Scène %1, %2</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Éditeur</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Contrôles</translation>
    </message>
    <message>
        <source>Picture of the keyboard</source>
        <translation>Image du clavier</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>Ligne d’état</translation>
    </message>
    <message>
        <source>Scene 1</source>
        <translation>Scène 1</translation>
    </message>
    <message>
        <source>Scene 2</source>
        <translation>Scène 2</translation>
    </message>
    <message>
        <source>Scene 3</source>
        <translation>Scène 3</translation>
    </message>
    <message>
        <source>Scene 4</source>
        <translation>Scène 4</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Scènes</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>Affic&amp;her</translation>
    </message>
    <message>
        <source>What the picture shows</source>
        <translation>Ce que montre l’image</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>Read scenes</source>
        <translation>Lire les scènes</translation>
    </message>
    <message>
        <source>Read the four scenes from the controller (%1)</source>
        <translation>Lire les quatre scènes du contrôleur (%1)</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Send scenes</source>
        <translation>Envoyer les scènes</translation>
    </message>
    <message>
        <source>Send the four scenes to the controller (%1)</source>
        <translation>Envoyer les quatre scènes au contrôleur (%1)</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, non envoyée</translation>
    </message>
    <message>
        <source>The settings of the scene as a whole, and the 45 controls. A click or Return shows the settings of one.</source>
        <translation>Les réglages de la scène entière et les 45 contrôles. Un clic ou Entrée montre les réglages de l’un d’eux.</translation>
    </message>
    <message>
        <source>The keyboard&apos;s controls in the chosen scene. A click, or Space, shows the settings of one below.</source>
        <translation>Les contrôles du clavier dans la scène choisie. Un clic ou Espace montre en dessous les réglages de l’un d’eux.</translation>
    </message>
    <message>
        <source>The four scenes. One is shown and edited at a time; a read and a send are of all four. A dot is on a scene that is not what the keyboard is known to hold.</source>
        <translation>Les quatre scènes. Une seule est montrée et modifiée à la fois ; lire et envoyer concernent les quatre. Un point marque une scène qui n’est pas celle que l’on sait dans le clavier.</translation>
    </message>
    <message>
        <source>Which setting the picture shows on each of its controls.</source>
        <translation>Quel réglage l’image montre sur chaque contrôle.</translation>
    </message>
</context>
<context>
    <name>scenewright::Message</name>
    <message>
        <source>Note off {0}, ch {1}</source>
        <translation>Note off {0}, canal {1}</translation>
    </message>
    <message>
        <source>Note on {0}, ch {1}, velocity {2}</source>
        <translation>Note on {0}, canal {1}, vélocité {2}</translation>
    </message>
    <message>
        <source>Key pressure {0}, ch {1}, value {2}</source>
        <translation>Pression de touche {0}, canal {1}, valeur {2}</translation>
    </message>
    <message>
        <source>CC {0}, ch {1}, value {2}</source>
        <translation>CC {0}, canal {1}, valeur {2}</translation>
    </message>
    <message>
        <source>Program {0}, ch {1}</source>
        <translation>Programme {0}, canal {1}</translation>
    </message>
    <message>
        <source>Pressure {0}, ch {1}</source>
        <translation>Pression {0}, canal {1}</translation>
    </message>
    <message>
        <source>Pitch bend {0}, ch {1}</source>
        <translation>Pitch bend {0}, canal {1}</translation>
    </message>
    <message>
        <source>System exclusive</source>
        <translation>Système exclusif</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Horloge</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrage</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Reprise</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Arrêt</translation>
    </message>
    <message>
        <source>Active sensing</source>
        <translation>Active sensing</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialisation</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorLines</name>
    <message>
        <source>Time</source>
        <translation>Heure</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Message</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>Envoyé par</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorStrip</name>
    <message>
        <source>Monitor</source>
        <translation>Moniteur</translation>
    </message>
    <message>
        <source>&amp;Monitor</source>
        <translation>&amp;Moniteur</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Choose by &amp;Touching</source>
        <translation>Choisir en &amp;touchant</translation>
    </message>
    <message>
        <source>What is listened to</source>
        <translation>Ce qui est écouté</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtre</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clock Too</source>
        <translation>Horloge aussi</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>What the keyboard sends</source>
        <translation>Ce que le clavier envoie</translation>
    </message>
    <message>
        <source>scene %1?</source>
        <translation>scène %1 ?</translation>
    </message>
    <message>
        <source>no control of the scenes</source>
        <translation>aucune commande des scènes</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>Masquer</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Avis</translation>
    </message>
    <message>
        <source>Dismiss the notice</source>
        <translation>Masquer l’avis</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>Détails...</translation>
    </message>
    <message>
        <source>Details of the notice</source>
        <translation>Détails de l’avis</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeDetails</name>
    <message>
        <source>Notice</source>
        <translation>Avis</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>scenewright::Outcome</name>
    <message>
        <source>default scenes are shown</source>
        <translation>ce sont des scènes par défaut qui sont affichées</translation>
    </message>
    <message>
        <source>{0} of the {1} bytes shown did not come from the keyboard</source>
        <translation>{0} des {1} octets affichés ne viennent pas du clavier</translation>
    </message>
    <message>
        <source>no file was written</source>
        <translation>aucun fichier n’a été écrit</translation>
    </message>
    <message>
        <source>there is no backup and nothing was sent</source>
        <translation>il n’y a pas de sauvegarde et rien n’a été envoyé</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>rien n’a été envoyé</translation>
    </message>
    <message>
        <source>the keyboard may hold half a bank, and sending again repairs it</source>
        <translation>le clavier contient peut-être une moitié de banque ; un nouvel envoi y remédie</translation>
    </message>
    <message>
        <source>what was sent could not be checked</source>
        <translation>ce qui a été envoyé n’a pas pu être vérifié</translation>
    </message>
    <message>
        <source>nothing was compared</source>
        <translation>rien n’a été comparé</translation>
    </message>
    <message>
        <source>it is not known what would change</source>
        <translation>on ne sait pas ce qui changerait</translation>
    </message>
    <message>
        <source>the answer was too short</source>
        <translation>la réponse était trop courte</translation>
    </message>
    <message>
        <source>the keyboard was unplugged</source>
        <translation>le clavier a été débranché</translation>
    </message>
    <message>
        <source>the keyboard refused it</source>
        <translation>le clavier l’a refusé</translation>
    </message>
    <message>
        <source>the keyboard did not answer</source>
        <translation>le clavier n’a pas répondu</translation>
    </message>
    <message>
        <source>the answer was too long</source>
        <translation>la réponse était trop longue</translation>
    </message>
    <message>
        <source>the system has no memory left</source>
        <translation>le système n’a plus de mémoire</translation>
    </message>
    <message>
        <source>the USB transfer failed</source>
        <translation>le transfert USB a échoué</translation>
    </message>
    <message>
        <source>at packet {}</source>
        <translation>au paquet {}</translation>
    </message>
    <message>
        <source>at answer {}</source>
        <translation>à la réponse {}</translation>
    </message>
    <message>
        <source>before the first byte</source>
        <translation>avant le premier octet</translation>
    </message>
    <message>
        <source>at byte {0} of {1}</source>
        <translation>à l’octet {0} sur {1}</translation>
    </message>
    <message>
        <source>The program could not go on</source>
        <translation>Le programme n’a pas pu continuer</translation>
    </message>
    <message>
        <source>{0} of {1} transfers failed, the first {2} ({3})</source>
        <translation>{0} transferts sur {1} ont échoué, le premier {2} ({3})</translation>
    </message>
    <message>
        <source>The keyboard could not be reached</source>
        <translation>Le clavier n’a pas pu être joint</translation>
    </message>
    <message>
        <source>A send is still running</source>
        <translation>Un envoi est encore en cours</translation>
    </message>
    <message>
        <source>The transfer could not be started</source>
        <translation>Le transfert n’a pas pu être lancé</translation>
    </message>
    <message>
        <source>The transfer was cancelled</source>
        <translation>Le transfert a été annulé</translation>
    </message>
    <message>
        <source>The controller holds what was sent</source>
        <translation>Le contrôleur contient ce qui a été envoyé</translation>
    </message>
    <message>
        <source>The controller holds what you see</source>
        <translation>Le contrôleur contient ce que vous voyez</translation>
    </message>
    <message>
        <source>Settings that differ: {}</source>
        <translation>Réglages différents : {}</translation>
    </message>
    <message>
        <source>The controller does not hold what was sent; settings that differ: {}</source>
        <translation>Le contrôleur ne contient pas ce qui a été envoyé ; réglages différents : {}</translation>
    </message>
    <message>
        <source>{0}: {1}</source>
        <translation>{0} : {1}</translation>
    </message>
    <message>
        <source>The keyboard holds values above 127, which scenes cannot hold; read as 0 instead: {}</source>
        <translation>Le clavier contient des valeurs supérieures à 127, impossibles dans une scène ; lues comme 0 : {}</translation>
    </message>
    <message>
        <source>The send that was begun at {0} did not end: {1} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>L’envoi commencé le {0} ne s’est pas terminé : {1} scènes sur 4 ont été envoyées, et le clavier contient peut-être une partie de chaque banque</translation>
    </message>
    <message>
        <source>The send of {0} that was begun at {1} did not end: {2} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>L’envoi de {0} commencé le {1} ne s’est pas terminé : {2} scènes sur 4 ont été envoyées, et le clavier contient peut-être une partie de chaque banque</translation>
    </message>
</context>
<context>
    <name>scenewright::PadColours</name>
    <message>
        <source>Colours</source>
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 Couleur</translation>
    </message>
    <message>
        <source>&amp;Other Colour...</source>
        <translation>&amp;Autre couleur...</translation>
    </message>
    <message>
        <source>Colour of the Pad</source>
        <translation>Couleur du pad</translation>
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
        <translation>B/G
%s</translation>
    </message>
    <message>
        <source>U/R
%s</source>
        <translation>H/D
%s</translation>
    </message>
    <message>
        <source>OFF
%s</source>
        <translation>OFF
%s</translation>
    </message>
    <message>
        <source>ON
%s</source>
        <translation>ON
%s</translation>
    </message>
</context>
<context>
    <name>scenewright::PlayBar</name>
    <message>
        <source>&amp;Play This Scene Here</source>
        <translation>&amp;Jouer cette scène ici</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Jouer</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Jeu</translation>
    </message>
    <message>
        <source>Stop Playing</source>
        <translation>Arrêter de jouer</translation>
    </message>
    <message>
        <source>The scene cannot be played: %1</source>
        <translation>La scène ne peut pas être jouée : %1</translation>
    </message>
    <message>
        <source>Playing scene %1: connect a program to the port %2</source>
        <translation>Jeu de la scène %1 : reliez un programme au port %2</translation>
    </message>
    <message>
        <source>Playing scene %1 into %3, through the port %2</source>
        <translation>Jeu de la scène %1 dans %3, par le port %2</translation>
    </message>
    <message>
        <source>Playing scene %1 as the virtual controller holds it</source>
        <translation>Jeu de la scène %1 telle que le contrôleur virtuel la contient</translation>
    </message>
    <message>
        <source>Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   −, =: knob or slider</source>
        <translation>Rangées dès Q et Z : touches, octave %1 (W, X)   1–8 : pads   vélocité %2 (C, V)   ), = : réglage</translation>
    </message>
</context>
<context>
    <name>scenewright::RenameDialog</name>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Renommer</translation>
    </message>
    <message>
        <source>Rename Scene</source>
        <translation>Renommer la scène</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Nom</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>%1 of %2 bytes</source>
        <translation>%1 octets sur %2</translation>
    </message>
</context>
<context>
    <name>scenewright::SafeSending</name>
    <message>
        <source>Read the Keyboard &amp;Before a Send</source>
        <translation>Lire le clavier &amp;avant un envoi</translation>
    </message>
    <message>
        <source>Send Scenes</source>
        <translation>Envoyer les scènes</translation>
    </message>
    <message>
        <source>These are not your keyboard&apos;s scenes</source>
        <translation>Ce ne sont pas les scènes de votre clavier</translation>
    </message>
    <message>
        <source>The window shows the scenes that it starts with, and the keyboard may hold others. A send replaces all four of them.</source>
        <translation>La fenêtre montre les scènes de son démarrage, et le clavier en contient peut-être d’autres. Un envoi remplace les quatre.</translation>
    </message>
    <message>
        <source>&amp;Read First</source>
        <translation>&amp;Lire d’abord</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be read</source>
        <translation>Le contenu du clavier n’a pas pu être lu</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be kept</source>
        <translation>Le contenu du clavier n’a pas pu être conservé</translation>
    </message>
    <message>
        <source>&amp;Send Anyway</source>
        <translation>&amp;Envoyer quand même</translation>
    </message>
    <message>
        <source>The keyboard held other scenes; they are kept</source>
        <translation>Le clavier contenait d’autres scènes ; elles sont conservées</translation>
    </message>
    <message>
        <source>Put Them Back</source>
        <translation>Les remettre</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Envoyer à nouveau</translation>
    </message>
    <message>
        <source>Bring Back What Was There</source>
        <translation>Remettre ce qui y était</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Scènes précédentes rétablies</translation>
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
        <translation>Scène {}</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Scènes</translation>
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
        <translation>Ce qui n’est peut-être pas voulu dans ces scènes</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Scène %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>To Check</source>
        <translation>À vérifier</translation>
    </message>
    <message>
        <source>%1 to check</source>
        <translation>%1 à vérifier</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneCommands</name>
    <message>
        <source>&amp;Scene</source>
        <translation>&amp;Scène</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Scène</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Renommer...</translation>
    </message>
    <message>
        <source>&amp;Copy To</source>
        <translation>&amp;Copier vers</translation>
    </message>
    <message>
        <source>S&amp;wap With</source>
        <translation>&amp;Échanger avec</translation>
    </message>
    <message>
        <source>R&amp;eset Scene</source>
        <translation>Réini&amp;tialiser la scène</translation>
    </message>
    <message>
        <source>&amp;%1  %2</source>
        <translation>&amp;%1  %2</translation>
    </message>
    <message>
        <source>Rename Scene %1</source>
        <translation>Renommer la scène %1</translation>
    </message>
    <message>
        <source>Copy Scene %1 to %2</source>
        <translation>Copier la scène %1 vers %2</translation>
    </message>
    <message>
        <source>Swap Scenes %1 and %2</source>
        <translation>Échanger les scènes %1 et %2</translation>
    </message>
    <message>
        <source>Reset Scene %1</source>
        <translation>Réinitialiser la scène %1</translation>
    </message>
    <message>
        <source>&amp;Duplicate From File...</source>
        <translation>&amp;Dupliquer depuis un fichier...</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneSheet</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1, canal %2</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>rien</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>Envoie</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Scène %1 : %2</translation>
    </message>
    <message>
        <source>%1: the printer takes no sheet</source>
        <translation>%1 : l’imprimante n’accepte aucune feuille</translation>
    </message>
</context>
<context>
    <name>scenewright::ScenesKeeper</name>
    <message>
        <source>d MMMM yyyy, hh:mm</source>
        <translation>d MMMM yyyy, hh:mm</translation>
    </message>
    <message>
        <source>The scenes edited on %1 were neither sent nor saved</source>
        <translation>Les scènes modifiées le %1 n&apos;ont été ni envoyées ni enregistrées</translation>
    </message>
    <message>
        <source>The scenes of %1, edited on %2, were neither sent nor saved</source>
        <translation>Les scènes de %1, modifiées le %2, n&apos;ont été ni envoyées ni enregistrées</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Oublier</translation>
    </message>
</context>
<context>
    <name>scenewright::Sequencer</name>
    <message>
        <source>there is no sequencer of ALSA&apos;s on this system ({}); as root, modprobe snd-seq loads it</source>
        <translation>il n’y a pas de séquenceur d’ALSA sur ce système ({}) ; en tant que root, modprobe snd-seq le charge</translation>
    </message>
    <message>
        <source>you have no permission to use {}; sit at the machine, or be a member of the group audio</source>
        <translation>vous n’avez pas le droit d’utiliser {} ; soyez devant la machine ou membre du groupe audio</translation>
    </message>
    <message>
        <source>cannot use ALSA&apos;s sequencer ({}): {}</source>
        <translation>impossible d’utiliser le séquenceur d’ALSA ({}) : {}</translation>
    </message>
    <message>
        <source>another program has the MIDI port {}:{} for itself; end that program first</source>
        <translation>un autre programme a le port MIDI {}:{} pour lui seul ; terminez d’abord ce programme</translation>
    </message>
    <message>
        <source>cannot connect {}:{} to {}:{}: {}</source>
        <translation>impossible de relier {}:{} à {}:{} : {}</translation>
    </message>
    <message>
        <source>what is played does not reach a program that is connected: {}</source>
        <translation>ce qui est joué n’atteint pas un programme relié : {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Setting</name>
    <message>
        <source>Global MIDI channel</source>
        <translation>Canal MIDI global</translation>
    </message>
    <message>
        <source>Keyboard MIDI channel</source>
        <translation>Canal MIDI du clavier</translation>
    </message>
    <message>
        <source>Pitch-bend speed</source>
        <translation>Vitesse de pitch bend</translation>
    </message>
    <message>
        <source>Octave transposition</source>
        <translation>Transposition d’octave</translation>
    </message>
    <message>
        <source>Key velocity curve</source>
        <translation>Courbe de vélocité touches</translation>
    </message>
    <message>
        <source>Key constant velocity</source>
        <translation>Vélocité fixe touches</translation>
    </message>
    <message>
        <source>Pad velocity curve</source>
        <translation>Courbe de vélocité pads</translation>
    </message>
    <message>
        <source>Pad constant velocity</source>
        <translation>Vélocité fixe pads</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canal MIDI</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Activé</translation>
    </message>
    <message>
        <source>CC number</source>
        <translation>Numéro de CC</translation>
    </message>
    <message>
        <source>Right value</source>
        <translation>Valeur à droite</translation>
    </message>
    <message>
        <source>Left value</source>
        <translation>Valeur à gauche</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>Valeur haute</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>Valeur basse</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>CC or note number</source>
        <translation>Numéro de CC ou de note</translation>
    </message>
    <message>
        <source>On value</source>
        <translation>Valeur activée</translation>
    </message>
    <message>
        <source>Off value</source>
        <translation>Valeur désactivée</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Comportement</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
</context>
<context>
    <name>scenewright::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Transfer in progress</source>
        <translation>Transfert en cours</translation>
    </message>
</context>
<context>
    <name>scenewright::StripPlace</name>
    <message>
        <source>Below the picture</source>
        <translation>Sous l&apos;image</translation>
    </message>
</context>
<context>
    <name>scenewright::Try</name>
    <message>
        <source>note {}</source>
        <translation>note {}</translation>
    </message>
    <message>
        <source>{0}, ch {1}</source>
        <translation>{0}, canal {1}</translation>
    </message>
    <message>
        <source>sent {0}, expected {1}</source>
        <translation>a envoyé {0}, attendu : {1}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>n’envoie rien : il est désactivé</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>n’envoie peut-être rien : la transposition déplace sa note hors de la plage</translation>
    </message>
    <message>
        <source>sends nothing: it has a value that its list has not</source>
        <translation>n’envoie rien : une de ses valeurs manque dans sa liste</translation>
    </message>
    <message>
        <source>{} right</source>
        <translation>{} corrects</translation>
    </message>
    <message>
        <source>{} not as assumed</source>
        <translation>{} différents du supposé</translation>
    </message>
    <message>
        <source>{} wrong</source>
        <translation>{} incorrects</translation>
    </message>
    <message>
        <source>{} skipped</source>
        <translation>{} ignorés</translation>
    </message>
    <message>
        <source>{} passed over</source>
        <translation>{} laissés de côté</translation>
    </message>
    <message>
        <source>{} not tried</source>
        <translation>{} non essayés</translation>
    </message>
    <message>
        <source>sent {}</source>
        <translation>a envoyé {}</translation>
    </message>
    <message>
        <source>sent {}, not quite as is assumed</source>
        <translation>a envoyé {}, pas tout à fait comme supposé</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>ignoré</translation>
    </message>
</context>
<context>
    <name>scenewright::TryStrip</name>
    <message>
        <source>Try It</source>
        <translation>Essayer</translation>
    </message>
    <message>
        <source>Try &amp;It</source>
        <translation>Essa&amp;yer</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Passer</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>Copier le rapport</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Terminer</translation>
    </message>
    <message>
        <source>What was tried</source>
        <translation>Ce qui a été essayé</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Contrôle</translation>
    </message>
    <message>
        <source>Expected</source>
        <translation>Attendu</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
    <message>
        <source>It is not known yet what the keyboard holds. Send or read the scenes first, and then try them</source>
        <translation>On ne sait pas encore ce que contient le clavier. Envoyez ou lisez d’abord les scènes, puis essayez-les</translation>
    </message>
    <message>
        <source>Choose scene %1 on the keyboard.</source>
        <translation>Choisissez la scène %1 sur le clavier.</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1 : %2.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>%1 Scene %2: %3</source>
        <translation>%1 Scène %2 : %3</translation>
    </message>
    <message>
        <source>Touch %1. %2</source>
        <translation>Touchez %1. %2</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Scène %1 : %2</translation>
    </message>
</context>
<context>
    <name>scenewright::UnsentButton</name>
    <message>
        <source>1 change not sent</source>
        <translation>1 modification non envoyée</translation>
    </message>
    <message>
        <source>%1 changes not sent</source>
        <translation>%1 modifications non envoyées</translation>
    </message>
    <message>
        <source>Show in what the window and the keyboard differ</source>
        <translation>Montrer en quoi la fenêtre et le clavier diffèrent</translation>
    </message>
</context>
<context>
    <name>scenewright::ValuePanes</name>
    <message>
        <source>Red %1, green %2, blue %3 of 255</source>
        <translation>Rouge %1, vert %2, bleu %3 sur 255</translation>
    </message>
    <message>
        <source>No control is chosen. Click one on the picture or in the list, or press Return on a row of the list.</source>
        <translation>Aucun contrôle n’est sélectionné. Cliquez sur un contrôle de l’image ou de la liste, ou appuyez sur Entrée sur une ligne de la liste.</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Nom de la scène</translation>
    </message>
    <message>
        <source>Settings of the chosen control</source>
        <translation>Réglages du contrôle sélectionné</translation>
    </message>
    <message>
        <source>Mixed colour</source>
        <translation>Couleur mélangée</translation>
    </message>
    <message>
        <source>fesdvhw</source>
        <extracomment>The letters marked in the menu bar and in &quot;Show&quot;, in any order.</extracomment>
        <translation>fdsacih</translation>
    </message>
    <message>
        <source>What it sends</source>
        <translation>Ce qu’il envoie</translation>
    </message>
    <message>
        <source>The name that the keyboard holds of the scene. Scene &gt; Rename changes it.</source>
        <translation>Le nom de la scène que garde le clavier. Scène &gt; Renommer le change.</translation>
    </message>
    <message>
        <source>The light of the pad, as the three levels mix it. A click opens a palette.</source>
        <translation>La lumière du pad, telle que les trois niveaux la mélangent. Un clic ouvre une palette.</translation>
    </message>
</context>
</TS>
