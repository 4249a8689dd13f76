<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>scenewright::About</name>
    <message>
        <source>About Scenewright</source>
        <translation>Acerca de Scenewright</translation>
    </message>
    <message>
        <source>Scenewright %1</source>
        <translation>Scenewright %1</translation>
    </message>
    <message>
        <source>Qt %1, built with Qt %2</source>
        <translation>Qt %1, compilado con Qt %2</translation>
    </message>
    <message>
        <source>An editor for the four scenes of a USB MIDI keyboard controller.</source>
        <translation>Un editor para las cuatro escenas de un teclado controlador MIDI USB.</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>Bibliotecas</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>Compilado con</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Licencia</translation>
    </message>
    <message>
        <source>Scenewright&apos;s own licence:</source>
        <translation>La licencia del propio Scenewright:</translation>
    </message>
</context>
<context>
    <name>scenewright::AccessInstaller</name>
    <message>
        <source>The rules are installed. If the keyboard is still not allowed, plug it in again.</source>
        <translation>Las reglas están instaladas. Si el teclado sigue sin permiso, vuelva a conectarlo.</translation>
    </message>
    <message>
        <source>The rules were not installed: the question for a password was closed.</source>
        <translation>Las reglas no se instalaron: se cerró la pregunta por la contraseña.</translation>
    </message>
    <message>
        <source>The rules were not installed: polkit did not allow it, or cannot ask for a password here. Copy Command copies a line for a terminal.</source>
        <translation>Las reglas no se instalaron: polkit no lo ha permitido o no puede pedir aquí una contraseña. «Copiar orden» copia una línea para un terminal.</translation>
    </message>
    <message>
        <source>The rules were not installed: %1</source>
        <translation>Las reglas no se instalaron: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::Bank</name>
    <message>
        <source>not a bank: it holds {} bytes, and a bank holds {} or is JSON</source>
        <translation>no es un banco: contiene {} bytes, y un banco contiene {} o es JSON</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>un texto</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>una matriz</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>un objeto</translation>
    </message>
    <message>
        <source>{} must be {}, and is {}</source>
        <translation>{} debe ser {} y es {}</translation>
    </message>
    <message>
        <source>it</source>
        <translation>el archivo</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>falta {}</translation>
    </message>
    <message>
        <source>{} is unknown</source>
        <translation>{} es desconocido</translation>
    </message>
    <message>
        <source>{} is one too many, as {} has {} {}</source>
        <translation>{} sobra: {} tiene {} {}</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>una escena</translation>
    </message>
    <message>
        <source>{} must not stand beside a name</source>
        <translation>{} no puede estar junto a un nombre</translation>
    </message>
    <message>
        <source>at most 12 bytes without control characters</source>
        <translation>como máximo 12 bytes sin caracteres de control</translation>
    </message>
    <message>
        <source>24 hexadecimal digits</source>
        <translation>24 dígitos hexadecimales</translation>
    </message>
    <message>
        <source>version is {}, and this program knows version {} only</source>
        <translation>version es {}, y este programa solo conoce la versión {}</translation>
    </message>
    <message>
        <source>a bank</source>
        <translation>un banco</translation>
    </message>
    <message>
        <source>a whole number from 0 to 127</source>
        <translation>un número entero de 0 a 127</translation>
    </message>
    <message>
        <source>{0}: {1} -&gt; {2}</source>
        <translation>{0}: {1} -&gt; {2}</translation>
    </message>
    <message>
        <source>its JSON text ends too soon, in line {}</source>
        <translation>el texto JSON termina demasiado pronto, en la línea {}</translation>
    </message>
    <message>
        <source>its JSON text is wrong at line {}, column {}</source>
        <translation>el texto JSON es incorrecto en la línea {}, columna {}</translation>
    </message>
    <message>
        <source>{} stands twice</source>
        <translation>{} aparece dos veces</translation>
    </message>
    <message>
        <source>it holds more than {} values</source>
        <translation>el archivo contiene más de {} valores</translation>
    </message>
    <message>
        <source>it is nested deeper than {} levels</source>
        <translation>el archivo tiene más de {} niveles de anidamiento</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>el archivo tiene más de {} bytes</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Scene {0}, {1}</source>
        <translation>Escena {0}, {1}</translation>
    </message>
    <message>
        <source>Scene {0}, {1} {2}, {3}</source>
        <translation>Escena {0}, {1} {2}, {3}</translation>
    </message>
    <message>
        <source>a scene&apos;s name has at most {0} bytes, and &quot;{1}&quot; has {2}</source>
        <translation>El nombre de una escena tiene {0} bytes como máximo, y «{1}» tiene {2}</translation>
    </message>
    <message>
        <source>a scene&apos;s name is a text without control characters, and &quot;{}&quot; is none</source>
        <translation>El nombre de una escena es un texto sin caracteres de control, y «{}» no lo es</translation>
    </message>
    <message>
        <source>{} must not stand beside CR, CG and CB</source>
        <translation>{} no debe figurar junto a CR, CG y CB</translation>
    </message>
    <message>
        <source># and six hexadecimal digits</source>
        <translation># y seis dígitos hexadecimales</translation>
    </message>
</context>
<context>
    <name>scenewright::BankCommands</name>
    <message>
        <source>&amp;Open Bank...</source>
        <translation>&amp;Abrir banco...</translation>
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
        <translation>&amp;Recientes</translation>
    </message>
    <message>
        <source>Recent banks</source>
        <translation>Bancos recientes</translation>
    </message>
    <message>
        <source>Open S&amp;cene Into This One...</source>
        <translation>Abrir es&amp;cena en esta...</translation>
    </message>
    <message>
        <source>Save &amp;This Scene...</source>
        <translation>Guardar es&amp;ta escena...</translation>
    </message>
    <message>
        <source>Banks and scenes (*.json *.bank)</source>
        <translation>Bancos y escenas (*.json *.bank)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 abierto</translation>
    </message>
    <message>
        <source>Opened %1 as scene %2</source>
        <translation>%1 abierto como escena %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 guardado</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>Abrir %1</translation>
    </message>
    <message>
        <source>&amp;Save Bank</source>
        <translation>&amp;Guardar banco</translation>
    </message>
    <message>
        <source>Save Bank &amp;As...</source>
        <translation>Guardar banco co&amp;mo...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.bank.json *.json)</source>
        <translation>JSON, un texto para leer, comparar y editar (*.bank.json *.json)</translation>
    </message>
    <message>
        <source>Image, the 1012 bytes as the keyboard holds them (*.bank)</source>
        <translation>Imagen, los 1012 bytes tal como los guarda el teclado (*.bank)</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.scene.json *.json)</source>
        <translation>JSON, un texto para leer, comparar y editar (*.scene.json *.json)</translation>
    </message>
    <message>
        <source>Scenes %1</source>
        <translation>Escenas %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Escena %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Escena %1, %2</translation>
    </message>
    <message>
        <source>Open Scene</source>
        <translation>Abrir escena</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>%1 holds one scene, %2. It replaces:</source>
        <translation>%1 contiene una escena, %2. Reemplaza:</translation>
    </message>
    <message>
        <source>%1 holds four scenes. Open as scene %2:</source>
        <translation>%1 contiene cuatro escenas. Abrir como escena %2:</translation>
    </message>
    <message>
        <source>%1 files were dropped, and one can be open at a time; drop one of them</source>
        <translation>Se soltaron %1 archivos, pero solo puede haber uno abierto; suelte uno de ellos</translation>
    </message>
    <message>
        <source>Export S&amp;heet...</source>
        <translation>Exportar &amp;hoja...</translation>
    </message>
    <message>
        <source>PDF, a page a scene (*.pdf)</source>
        <translation>PDF, una página por escena (*.pdf)</translation>
    </message>
    <message>
        <source>SVG, a drawing (*.svg)</source>
        <translation>SVG, un dibujo (*.svg)</translation>
    </message>
    <message>
        <source>PNG, a picture (*.png)</source>
        <translation>PNG, una imagen (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>&amp;Imprimir...</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>Exported the sheet to %1</source>
        <translation>La hoja está en %1</translation>
    </message>
    <message>
        <source>Printed the sheet to %1</source>
        <translation>Hoja impresa: %1</translation>
    </message>
    <message>
        <source>Not saved: another program changed %1 meanwhile</source>
        <translation>No se ha guardado: entretanto otro programa ha cambiado %1</translation>
    </message>
    <message>
        <source>Open It</source>
        <translation>Abrirlo</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Guardar de todos modos</translation>
    </message>
</context>
<context>
    <name>scenewright::Cause</name>
    <message>
        <source>You have no permission to use the keyboard: install the rule with &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, then plug the keyboard in again</source>
        <translation>No tiene permiso para usar el teclado: instale la regla con &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos; y vuelva a conectar el teclado</translation>
    </message>
    <message>
        <source>Another program is using the keyboard: close it and try again</source>
        <translation>Otro programa está usando el teclado: ciérrelo e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>The keyboard was unplugged: plug it in and try again</source>
        <translation>El teclado se ha desconectado: conéctelo e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>The keyboard lacks the second USB interface that scenes travel on: check that it is the model that the device list names, and plug it in again</source>
        <translation>El teclado no tiene la segunda interfaz USB por la que viajan las escenas: compruebe que es el modelo que indica la lista de dispositivos y conéctelo de nuevo</translation>
    </message>
    <message>
        <source>The keyboard does not answer: unplug it, plug it in again and try again</source>
        <translation>El teclado no responde: desconéctelo, vuelva a conectarlo e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>The keyboard answers with longer transfers than scenes have: check that it is the model that the device list names, and plug it in again</source>
        <translation>El teclado responde con transferencias más largas que las de las escenas: compruebe que es el modelo que indica la lista de dispositivos y conéctelo de nuevo</translation>
    </message>
    <message>
        <source>The USB system refused to work with the keyboard ({:08x}): plug it in again, at another socket if that does not help</source>
        <translation>El sistema USB se negó a trabajar con el teclado ({:08x}): conéctelo de nuevo, en otro puerto si eso no ayuda</translation>
    </message>
    <message>
        <source>No keyboard of the device list is plugged in: plug it in, or see what &apos;scenewright-cli devices&apos; says about yours</source>
        <translation>No hay conectado ningún teclado de la lista de dispositivos: conéctelo o mire qué dice &apos;scenewright-cli devices&apos; del suyo</translation>
    </message>
    <message>
        <source>The keyboard&apos;s MIDI port did not come back: plug the keyboard in again</source>
        <translation>El puerto MIDI del teclado no volvió: vuelva a conectar el teclado</translation>
    </message>
    <message>
        <source>The system is short of memory or threads: close other programs and try again</source>
        <translation>Al sistema le falta memoria o hilos: cierre otros programas e inténtelo de nuevo</translation>
    </message>
    <message>
        <source>The list of keyboards, project.plist, cannot be read: mend or remove it</source>
        <translation>No se puede leer la lista de teclados, project.plist: corríjala o quítela</translation>
    </message>
</context>
<context>
    <name>scenewright::ChangeMarks</name>
    <message>
        <source>Mark What Is Not Sent</source>
        <translation>Marcar lo no enviado</translation>
    </message>
</context>
<context>
    <name>scenewright::Check</name>
    <message>
        <source>all send {0} on channel {1}</source>
        <translation>envían todos {0} por el canal {1}</translation>
    </message>
    <message>
        <source>may all send {0} on channel {1}</source>
        <translation>quizá envíen todos {0} por el canal {1}</translation>
    </message>
    <message>
        <source>both ends of travel send the value {}</source>
        <translation>ambos extremos del recorrido envían el valor {}</translation>
    </message>
    <message>
        <source>on and off send the same value {}</source>
        <translation>encendido y apagado envían el mismo valor {}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>no envía nada: está desactivado</translation>
    </message>
    <message>
        <source>may send nothing: it depends on a value that its list does not have</source>
        <translation>quizá no envíe nada: depende de un valor que no está en su lista</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>quizá no envíe nada: la transposición saca su nota del rango</translation>
    </message>
    <message>
        <source>the constant velocity is 0, which ends notes instead of beginning them</source>
        <translation>la velocidad fija es 0, que termina las notas en vez de iniciarlas</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>no se ve nada del nombre</translation>
    </message>
</context>
<context>
    <name>scenewright::ConnectionKeeper</name>
    <message>
        <source>Programs that are connected to the keyboard&apos;s MIDI port hear nothing for a second; then they are connected again.</source>
        <translation>Los programas conectados al puerto MIDI del teclado no oyen nada durante un segundo; luego vuelven a conectarse.</translation>
    </message>
</context>
<context>
    <name>scenewright::Control</name>
    <message>
        <source>Common</source>
        <translation>Común</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>Grupo</translation>
    </message>
    <message>
        <source>Knob</source>
        <translation>Potenciómetro</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>Deslizador</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>Pad</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Tecla</translation>
    </message>
    <message>
        <source>Control {}</source>
        <translation>Control {}</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>desconocido</translation>
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
        <translation>canal del teclado {}</translation>
    </message>
    <message>
        <source>pitch-bend speed {}</source>
        <translation>velocidad de pitch bend {}</translation>
    </message>
    <message>
        <source>transposition {}</source>
        <translation>transposición {}</translation>
    </message>
    <message>
        <source>key velocity curve {}</source>
        <translation>curva de velocidad de teclas {}</translation>
    </message>
    <message>
        <source>pad velocity curve {}</source>
        <translation>curva de velocidad de pads {}</translation>
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
        <translation>izquierda {}</translation>
    </message>
    <message>
        <source>right {}</source>
        <translation>derecha {}</translation>
    </message>
    <message>
        <source>lower {}</source>
        <translation>inferior {}</translation>
    </message>
    <message>
        <source>upper {}</source>
        <translation>superior {}</translation>
    </message>
    <message>
        <source>Note {}</source>
        <translation>Nota {}</translation>
    </message>
    <message>
        <source>behaviour {}</source>
        <translation>comportamiento {}</translation>
    </message>
    <message>
        <source>on {}</source>
        <translation>encendido {}</translation>
    </message>
    <message>
        <source>off {}</source>
        <translation>apagado {}</translation>
    </message>
    <message>
        <source>red {}</source>
        <translation>rojo {}</translation>
    </message>
    <message>
        <source>green {}</source>
        <translation>verde {}</translation>
    </message>
    <message>
        <source>blue {}</source>
        <translation>azul {}</translation>
    </message>
    <message>
        <source>Sends {0} on channel {1}</source>
        <translation>Envía {0} por el canal {1}</translation>
    </message>
    <message>
        <source>Sends nothing</source>
        <translation>No envía nada</translation>
    </message>
    <message>
        <source>{} Groups</source>
        <translation>{} grupos</translation>
    </message>
    <message>
        <source>{} Knobs</source>
        <translation>{} potenciómetros</translation>
    </message>
    <message>
        <source>{} Sliders</source>
        <translation>{} deslizadores</translation>
    </message>
    <message>
        <source>{} Pads</source>
        <translation>{} pads</translation>
    </message>
    <message>
        <source>{} Keys</source>
        <translation>{} teclas</translation>
    </message>
    <message>
        <source>{} and 1 more group</source>
        <translation>{} y 1 grupo más</translation>
    </message>
    <message>
        <source>{0} and {1} more groups</source>
        <translation>{0} y {1} grupos más</translation>
    </message>
    <message>
        <source>{} and 1 more knob</source>
        <translation>{} y 1 potenciómetro más</translation>
    </message>
    <message>
        <source>{0} and {1} more knobs</source>
        <translation>{0} y {1} potenciómetros más</translation>
    </message>
    <message>
        <source>{} and 1 more slider</source>
        <translation>{} y 1 deslizador más</translation>
    </message>
    <message>
        <source>{0} and {1} more sliders</source>
        <translation>{0} y {1} deslizadores más</translation>
    </message>
    <message>
        <source>{} and 1 more pad</source>
        <translation>{} y 1 pad más</translation>
    </message>
    <message>
        <source>{0} and {1} more pads</source>
        <translation>{0} y {1} pads más</translation>
    </message>
    <message>
        <source>{} and 1 more key</source>
        <translation>{} y 1 tecla más</translation>
    </message>
    <message>
        <source>{0} and {1} more keys</source>
        <translation>{0} y {1} teclas más</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlButton</name>
    <message>
        <source>%1, chosen</source>
        <translation>%1, seleccionado</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, sin enviar</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlCommands</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Editar</translation>
    </message>
    <message>
        <source>&amp;Copy Control</source>
        <translation>&amp;Copiar control</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste Control</source>
        <translation>&amp;Pegar control</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Reset Control</source>
        <translation>&amp;Restablecer control</translation>
    </message>
    <message>
        <source>Ctrl+Backspace</source>
        <translation>Ctrl+Backspace</translation>
    </message>
    <message>
        <source>Paste Into %1</source>
        <translation>Pegar en %1</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>Restablecer %1</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>Copiado: %1</translation>
    </message>
    <message>
        <source>%1 has its default settings</source>
        <translation>%1 tiene sus ajustes predeterminados</translation>
    </message>
    <message>
        <source>&amp;Copy Scene Settings</source>
        <translation>&amp;Copiar ajustes de escena</translation>
    </message>
    <message>
        <source>&amp;Paste Scene Settings</source>
        <translation>&amp;Pegar ajustes de escena</translation>
    </message>
    <message>
        <source>&amp;Reset Scene Settings</source>
        <translation>&amp;Restablecer ajustes de escena</translation>
    </message>
    <message>
        <source>Select &amp;All of This Kind</source>
        <translation>&amp;Seleccionar todos los de este tipo</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>&amp;Fill...</source>
        <translation>Re&amp;llenar...</translation>
    </message>
    <message>
        <source>&amp;Transpose...</source>
        <translation>&amp;Transportar...</translation>
    </message>
    <message>
        <source>%1 have their default settings</source>
        <translation>%1 tienen sus ajustes predeterminados</translation>
    </message>
    <message>
        <source>&amp;Paste Into Controls</source>
        <translation>&amp;Pegar en los controles</translation>
    </message>
    <message>
        <source>&amp;Reset Controls</source>
        <translation>&amp;Restablecer controles</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>Rellenar %1</translation>
    </message>
    <message>
        <source>Transpose %1</source>
        <translation>Transportar %1</translation>
    </message>
</context>
<context>
    <name>scenewright::DevicePicture</name>
    <message>
        <source>Band around controls</source>
        <translation>Marco alrededor de los controles</translation>
    </message>
</context>
<context>
    <name>scenewright::DeviceVerification</name>
    <message>
        <source>&amp;Compare With Device</source>
        <translation>&amp;Comparar con el dispositivo</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Send And &amp;Verify</source>
        <translation>Enviar y &amp;verificar</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Return</source>
        <translation>Ctrl+Shift+Return</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>Comparar de nuevo</translation>
    </message>
    <message>
        <source>Bring Back Earlier Scenes</source>
        <translation>Recuperar escenas anteriores</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Enviar de nuevo</translation>
    </message>
</context>
<context>
    <name>scenewright::DifferenceDialog</name>
    <message>
        <source>Differences</source>
        <translation>Diferencias</translation>
    </message>
    <message>
        <source>One setting of the controller is not what you see.</source>
        <translation>Un ajuste del controlador no coincide con lo que ve.</translation>
    </message>
    <message>
        <source>%1 settings of the controller are not what you see.</source>
        <translation>%1 ajustes del controlador no coinciden con lo que ve.</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Escena %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Escena %1, %2</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Nombre de la escena</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>Ajuste</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>Teclado</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Ventana</translation>
    </message>
    <message>
        <source>Taking changes the window alone. A send transmits the four scenes whole.</source>
        <translation>Tomar cambia solo la ventana. Un envío transmite las cuatro escenas enteras.</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Acciones</translation>
    </message>
    <message>
        <source>&amp;Take the Keyboard&apos;s</source>
        <translation>&amp;Tomar lo del teclado</translation>
    </message>
    <message>
        <source>Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected</source>
        <translation>Pone en la ventana lo que tiene el teclado: las filas elegidas, o todas si no hay ninguna elegida</translation>
    </message>
    <message>
        <source>&amp;Send These</source>
        <translation>&amp;Enviar estas</translation>
    </message>
    <message>
        <source>Sends the four scenes of the window, whole</source>
        <translation>Envía enteras las cuatro escenas de la ventana</translation>
    </message>
    <message>
        <source>Cop&amp;y as Text</source>
        <translation>Co&amp;piar como texto</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all</source>
        <translation>Copia las filas elegidas, o todas</translation>
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
        <translation>antes de leer</translation>
    </message>
    <message>
        <source>on the keyboard before a send</source>
        <translation>en el teclado antes de enviar</translation>
    </message>
    <message>
        <source>on the keyboard before the send of {}</source>
        <translation>en el teclado antes de enviar {}</translation>
    </message>
    <message>
        <source>before a file was opened</source>
        <translation>antes de abrir un archivo</translation>
    </message>
    <message>
        <source>before opening {}</source>
        <translation>antes de abrir {}</translation>
    </message>
    <message>
        <source>before earlier scenes were brought back</source>
        <translation>antes de recuperar escenas anteriores</translation>
    </message>
</context>
<context>
    <name>scenewright::EarlierCommands</name>
    <message>
        <source>&amp;Earlier Scenes</source>
        <translation>&amp;Escenas anteriores</translation>
    </message>
    <message>
        <source>Earlier scenes</source>
        <translation>Escenas anteriores</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Se han recuperado las escenas anteriores</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>d MMMM yyyy, hh:mm:ss</source>
        <translation>d &apos;de&apos; MMMM &apos;de&apos; yyyy, hh:mm:ss</translation>
    </message>
    <message>
        <source>Brought back the scenes of %1</source>
        <translation>Se han recuperado las escenas del %1</translation>
    </message>
    <message>
        <source>Bring Back Scenes</source>
        <translation>Recuperar escenas</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>Anteriores</translation>
    </message>
    <message>
        <source>Brought back the edited scenes</source>
        <translation>Escenas editadas recuperadas</translation>
    </message>
</context>
<context>
    <name>scenewright::File</name>
    <message>
        <source>Cannot read {0}: {1}.</source>
        <translation>No se puede leer {0}: {1}.</translation>
    </message>
    <message>
        <source>Cannot write {0}: {1}.</source>
        <translation>No se puede escribir {0}: {1}.</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>a file without a name</source>
        <translation>un archivo sin nombre</translation>
    </message>
    <message>
        <source>it is neither a file nor a pipe</source>
        <translation>no es ni un archivo ni una tubería</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>el archivo tiene más de {} bytes</translation>
    </message>
    <message>
        <source>{} is not a folder</source>
        <translation>{} no es una carpeta</translation>
    </message>
    <message>
        <source>it is no ordinary file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>no name was given</source>
        <translation>no se indicó ningún nombre</translation>
    </message>
    <message>
        <source>its owner and group could not be kept</source>
        <translation>no se podrían conservar su propietario y su grupo</translation>
    </message>
    <message>
        <source>its access list and attributes could not be kept</source>
        <translation>no se podrían conservar su lista de acceso y sus atributos</translation>
    </message>
    <message>
        <source>Cannot write {}: the program itself uses this file; choose another name.</source>
        <translation>No se puede escribir {}: el propio programa usa este archivo; elija otro nombre.</translation>
    </message>
    <message>
        <source>a file system is mounted on it</source>
        <translation>hay un sistema de archivos montado en él</translation>
    </message>
    <message>
        <source>another program keeps it locked</source>
        <translation>otro programa lo mantiene bloqueado</translation>
    </message>
    <message>
        <source>a file&apos;s name does not end in a slash</source>
        <translation>el nombre de un archivo no termina en una barra</translation>
    </message>
    <message>
        <source>The former scenes could not be kept: {}</source>
        <translation>no se pudieron conservar las escenas anteriores: {}</translation>
    </message>
    <message>
        <source>{0}: the list &quot;{1}&quot; holds {2} titles, and {3} are needed</source>
        <translation>{0}: la lista «{1}» tiene {2} títulos y hacen falta {3}</translation>
    </message>
    <message>
        <source>{0}: the default scene holds {1} controls, and the keyboard has {2}</source>
        <translation>{0}: la escena predeterminada tiene {1} controles y el teclado tiene {2}</translation>
    </message>
    <message>
        <source>{}: it lists no keyboard</source>
        <translation>{}: no incluye ningún teclado</translation>
    </message>
    <message>
        <source>The edited scenes could not be kept: {}</source>
        <translation>No se pudieron conservar las escenas editadas: {}</translation>
    </message>
    <message>
        <source>{}: it is not a list that a program can add to</source>
        <translation>{}: no es una lista que un programa pueda ampliar</translation>
    </message>
    <message>
        <source>There is no home folder for a list of keyboards of your own</source>
        <translation>No hay carpeta personal para una lista de teclados propia</translation>
    </message>
    <message>
        <source>{}: the keyboard stands there now, but another list is used</source>
        <translation>{}: el teclado ya figura ahí, pero se usa otra lista</translation>
    </message>
    <message>
        <source>{0}: a sheet is written to a file that ends in one of {1}</source>
        <translation>{0}: una hoja se escribe en un archivo que termina en uno de {1}</translation>
    </message>
    <message>
        <source>{}: the sheet cannot be drawn</source>
        <translation>{}: la hoja no se puede dibujar</translation>
    </message>
    <message>
        <source>nobody writes to this pipe</source>
        <translation>nadie escribe en esta tubería</translation>
    </message>
</context>
<context>
    <name>scenewright::FillDialog</name>
    <message>
        <source>Notes</source>
        <translation>Notas</translation>
    </message>
    <message>
        <source>Controllers</source>
        <translation>Controladores</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canal MIDI</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Colores</translation>
    </message>
    <message>
        <source>Their notes, moved</source>
        <translation>Sus notas, desplazadas</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>&amp;Rellenar</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>Rellenar %1</translation>
    </message>
    <message>
        <source>Fill &amp;with</source>
        <translation>Rellenar c&amp;on</translation>
    </message>
    <message>
        <source>Fill with</source>
        <translation>Rellenar con</translation>
    </message>
    <message>
        <source>First &amp;note</source>
        <translation>Primera &amp;nota</translation>
    </message>
    <message>
        <source>&amp;Scale or steps</source>
        <translation>E&amp;scala o pasos</translation>
    </message>
    <message>
        <source>A scale, or semitones from each note to the next: 2,2,1</source>
        <translation>Una escala, o los semitonos de una nota a la siguiente: 2,2,1</translation>
    </message>
    <message>
        <source>First &amp;controller</source>
        <translation>Primer &amp;controlador</translation>
    </message>
    <message>
        <source>&amp;Steps</source>
        <translation>Pa&amp;sos</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>&amp;Canal</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Colores</translation>
    </message>
    <message>
        <source>From one to another</source>
        <translation>De uno a otro</translation>
    </message>
    <message>
        <source>Palette %1, in turn</source>
        <translation>Paleta %1, por turno</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Desde</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;Hasta</translation>
    </message>
    <message>
        <source>&amp;Semitones</source>
        <translation>&amp;Semitonos</translation>
    </message>
    <message>
        <source>Colour of Pads</source>
        <translation>Color de los pads</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>Cance&amp;lar</translation>
    </message>
    <message>
        <source>Steps are whole numbers with commas between, as in 2,2,1</source>
        <translation>Los pasos son números enteros separados por comas, como 2,2,1</translation>
    </message>
    <message>
        <source>The picture shows what comes of it.</source>
        <translation>La imagen muestra el resultado.</translation>
    </message>
    <message>
        <source>The first note is typed as in C2 or Db2, or as a number from 0 to 127.</source>
        <translation>La primera nota se escribe como C2 o Db2, o como un número de 0 a 127.</translation>
    </message>
    <message>
        <source>The first controller is typed as a number from 0 to 127, or by its name, as in sustain.</source>
        <translation>El primer controlador se escribe como un número de 0 a 127, o por su nombre, como sustain.</translation>
    </message>
    <message>
        <source>%1 would be below %2, the lowest there is.</source>
        <translation>%1 quedaría por debajo de %2, el valor más bajo.</translation>
    </message>
    <message>
        <source>%1 would be above %2, the highest there is.</source>
        <translation>%1 quedaría por encima de %2, el valor más alto.</translation>
    </message>
    <message>
        <source>None of them sends a note.</source>
        <translation>Ninguno de ellos envía una nota.</translation>
    </message>
</context>
<context>
    <name>scenewright::GainWindow</name>
    <message>
        <source>Gain Panel</source>
        <translation>Panel de ganancia</translation>
    </message>
    <message>
        <source>Gain %1</source>
        <translation>Ganancia %1</translation>
    </message>
    <message>
        <source>Value of gain %1</source>
        <translation>Valor de la ganancia %1</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>Pre&amp;determinado</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>A&amp;plicar</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Aceptar</translation>
    </message>
    <message>
        <source>Kept while the window is open; not sent</source>
        <translation>Se conserva mientras la ventana esté abierta; no se envía</translation>
    </message>
</context>
<context>
    <name>scenewright::GuidePages</name>
    <message>
        <source>Guide</source>
        <translation>Guía</translation>
    </message>
    <message>
        <source>The guide is not among the program&apos;s resources.</source>
        <translation>La guía no está entre los recursos del programa.</translation>
    </message>
</context>
<context>
    <name>scenewright::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Guía</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Atrás</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>A&amp;delante</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Adelante</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Contenido</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Contenido</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>A&amp;brir en el navegador</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>Abrir en el navegador</translation>
    </message>
    <message>
        <source>Search (%1)</source>
        <translation>Buscar (%1)</translation>
    </message>
    <message>
        <source>Search this page</source>
        <translation>Buscar en esta página</translation>
    </message>
    <message>
        <source>Not on this page</source>
        <translation>No está en esta página</translation>
    </message>
</context>
<context>
    <name>scenewright::Help</name>
    <message>
        <source>How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity.</source>
        <translation>Cómo la fuerza de un golpe se convierte en velocidad: Suave da más con un golpe ligero, Dura pide uno fuerte, y con Fija todo golpe da la velocidad fija.</translation>
    </message>
    <message>
        <source>The velocity of every stroke while the velocity curve is Constant.</source>
        <translation>La velocidad de todo golpe mientras la curva de velocidad sea Fija.</translation>
    </message>
    <message>
        <source>Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go.</source>
        <translation>Pulsado: encendido mientras se mantiene. Alternado: encendido con una pulsación, apagado con la siguiente. Disparo: solo al pulsar. Al soltar: cuando se suelta.</translation>
    </message>
    <message>
        <source>The number of the controller that it sends, such as 7 for the volume.</source>
        <translation>El número del controlador que envía, como 7 para el volumen.</translation>
    </message>
    <message>
        <source>The channel of everything in this scene whose own channel is Global.</source>
        <translation>El canal de todo lo que en esta escena tiene como canal propio Global.</translation>
    </message>
    <message>
        <source>The channel that the keys send on. Global stands for the global MIDI channel.</source>
        <translation>El canal por el que envían las teclas. Global representa el canal MIDI global.</translation>
    </message>
    <message>
        <source>How fast pitch bend follows, as a number from 0 to 127.</source>
        <translation>Con qué rapidez sigue el pitch bend, como número de 0 a 127.</translation>
    </message>
    <message>
        <source>Moves the notes of the keys up or down by whole octaves.</source>
        <translation>Sube o baja las notas de las teclas octavas enteras.</translation>
    </message>
    <message>
        <source>What it sends: nothing (Off), a controller (CC) or a note (Note).</source>
        <translation>Qué envía: nada (Apagado), un controlador (CC) o una nota (Nota).</translation>
    </message>
    <message>
        <source>The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37.</source>
        <translation>El controlador o la nota que envía. Una nota se puede escribir por su nombre o su número: Db2, C#2 o 37.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched on.</source>
        <translation>El valor del controlador al encenderse.</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched off.</source>
        <translation>El valor del controlador al apagarse.</translation>
    </message>
    <message>
        <source>The channel of the knob and the slider of this number. Global stands for the global MIDI channel.</source>
        <translation>El canal del potenciómetro y del deslizador de este número. Global representa el canal MIDI global.</translation>
    </message>
    <message>
        <source>The channel that it sends on. Global stands for the global MIDI channel.</source>
        <translation>El canal por el que envía. Global representa el canal MIDI global.</translation>
    </message>
    <message>
        <source>Off: it sends nothing when it is moved.</source>
        <translation>Apagado: no envía nada al moverlo.</translation>
    </message>
    <message>
        <source>The value at the right end. With a smaller one here than on the left, the knob works backwards.</source>
        <translation>El valor en el extremo derecho. Si es menor que el izquierdo, el potenciómetro funciona al revés.</translation>
    </message>
    <message>
        <source>The value at the upper end. With a smaller one here than below, the slider works backwards.</source>
        <translation>El valor en el extremo superior. Si es menor que el inferior, el deslizador funciona al revés.</translation>
    </message>
    <message>
        <source>The value at the left end.</source>
        <translation>El valor en el extremo izquierdo.</translation>
    </message>
    <message>
        <source>The value at the lower end.</source>
        <translation>El valor en el extremo inferior.</translation>
    </message>
    <message>
        <source>How much red is in the light, from 0 to 127.</source>
        <translation>Cuánto rojo hay en la luz, de 0 a 127.</translation>
    </message>
    <message>
        <source>How much green is in the light, from 0 to 127.</source>
        <translation>Cuánto verde hay en la luz, de 0 a 127.</translation>
    </message>
    <message>
        <source>How much blue is in the light, from 0 to 127.</source>
        <translation>Cuánto azul hay en la luz, de 0 a 127.</translation>
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
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Deshacer: %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>Re&amp;hacer</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>Re&amp;hacer: %1</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Leer</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardCommands</name>
    <message>
        <source>&amp;Keyboards...</source>
        <translation>&amp;Teclados...</translation>
    </message>
    <message>
        <source>Which keyboard to use</source>
        <translation>Qué teclado se usa</translation>
    </message>
    <message>
        <source>Choose a Keyboard</source>
        <translation>Elegir un teclado</translation>
    </message>
    <message>
        <source>Copied. Paste it into a terminal, then plug the keyboard in again.</source>
        <translation>Copiada. Péguela en un terminal y vuelva a conectar el teclado.</translation>
    </message>
    <message>
        <source>Waiting for an administrator&apos;s password...</source>
        <translation>Esperando la contraseña de un administrador...</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardInput</name>
    <message>
        <source>The keyboard&apos;s port cannot be listened to: %1</source>
        <translation>No se puede escuchar el puerto del teclado: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardWatch</name>
    <message>
        <source>Keyboard</source>
        <translation>Teclado</translation>
    </message>
    <message>
        <source>Virtual controller</source>
        <translation>Controlador virtual</translation>
    </message>
    <message>
        <source>No keyboard plugged in</source>
        <translation>Ningún teclado conectado</translation>
    </message>
    <message>
        <source>Keyboard plugged in, but you have no permission to use it</source>
        <translation>Teclado conectado, pero no tiene permiso para usarlo</translation>
    </message>
    <message>
        <source>Keyboard in use by another program</source>
        <translation>Teclado en uso por otro programa</translation>
    </message>
    <message>
        <source>Keyboard plugged in</source>
        <translation>Teclado conectado</translation>
    </message>
    <message>
        <source>The chosen keyboard is not plugged in</source>
        <translation>El teclado elegido no está conectado</translation>
    </message>
</context>
<context>
    <name>scenewright::Keyboards</name>
    <message>
        <source>{0} ({1}, serial number {2})</source>
        <translation>{0} ({1}, número de serie {2})</translation>
    </message>
    <message>
        <source>{0}: the device is not in the list of keyboards; &apos;scenewright-cli devices --add {1}&apos; adds it</source>
        <translation>{0}: el dispositivo no está en la lista de teclados; «scenewright-cli devices --add {1}» lo añade</translation>
    </message>
    <message>
        <source>There are several with the serial number {0}; name one by its port: {1}</source>
        <translation>Hay varios con el número de serie {0}; nombre uno por su puerto: {1}</translation>
    </message>
    <message>
        <source>There is no keyboard {}, and no other one of the list</source>
        <translation>No hay ningún teclado {} ni ningún otro de la lista</translation>
    </message>
    <message>
        <source>There is no keyboard {0}; plugged in: {1}</source>
        <translation>No hay ningún teclado {0}; conectados: {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardsDialog</name>
    <message>
        <source>in use</source>
        <translation>en uso</translation>
    </message>
    <message>
        <source>not in the list</source>
        <translation>no está en la lista</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>no permitido</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>ocupado</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>listo</translation>
    </message>
    <message>
        <source>Only keyboards of the list are worked with. What you add stands in a list of your own, beside the one that came with the program. Add it only if it has the controls of the picture.</source>
        <translation>Solo se trabaja con teclados de la lista. Lo que añada figura en una lista propia, junto a la del programa. Añádalo solo si tiene los controles de la imagen.</translation>
    </message>
    <message>
        <source>This keyboard is read from and sent to.</source>
        <translation>Este es el teclado del que se lee y al que se envía.</translation>
    </message>
    <message>
        <source>Keyboards</source>
        <translation>Teclados</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Dispositivo</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Puerto</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Número de serie</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>Acciones</translation>
    </message>
    <message>
        <source>&amp;Use This One</source>
        <translation>&amp;Usar este</translation>
    </message>
    <message>
        <source>Reads from and sends to this keyboard from now on</source>
        <translation>Desde ahora lee de este teclado y envía a él</translation>
    </message>
    <message>
        <source>&amp;Allow</source>
        <translation>&amp;Permitir</translation>
    </message>
    <message>
        <source>Installs the rules that let you use the keyboards of the list, with an administrator&apos;s password</source>
        <translation>Instala, con la contraseña de un administrador, las reglas que le permiten usar los teclados de la lista</translation>
    </message>
    <message>
        <source>Cop&amp;y Command</source>
        <translation>C&amp;opiar orden</translation>
    </message>
    <message>
        <source>Copies the command that lets you use the keyboards of the list, for a terminal</source>
        <translation>Copia, para un terminal, la orden que le permite usar los teclados de la lista</translation>
    </message>
    <message>
        <source>Add To My &amp;List</source>
        <translation>Añadir a mi &amp;lista</translation>
    </message>
    <message>
        <source>Adds the device to your own list of keyboards</source>
        <translation>Añade el dispositivo a su propia lista de teclados</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>No USB MIDI device is plugged in.</source>
        <translation>No hay ningún dispositivo USB MIDI conectado.</translation>
    </message>
</context>
<context>
    <name>scenewright::Listening</name>
    <message>
        <source>more came than could be taken at once, and some of it is lost</source>
        <translation>llegó más de lo que cabía de una vez y una parte se ha perdido</translation>
    </message>
    <message>
        <source>no MIDI port of a keyboard of the list is there; waiting for one</source>
        <translation>no hay ningún puerto MIDI de un teclado de la lista; se espera uno</translation>
    </message>
    <message>
        <source>listening to {}</source>
        <translation>se escucha {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Lists</name>
    <message>
        <source>basic</source>
        <translation>basic_es</translation>
    </message>
</context>
<context>
    <name>scenewright::MainMenu</name>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Dispositivo</translation>
    </message>
    <message>
        <source>&amp;Read Scenes</source>
        <translation>&amp;Leer escenas</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>&amp;Send Scenes</source>
        <translation>&amp;Enviar escenas</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Gain Panel</source>
        <translation>Panel de &amp;ganancia</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>&amp;About Scenewright</source>
        <translation>&amp;Acerca de Scenewright</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>Más menús</translation>
    </message>
    <message>
        <source>Previous Control</source>
        <translation>Control anterior</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Control siguiente</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>gamt</source>
        <extracomment>The letters marked in &quot;Gain Panel&quot;, &quot;Appearance&quot;, &quot;Monitor&quot; and &quot;Choose by Touching&quot;.</extracomment>
        <translation>gpmt</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Guía</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>¿&amp;Qué es esto?</translation>
    </message>
</context>
<context>
    <name>scenewright::MainWindow</name>
    <message>
        <source>Scenewright – Virtual controller</source>
        <translation>Scenewright – Controlador virtual</translation>
    </message>
    <message>
        <source>Scenewright</source>
        <translation>Scenewright</translation>
    </message>
    <message>
        <source>The program ends when the scenes have been sent</source>
        <translation>El programa terminará cuando se hayan enviado las escenas</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>A&amp;pariencia</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Apariencia</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>Como el &amp;sistema</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Claro</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Oscuro</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>Escena %1, %2</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>Controles</translation>
    </message>
    <message>
        <source>Picture of the keyboard</source>
        <translation>Imagen del teclado</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>Línea de estado</translation>
    </message>
    <message>
        <source>Scene 1</source>
        <translation>Escena 1</translation>
    </message>
    <message>
        <source>Scene 2</source>
        <translation>Escena 2</translation>
    </message>
    <message>
        <source>Scene 3</source>
        <translation>Escena 3</translation>
    </message>
    <message>
        <source>Scene 4</source>
        <translation>Escena 4</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Escenas</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>&amp;Mostrar</translation>
    </message>
    <message>
        <source>What the picture shows</source>
        <translation>Qué muestra la imagen</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Leer</translation>
    </message>
    <message>
        <source>Read scenes</source>
        <translation>Leer escenas</translation>
    </message>
    <message>
        <source>Read the four scenes from the controller (%1)</source>
        <translation>Leer las cuatro escenas del controlador (%1)</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>Send scenes</source>
        <translation>Enviar escenas</translation>
    </message>
    <message>
        <source>Send the four scenes to the controller (%1)</source>
        <translation>Enviar las cuatro escenas al controlador (%1)</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1, sin enviar</translation>
    </message>
    <message>
        <source>The settings of the scene as a whole, and the 45 controls. A click or Return shows the settings of one.</source>
        <translation>Los ajustes de la escena en conjunto y los 45 controles. Un clic o Intro muestra los ajustes de uno.</translation>
    </message>
    <message>
        <source>The keyboard&apos;s controls in the chosen scene. A click, or Space, shows the settings of one below.</source>
        <translation>Los controles del teclado en la escena elegida. Un clic o Espacio muestra abajo los ajustes de uno.</translation>
    </message>
    <message>
        <source>The four scenes. One is shown and edited at a time; a read and a send are of all four. A dot is on a scene that is not what the keyboard is known to hold.</source>
        <translation>Las cuatro escenas. Se muestra y edita una a la vez; leer y enviar afectan a las cuatro. Un punto marca la escena que no es la que se sabe que tiene el teclado.</translation>
    </message>
    <message>
        <source>Which setting the picture shows on each of its controls.</source>
        <translation>Qué ajuste muestra la imagen en cada control.</translation>
    </message>
</context>
<context>
    <name>scenewright::Message</name>
    <message>
        <source>Note off {0}, ch {1}</source>
        <translation>Nota off {0}, canal {1}</translation>
    </message>
    <message>
        <source>Note on {0}, ch {1}, velocity {2}</source>
        <translation>Nota on {0}, canal {1}, velocidad {2}</translation>
    </message>
    <message>
        <source>Key pressure {0}, ch {1}, value {2}</source>
        <translation>Presión de tecla {0}, canal {1}, valor {2}</translation>
    </message>
    <message>
        <source>CC {0}, ch {1}, value {2}</source>
        <translation>CC {0}, canal {1}, valor {2}</translation>
    </message>
    <message>
        <source>Program {0}, ch {1}</source>
        <translation>Programa {0}, canal {1}</translation>
    </message>
    <message>
        <source>Pressure {0}, ch {1}</source>
        <translation>Presión {0}, canal {1}</translation>
    </message>
    <message>
        <source>Pitch bend {0}, ch {1}</source>
        <translation>Pitch bend {0}, canal {1}</translation>
    </message>
    <message>
        <source>System exclusive</source>
        <translation>Sistema exclusivo</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Reloj</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Inicio</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Parada</translation>
    </message>
    <message>
        <source>Active sensing</source>
        <translation>Active sensing</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorLines</name>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Mensaje</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>Enviado por</translation>
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
        <translation>Elegir al &amp;tocar</translation>
    </message>
    <message>
        <source>What is listened to</source>
        <translation>Qué se escucha</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtro</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Clock Too</source>
        <translation>También reloj</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>What the keyboard sends</source>
        <translation>Lo que envía el teclado</translation>
    </message>
    <message>
        <source>scene %1?</source>
        <translation>¿escena %1?</translation>
    </message>
    <message>
        <source>no control of the scenes</source>
        <translation>ningún control de las escenas</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Dismiss the notice</source>
        <translation>Descartar el aviso</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>Detalles...</translation>
    </message>
    <message>
        <source>Details of the notice</source>
        <translation>Detalles del aviso</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeDetails</name>
    <message>
        <source>Notice</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>scenewright::Outcome</name>
    <message>
        <source>default scenes are shown</source>
        <translation>se muestran escenas predeterminadas</translation>
    </message>
    <message>
        <source>{0} of the {1} bytes shown did not come from the keyboard</source>
        <translation>{0} de los {1} bytes mostrados no vinieron del teclado</translation>
    </message>
    <message>
        <source>no file was written</source>
        <translation>no se escribió ningún archivo</translation>
    </message>
    <message>
        <source>there is no backup and nothing was sent</source>
        <translation>no hay copia de seguridad y no se envió nada</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>no se envió nada</translation>
    </message>
    <message>
        <source>the keyboard may hold half a bank, and sending again repairs it</source>
        <translation>es posible que el teclado contenga solo medio banco; volver a enviar lo corrige</translation>
    </message>
    <message>
        <source>what was sent could not be checked</source>
        <translation>no se pudo comprobar lo enviado</translation>
    </message>
    <message>
        <source>nothing was compared</source>
        <translation>no se comparó nada</translation>
    </message>
    <message>
        <source>it is not known what would change</source>
        <translation>no se sabe qué cambiaría</translation>
    </message>
    <message>
        <source>the answer was too short</source>
        <translation>la respuesta era demasiado corta</translation>
    </message>
    <message>
        <source>the keyboard was unplugged</source>
        <translation>se desconectó el teclado</translation>
    </message>
    <message>
        <source>the keyboard refused it</source>
        <translation>el teclado la rechazó</translation>
    </message>
    <message>
        <source>the keyboard did not answer</source>
        <translation>el teclado no respondió</translation>
    </message>
    <message>
        <source>the answer was too long</source>
        <translation>la respuesta era demasiado larga</translation>
    </message>
    <message>
        <source>the system has no memory left</source>
        <translation>al sistema no le queda memoria</translation>
    </message>
    <message>
        <source>the USB transfer failed</source>
        <translation>la transferencia USB falló</translation>
    </message>
    <message>
        <source>at packet {}</source>
        <translation>en el paquete {}</translation>
    </message>
    <message>
        <source>at answer {}</source>
        <translation>en la respuesta {}</translation>
    </message>
    <message>
        <source>before the first byte</source>
        <translation>antes del primer byte</translation>
    </message>
    <message>
        <source>at byte {0} of {1}</source>
        <translation>en el byte {0} de {1}</translation>
    </message>
    <message>
        <source>The program could not go on</source>
        <translation>El programa no pudo continuar</translation>
    </message>
    <message>
        <source>{0} of {1} transfers failed, the first {2} ({3})</source>
        <translation>Fallaron {0} de {1} transferencias, la primera {2} ({3})</translation>
    </message>
    <message>
        <source>The keyboard could not be reached</source>
        <translation>No se pudo acceder al teclado</translation>
    </message>
    <message>
        <source>A send is still running</source>
        <translation>Todavía hay un envío en curso</translation>
    </message>
    <message>
        <source>The transfer could not be started</source>
        <translation>No se pudo iniciar la transferencia</translation>
    </message>
    <message>
        <source>The transfer was cancelled</source>
        <translation>Se canceló la transferencia</translation>
    </message>
    <message>
        <source>The controller holds what was sent</source>
        <translation>El controlador contiene lo que se envió</translation>
    </message>
    <message>
        <source>The controller holds what you see</source>
        <translation>El controlador contiene lo que ve</translation>
    </message>
    <message>
        <source>Settings that differ: {}</source>
        <translation>Ajustes que difieren: {}</translation>
    </message>
    <message>
        <source>The controller does not hold what was sent; settings that differ: {}</source>
        <translation>El controlador no contiene lo que se envió; ajustes que difieren: {}</translation>
    </message>
    <message>
        <source>{0}: {1}</source>
        <translation>{0}: {1}</translation>
    </message>
    <message>
        <source>The keyboard holds values above 127, which scenes cannot hold; read as 0 instead: {}</source>
        <translation>El teclado contiene valores superiores a 127, que no caben en las escenas; leídos como 0: {}</translation>
    </message>
    <message>
        <source>The send that was begun at {0} did not end: {1} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>El envío que empezó el {0} no terminó: se enviaron {1} de 4 escenas, y el teclado puede contener una parte de cada banco</translation>
    </message>
    <message>
        <source>The send of {0} that was begun at {1} did not end: {2} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>El envío de {0} que empezó el {1} no terminó: se enviaron {2} de 4 escenas, y el teclado puede contener una parte de cada banco</translation>
    </message>
</context>
<context>
    <name>scenewright::PadColours</name>
    <message>
        <source>Colours</source>
        <translation>Colores</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 Color</translation>
    </message>
    <message>
        <source>&amp;Other Colour...</source>
        <translation>&amp;Otro color...</translation>
    </message>
    <message>
        <source>Colour of the Pad</source>
        <translation>Color del pad</translation>
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
        <translation>Nota</translation>
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
        <translation>Nota
%s</translation>
    </message>
    <message>
        <source>L/L
%s</source>
        <translation>I/I
%s</translation>
    </message>
    <message>
        <source>U/R
%s</source>
        <translation>S/D
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
        <translation>Tocar esta escena a&amp;quí</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Tocar</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Tocando</translation>
    </message>
    <message>
        <source>Stop Playing</source>
        <translation>Dejar de tocar</translation>
    </message>
    <message>
        <source>The scene cannot be played: %1</source>
        <translation>La escena no se puede tocar: %1</translation>
    </message>
    <message>
        <source>Playing scene %1: connect a program to the port %2</source>
        <translation>Se toca la escena %1: conecte un programa al puerto %2</translation>
    </message>
    <message>
        <source>Playing scene %1 into %3, through the port %2</source>
        <translation>Se toca la escena %1 en %3, por el puerto %2</translation>
    </message>
    <message>
        <source>Playing scene %1 as the virtual controller holds it</source>
        <translation>Se toca la escena %1 como la tiene el controlador virtual</translation>
    </message>
    <message>
        <source>Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   −, =: knob or slider</source>
        <translation>Filas desde A y W: teclas, octava %1 (Z, X)   1–8: pads   velocidad %2 (C, V)   &apos;, ¡: control</translation>
    </message>
</context>
<context>
    <name>scenewright::RenameDialog</name>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Renombrar</translation>
    </message>
    <message>
        <source>Rename Scene</source>
        <translation>Renombrar escena</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Nombre</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Cancelar</translation>
    </message>
    <message>
        <source>%1 of %2 bytes</source>
        <translation>%1 de %2 bytes</translation>
    </message>
</context>
<context>
    <name>scenewright::SafeSending</name>
    <message>
        <source>Read the Keyboard &amp;Before a Send</source>
        <translation>Leer el teclado &amp;antes de enviar</translation>
    </message>
    <message>
        <source>Send Scenes</source>
        <translation>Enviar escenas</translation>
    </message>
    <message>
        <source>These are not your keyboard&apos;s scenes</source>
        <translation>Estas no son las escenas de su teclado</translation>
    </message>
    <message>
        <source>The window shows the scenes that it starts with, and the keyboard may hold others. A send replaces all four of them.</source>
        <translation>La ventana muestra las escenas con las que empieza, y el teclado puede contener otras. Un envío sustituye las cuatro.</translation>
    </message>
    <message>
        <source>&amp;Read First</source>
        <translation>&amp;Leer primero</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be read</source>
        <translation>No se pudo leer lo que contiene el teclado</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be kept</source>
        <translation>No se pudo conservar lo que contiene el teclado</translation>
    </message>
    <message>
        <source>&amp;Send Anyway</source>
        <translation>&amp;Enviar de todos modos</translation>
    </message>
    <message>
        <source>The keyboard held other scenes; they are kept</source>
        <translation>El teclado contenía otras escenas; se han conservado</translation>
    </message>
    <message>
        <source>Put Them Back</source>
        <translation>Devolverlas</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>Enviar de nuevo</translation>
    </message>
    <message>
        <source>Bring Back What Was There</source>
        <translation>Recuperar lo que había</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>Se han recuperado las escenas anteriores</translation>
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
        <translation>Nota</translation>
    </message>
    <message>
        <source>Scene {}</source>
        <translation>Escena {}</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>Escenas</translation>
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
        <translation>Lo que quizá no se quería en estas escenas</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>Escena %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>To Check</source>
        <translation>Por comprobar</translation>
    </message>
    <message>
        <source>%1 to check</source>
        <translation>%1 por comprobar</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneCommands</name>
    <message>
        <source>&amp;Scene</source>
        <translation>E&amp;scena</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>Escena</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Renombrar...</translation>
    </message>
    <message>
        <source>&amp;Copy To</source>
        <translation>&amp;Copiar en</translation>
    </message>
    <message>
        <source>S&amp;wap With</source>
        <translation>&amp;Intercambiar con</translation>
    </message>
    <message>
        <source>R&amp;eset Scene</source>
        <translation>Res&amp;tablecer escena</translation>
    </message>
    <message>
        <source>&amp;%1  %2</source>
        <translation>&amp;%1  %2</translation>
    </message>
    <message>
        <source>Rename Scene %1</source>
        <translation>Renombrar escena %1</translation>
    </message>
    <message>
        <source>Copy Scene %1 to %2</source>
        <translation>Copiar escena %1 en %2</translation>
    </message>
    <message>
        <source>Swap Scenes %1 and %2</source>
        <translation>Intercambiar escenas %1 y %2</translation>
    </message>
    <message>
        <source>Reset Scene %1</source>
        <translation>Restablecer escena %1</translation>
    </message>
    <message>
        <source>&amp;Duplicate From File...</source>
        <translation>&amp;Duplicar de archivo...</translation>
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
        <translation>nada</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>Envía</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Escena %1: %2</translation>
    </message>
    <message>
        <source>%1: the printer takes no sheet</source>
        <translation>%1: la impresora no acepta ninguna hoja</translation>
    </message>
</context>
<context>
    <name>scenewright::ScenesKeeper</name>
    <message>
        <source>d MMMM yyyy, hh:mm</source>
        <translation>d &apos;de&apos; MMMM &apos;de&apos; yyyy, hh:mm</translation>
    </message>
    <message>
        <source>The scenes edited on %1 were neither sent nor saved</source>
        <translation>Las escenas editadas el %1 no se enviaron ni se guardaron</translation>
    </message>
    <message>
        <source>The scenes of %1, edited on %2, were neither sent nor saved</source>
        <translation>Las escenas de %1, editadas el %2, no se enviaron ni se guardaron</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>Recuperar</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>scenewright::Sequencer</name>
    <message>
        <source>there is no sequencer of ALSA&apos;s on this system ({}); as root, modprobe snd-seq loads it</source>
        <translation>en este sistema no hay secuenciador de ALSA ({}); como root, modprobe snd-seq lo carga</translation>
    </message>
    <message>
        <source>you have no permission to use {}; sit at the machine, or be a member of the group audio</source>
        <translation>no tiene permiso para usar {}; siéntese ante el equipo o sea miembro del grupo audio</translation>
    </message>
    <message>
        <source>cannot use ALSA&apos;s sequencer ({}): {}</source>
        <translation>no se puede usar el secuenciador de ALSA ({}): {}</translation>
    </message>
    <message>
        <source>another program has the MIDI port {}:{} for itself; end that program first</source>
        <translation>otro programa tiene el puerto MIDI {}:{} solo para sí; termine antes ese programa</translation>
    </message>
    <message>
        <source>cannot connect {}:{} to {}:{}: {}</source>
        <translation>no se puede conectar {}:{} con {}:{}: {}</translation>
    </message>
    <message>
        <source>what is played does not reach a program that is connected: {}</source>
        <translation>lo que se toca no llega a un programa conectado: {}</translation>
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
        <translation>Canal MIDI del teclado</translation>
    </message>
    <message>
        <source>Pitch-bend speed</source>
        <translation>Velocidad de pitch bend</translation>
    </message>
    <message>
        <source>Octave transposition</source>
        <translation>Transposición de octava</translation>
    </message>
    <message>
        <source>Key velocity curve</source>
        <translation>Curva de vel. de teclas</translation>
    </message>
    <message>
        <source>Key constant velocity</source>
        <translation>Vel. fija de teclas</translation>
    </message>
    <message>
        <source>Pad velocity curve</source>
        <translation>Curva de vel. de pads</translation>
    </message>
    <message>
        <source>Pad constant velocity</source>
        <translation>Vel. fija de pads</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>Canal MIDI</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>Activado</translation>
    </message>
    <message>
        <source>CC number</source>
        <translation>Número de CC</translation>
    </message>
    <message>
        <source>Right value</source>
        <translation>Valor derecho</translation>
    </message>
    <message>
        <source>Left value</source>
        <translation>Valor izquierdo</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>Valor superior</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>Valor inferior</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>CC or note number</source>
        <translation>Número de CC o nota</translation>
    </message>
    <message>
        <source>On value</source>
        <translation>Valor de encendido</translation>
    </message>
    <message>
        <source>Off value</source>
        <translation>Valor de apagado</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>Comportamiento</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
</context>
<context>
    <name>scenewright::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Transfer in progress</source>
        <translation>Transferencia en curso</translation>
    </message>
</context>
<context>
    <name>scenewright::StripPlace</name>
    <message>
        <source>Below the picture</source>
        <translation>Debajo de la imagen</translation>
    </message>
</context>
<context>
    <name>scenewright::Try</name>
    <message>
        <source>note {}</source>
        <translation>nota {}</translation>
    </message>
    <message>
        <source>{0}, ch {1}</source>
        <translation>{0}, canal {1}</translation>
    </message>
    <message>
        <source>sent {0}, expected {1}</source>
        <translation>envió {0}, se esperaba {1}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>no envía nada: está desactivado</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>quizá no envíe nada: la transposición saca su nota del rango</translation>
    </message>
    <message>
        <source>sends nothing: it has a value that its list has not</source>
        <translation>no envía nada: tiene un valor que no está en su lista</translation>
    </message>
    <message>
        <source>{} right</source>
        <translation>{} correctos</translation>
    </message>
    <message>
        <source>{} not as assumed</source>
        <translation>{} distintos de lo supuesto</translation>
    </message>
    <message>
        <source>{} wrong</source>
        <translation>{} incorrectos</translation>
    </message>
    <message>
        <source>{} skipped</source>
        <translation>{} omitidos</translation>
    </message>
    <message>
        <source>{} passed over</source>
        <translation>{} pasados por alto</translation>
    </message>
    <message>
        <source>{} not tried</source>
        <translation>{} sin probar</translation>
    </message>
    <message>
        <source>sent {}</source>
        <translation>envió {}</translation>
    </message>
    <message>
        <source>sent {}, not quite as is assumed</source>
        <translation>envió {}, no del todo como se supone</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>omitido</translation>
    </message>
</context>
<context>
    <name>scenewright::TryStrip</name>
    <message>
        <source>Try It</source>
        <translation>Probar</translation>
    </message>
    <message>
        <source>Try &amp;It</source>
        <translation>Pro&amp;bar</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Omitir</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>Copiar informe</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Terminar</translation>
    </message>
    <message>
        <source>What was tried</source>
        <translation>Lo que se ha probado</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Control</translation>
    </message>
    <message>
        <source>Expected</source>
        <translation>Esperado</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Resultado</translation>
    </message>
    <message>
        <source>It is not known yet what the keyboard holds. Send or read the scenes first, and then try them</source>
        <translation>Aún no se sabe qué contiene el teclado. Primero envíe o lea las escenas y después pruébelas</translation>
    </message>
    <message>
        <source>Choose scene %1 on the keyboard.</source>
        <translation>Elija la escena %1 en el teclado.</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>%1 Scene %2: %3</source>
        <translation>%1 Escena %2: %3</translation>
    </message>
    <message>
        <source>Touch %1. %2</source>
        <translation>Toque %1. %2</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>Escena %1: %2</translation>
    </message>
</context>
<context>
    <name>scenewright::UnsentButton</name>
    <message>
        <source>1 change not sent</source>
        <translation>1 cambio sin enviar</translation>
    </message>
    <message>
        <source>%1 changes not sent</source>
        <translation>%1 cambios sin enviar</translation>
    </message>
    <message>
        <source>Show in what the window and the keyboard differ</source>
        <translation>Mostrar en qué difieren la ventana y el teclado</translation>
    </message>
</context>
<context>
    <name>scenewright::ValuePanes</name>
    <message>
        <source>Red %1, green %2, blue %3 of 255</source>
        <translation>Rojo %1, verde %2, azul %3 de 255</translation>
    </message>
    <message>
        <source>No control is chosen. Click one on the picture or in the list, or press Return on a row of the list.</source>
        <translation>No hay ningún control seleccionado. Haga clic en uno de la imagen o de la lista, o pulse Intro en una fila de la lista.</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>Nombre de la escena</translation>
    </message>
    <message>
        <source>Settings of the chosen control</source>
        <translation>Ajustes del control seleccionado</translation>
    </message>
    <message>
        <source>Mixed colour</source>
        <translation>Color mezclado</translation>
    </message>
    <message>
        <source>fesdvhw</source>
        <extracomment>The letters marked in the menu bar and in &quot;Show&quot;, in any order.</extracomment>
        <translation>aesdvum</translation>
    </message>
    <message>
        <source>What it sends</source>
        <translation>Qué envía</translation>
    </message>
    <message>
        <source>The name that the keyboard holds of the scene. Scene &gt; Rename changes it.</source>
        <translation>El nombre de la escena que guarda el teclado. Escena &gt; Renombrar lo cambia.</translation>
    </message>
    <message>
        <source>The light of the pad, as the three levels mix it. A click opens a palette.</source>
        <translation>La luz del pad, según la mezclan los tres niveles. Un clic abre una paleta.</translation>
    </message>
</context>
</TS>
