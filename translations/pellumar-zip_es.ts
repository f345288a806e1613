<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>No se pudo completar la operación.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>AssetPickerController</name>
    <message>
        <source>Choose photos and videos</source>
        <translation>Elegir fotos y vídeos</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>Buscando fotos y vídeos</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>No hay fotos ni vídeos en tus carpetas Imágenes y Vídeos</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
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
        <translation>Conservar…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Quedarse</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>Descomprimir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>1 byte</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>Tampoco se pudo añadir otro archivo.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>Tampoco se pudo añadir %Ln archivo más.</numerusform>
            <numerusform>Tampoco se pudieron añadir %Ln archivos más.</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>El disco está lleno. Libera espacio e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>El disco que contiene %1 informa de un fallo. Comprueba el disco y su cable.</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>El disco o la carpeta de red que contiene %1 no responde. Vuelve a conectarlo e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>Hay demasiados archivos abiertos en este dispositivo. Cierra otros programas e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1 está en uso. Cierra el programa que lo usa e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>El nombre de %1 es demasiado largo para este disco.</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1 ya no está. Puede que se haya movido, renombrado o eliminado.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>No tienes permiso para leer %1. Cambia sus permisos o pregunta a su propietario.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 es una carpeta, no un archivo.</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>No se pudo leer %1.</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>El disco es de solo lectura. Desbloquéalo o usa otro.</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>No tienes permiso para escribir en la carpeta de esta aplicación. Comprueba sus permisos.</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1 es más grande de lo que admite este disco.</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>Ya no hay carpeta para %1. Inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>No se pudo escribir %1.</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>No se pudo escribir el contenido de %1.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>No hay espacio en el disco para el contenido de %1. Elimina lo que no necesites e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>No hay espacio suficiente: se necesitan %1 y hay %2 libres.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1 no es ni un archivo ni una carpeta y no se puede comprimir.</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1 se modificó mientras tanto. Espera a que nada escriba en él e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1 no es un archivo de este dispositivo. Cópialo aquí e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1 quedó cortado al descargarlo o copiarlo. Consíguelo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1 está dañado: le falta el índice. Consíguelo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1 es una parte de un archivo dividido y sus partes no encajan. Consíguelas de nuevo.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1 es una parte de un archivo dividido y falta %2. Pon todas las partes en una carpeta e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1 no es un archivo ZIP. Si debería serlo, consíguelo de nuevo.</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>Ya existe algo con el nombre %1 y no se puede reemplazar. Elige otro nombre.</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>En %1 hay dos elementos cuyos nombres este disco no distingue: %2.</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2 es a la vez archivo y carpeta en %1, y ningún disco lo admite.</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%2 en %1 apunta fuera del archivo. Por tu seguridad no se extrajo nada.</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1 pondría %2 en un lugar que no elegiste. Por tu seguridad no se extrajo nada.</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1 necesita más memoria de la que tiene este dispositivo. Cierra otros programas o usa un dispositivo mayor.</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1 está protegido con contraseña. Sin ella no se extrajo nada.</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>La contraseña no corresponde a %1. Compruébala e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>Las contraseñas requieren una biblioteca que falta en este dispositivo. Instala el paquete libnettle e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1 está comprimido de una forma que esta versión no puede abrir. Pide un archivo ZIP corriente.</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1 está dañado. Consíguelo de nuevo.</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%2 en %1 está dañado. Consigue el archivo de nuevo.</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1 se contradice, como si alguien quisiera hacer daño. Acéptalo solo de una fuente de confianza.</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>¿Qué te parece Pellumar Zip?</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>Abrir %1</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>Compartir %1</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>Leyendo la carpeta…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>Esta carpeta no se puede leer</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>No hay carpetas dentro de esta</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>Nada que elegir aquí</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>Subir a %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>Creando un archivo</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>Este archivo no se conservó</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>Desaparecerá la próxima vez que se inicie la app.</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>Descartar</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>Modificaste %1 en otra aplicación. Está guardado en %2.</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>Modificaste %Ln archivo en otras aplicaciones: %1. Está guardado en %2.</numerusform>
            <numerusform>Modificaste %Ln archivos en otras aplicaciones: %1. Están guardados en %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>Mostrar ocultos</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>Abre archivos ZIP al instante, desde aquí o desde otra aplicación</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Reúne archivos, fotos y vídeos en un ZIP</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>Comparte el resultado, uno a uno o todo junto</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>PasswordField</name>
    <message>
        <source>Hide the password</source>
        <translation>Ocultar la contraseña</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>Mostrar la contraseña</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>Se necesita contraseña</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 está protegido con contraseña.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>Esa no es la contraseña.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>Todo</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>Seleccionados (%1)</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Quitar %1</translation>
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
        <translation>Hay algo delante del archivo que no forma parte de él. Se pasó por alto.</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>Hay algo detrás del archivo que no forma parte de él. Se pasó por alto.</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1 está más de una vez en el archivo. Se tomó el último.</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>Las letras del nombre %1 son una suposición.</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1 no era un archivo corriente. Se extrajo como tal.</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1 pedía permisos especiales. No los recibió.</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1 no recuperó su fecha o sus permisos.</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>El archivo contiene algo que no figura en su índice. Se pasó por alto.</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>El nombre %1 llevaría a otro sitio en otros sistemas y se cambió un poco.</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>Ya había otro %1, así que recibió un número.</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>El archivo está dañado. De %2 elementos encontrados, %1 están intactos.</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>Su índice se ha perdido, así que nadie sabe si había más.</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>Se perdió algo cuyo nombre no se puede leer.</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>Se perdió %1.</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>Y %Ln más.</numerusform>
            <numerusform>Y %Ln más.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>Copiar detalles</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>Guardar todo…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Guardado en %1</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Ver en Archivos</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>El contenido de %1 sigue abierto: Atrás lleva allí.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Ver</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln archivo oculto no está en la lista. Se guarda con los demás.</numerusform>
            <numerusform>%Ln archivos ocultos no están en la lista. Se guardan con los demás.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>Guardando</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln archivo</numerusform>
            <numerusform>%Ln archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>Guardado en %2: %1</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>No hay espacio suficiente en %1</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 ya no está</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>No se puede guardar nada en %1. Elige otra carpeta.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>No se pudo guardar %1: %2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>Enviar datos de uso</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>Qué botones se usan y si se pudieron leer o crear archivos. Nunca su contenido. Si lo desactivas, no se guarda ni se envía nada de esto. Lo guardado antes aún puede enviarse.</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>Saber más</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>Qué se ha guardado…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>Más de nosotros</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>Nuestras otras aplicaciones</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>Ninguna aplicación abre este archivo</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>No hay aplicación de correo</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>No se pudo iniciar %1</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>Abrir con…</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>Correo</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Dispositivo</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Ver en Archivos</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>No se pudo abrir el gestor de archivos</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>Guardar en…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>Listo</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>ShownName</name>
    <message>
        <source>“%1”</source>
        <translation>«%1»</translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>%Ln estrella</numerusform>
            <numerusform>%Ln estrellas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TabTitles</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>Zip</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>Compartir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>Copiar detalles</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>Carpeta superior</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Carpeta nueva</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>Secciones</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>Todo en este archivo está oculto</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>Este archivo estaba vacío</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>Qué se ha guardado</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Copiar todo</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>Se tocó «Descomprimir»</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>Se tocó «Comprimir»</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>Se tocó «Archivos»</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>Se tocó «Fotos»</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>Llegó un archivo de otra aplicación</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>Se creó un archivo</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>No se pudo crear un archivo</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>Se descomprimió un archivo</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>No se pudo descomprimir un archivo</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>Se mostró la introducción</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>Se cerró la introducción</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>Se valoró la aplicación</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>Se tocó «Más de nosotros»</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>Ningún evento espera a enviarse.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln evento. Se queda en este dispositivo hasta que se envíe.</numerusform>
            <numerusform>%Ln eventos. Se quedan en este dispositivo hasta que se envíen.</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>Esta instalación</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>Sin identificador</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>Se inventa uno al guardar un evento.</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identificador</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1. Inventado; acompaña a cada evento.</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sesiones</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1, la última el %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>Propiedades, que acompañan a cada evento</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>Grupos a los que pertenece esta instalación</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>Lo que se perdió, según el motivo</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>No se puede leer lo guardado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln vez</numerusform>
            <numerusform>%Ln veces</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>Cuántas veces, lo que no se envía</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Eventos</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>¿Qué quieres hacer?</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>Tus archivos se quedan en este dispositivo.</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>Descomprimir</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>Abre un archivo ZIP y saca lo que contiene</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>Comprimir</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Reúne archivos, fotos y vídeos en un ZIP</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>¿Dónde está lo que quieres meter en el archivo?</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>Lo que haya en este dispositivo, varios a la vez</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>Fotos y vídeos</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>De tus carpetas Imágenes y Vídeos</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln elegido</numerusform>
            <numerusform>%Ln elegidos</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 de %L2</translation>
    </message>
</context>
<context>
    <name>pellumar::ConfirmationPopupViewController</name>
    <message>
        <source>Do you want to unzip %1?</source>
        <translation>¿Quieres descomprimir %1?</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>1 archivo de otro tipo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln archivo de otro tipo</numerusform>
            <numerusform>%Ln archivos de otros tipos</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>1 elemento oculto</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln elemento oculto</numerusform>
            <numerusform>%Ln elementos ocultos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>%1 y %2 no se muestran</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>%1 no se muestra</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>%1 no se muestran</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>«%1» tiene la extensión en mayúsculas. Cámbiale el nombre para que termine en «.zip» y ábrelo de nuevo.</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>«%1» no tiene nombre de archivo ZIP. Si lo es, cámbialo para que termine en «.zip»; los de otros tipos necesitan otra aplicación.</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>Después sigue «%1»</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>Después sigue %Ln archivo</numerusform>
            <numerusform>Después siguen %Ln archivos</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>No se puede descomprimir</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>pellumar::Notice</name>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>Carpeta personal</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Descargas</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vídeos</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>No se pudo rescatar todo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln aviso</numerusform>
            <numerusform>%Ln avisos</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>Lo que está intacto figura en la lista.</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>El archivo se abrió de todos modos.</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>No se pudo entregar %1: %2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>Nada que compartir</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Un momento…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>Este archivo ya no está.</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>Estos archivos ya no están.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>%Ln más ya no está</numerusform>
            <numerusform>%Ln más ya no están</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>No se pudo leer toda la carpeta</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Carpeta nueva</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>Un nombre no lleva barras</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>Un nombre no puede ser más largo</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Crear</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>Una carpeta no puede llamarse %1</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>No se pudo crear %1: %2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copiando</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>No se pudo abrir: %1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>Guardar en</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>Elegir un archivo ZIP</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>Elegir archivos</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>Guardar aquí</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>Añadir (%L1)</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Añadir</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>Archivos extraídos</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>Compartir todo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln elemento oculto</numerusform>
            <numerusform>%Ln elementos ocultos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln elemento</numerusform>
            <numerusform>%Ln elementos</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>Archivos extraídos</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>No se conservó nada</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>Lo descomprimido desaparece al salir.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Salir</translation>
    </message>
</context>
<context>
    <name>pellumar::ViewController</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>Zip</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Comprimiendo archivos</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>Extrayendo un archivo</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>Descomprimiendo</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>Rescatar lo intacto</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>Rescatando</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>¿Te gusta Pellumar Zip?</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>Una valoración en el centro de software ayuda a otros a encontrarlo.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Valorar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>Comprimir archivos</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>Obteniendo elementos</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>Mantén la app abierta</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>No se pudieron obtener los elementos. Comprueba tu conexión a Internet e inténtalo de nuevo.</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Comprimiendo archivos</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>Comprimir imágenes</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>Comprimiendo imágenes</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>Ponle un título a tu archivo ZIP</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>Nombre del archivo</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>Un título no puede llevar barras.</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>Un título no puede ser más largo.</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>Añadir contraseña…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>Hará falta para abrir el archivo. Los nombres y tamaños se ven sin ella.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
