<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>L’opération n’a pas pu aboutir.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erreur</translation>
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
        <translation>Choisir des photos et vidéos</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>Recherche de photos et de vidéos</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>Vos dossiers Images et Vidéos ne contiennent ni photo ni vidéo</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>Vidéo</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>Photo</translation>
    </message>
</context>
<context>
    <name>CanKeepFiles</name>
    <message>
        <source>Keep…</source>
        <translation>Conserver…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Rester</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>Décompresser</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>1 octet</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>Un autre fichier n’a pas pu être ajouté non plus.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>%Ln autre fichier n’a pas pu être ajouté non plus.</numerusform>
            <numerusform>%Ln autres fichiers n’ont pas pu être ajoutés non plus.</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>Le disque est plein. Libérez de l’espace, puis réessayez.</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>Le disque qui contient %1 signale une panne. Vérifiez le disque et son câble.</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>Le disque ou le dossier réseau qui contient %1 ne répond pas. Reconnectez-le, puis réessayez.</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>Trop de fichiers sont ouverts sur cet appareil. Fermez d’autres programmes, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1 est en cours d’utilisation. Fermez le programme qui l’utilise, puis réessayez.</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>Le nom de %1 est trop long pour ce disque.</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1 n’est plus là. Le fichier a peut-être été déplacé, renommé ou supprimé.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>Vous n’avez pas le droit de lire %1. Modifiez ses permissions ou demandez à son propriétaire.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 est un dossier, pas un fichier.</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>Le disque est en lecture seule. Déverrouillez-le ou utilisez-en un autre.</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>Vous n’avez pas le droit d’écrire dans le dossier de cette application. Vérifiez ses permissions.</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1 dépasse la taille de fichier permise par ce disque.</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>Il n’y a plus de dossier pour %1. Réessayez.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>Le contenu de %1 n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>Il n’y a pas assez d’espace sur le disque pour le contenu de %1. Supprimez ce dont vous n’avez pas besoin, puis réessayez.</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>L’espace ne suffit pas&#xa0;: il faut %1, %2 sont libres.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1 n’est ni un fichier ni un dossier et ne peut pas être compressé.</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1 a été modifié entre-temps. Attendez que plus rien n’y écrive, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1 n’est pas un fichier de cet appareil. Copiez-le ici, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1 a été tronqué pendant le téléchargement ou la copie. Procurez-vous-le à nouveau.</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1 est endommagé&#xa0;: sa table des matières manque. Procurez-vous-le à nouveau.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1 fait partie d’une archive en plusieurs volumes qui ne vont pas ensemble. Procurez-vous-les à nouveau.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1 fait partie d’une archive en plusieurs volumes, et %2 manque. Mettez tous les volumes dans un même dossier, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1 n’est pas une archive ZIP. Si c’en est censé être une, procurez-vous-la à nouveau.</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>Un élément du nom de %1 existe déjà et ne peut pas être remplacé. Choisissez un autre nom.</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>%1 contient deux éléments dont ce disque ne peut pas distinguer les noms&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2 est à la fois un fichier et un dossier dans %1, ce qu’aucun disque ne permet.</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%2 dans %1 mène hors de l’archive. Par sécurité, rien n’a été extrait.</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1 mettrait %2 à un endroit que vous n’avez pas choisi. Par sécurité, rien n’a été extrait.</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1 demande plus de mémoire que cet appareil n’en a. Fermez d’autres programmes ou utilisez un appareil plus puissant.</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1 est protégé par un mot de passe. Rien n’a été extrait sans lui.</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>Le mot de passe ne correspond pas à %1. Vérifiez-le, puis réessayez.</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>Les mots de passe demandent une bibliothèque absente de cet appareil. Installez le paquet libnettle, puis réessayez.</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1 est compressé d’une façon que cette version ne sait pas ouvrir. Demandez une archive ZIP courante.</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1 est endommagé. Procurez-vous-le à nouveau.</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%2 dans %1 est endommagé. Procurez-vous l’archive à nouveau.</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1 se contredit, comme si quelqu’un voulait nuire. N’utilisez que des sources sûres.</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>Que pensez-vous de Pellumar Zip&#xa0;?</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Envoyer</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>Ouvrir %1</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>Partager %1</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>Lecture du dossier…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>Ce dossier ne peut pas être lu</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>Ce dossier n’en contient aucun autre</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>Rien à choisir ici</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>Remonter à %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>Création d’une archive</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>Cette archive n’a pas été conservée</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>Elle disparaîtra au prochain démarrage de l’app.</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>Abandonner</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>Vous avez modifié %1 dans une autre application. Le fichier est conservé dans %2.</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>Vous avez modifié %Ln fichier dans d’autres applications&#xa0;: %1. Il est conservé dans %2.</numerusform>
            <numerusform>Vous avez modifié %Ln fichiers dans d’autres applications&#xa0;: %1. Ils sont conservés dans %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>Afficher les éléments cachés</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>Ouvrez une archive en un instant, d’ici ou de toute autre application</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Réunissez fichiers, photos et vidéos dans une archive</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>Partagez le résultat, un par un ou tout ensemble</translation>
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
        <translation>Masquer le mot de passe</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>Afficher le mot de passe</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>Mot de passe requis</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 est protégé par un mot de passe.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>Ce n’est pas le bon mot de passe.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>Tous</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>Sélection (%1)</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Retirer %1</translation>
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
        <translation>Quelque chose d’étranger à l’archive la précède. Il n’en a pas été tenu compte.</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>Quelque chose d’étranger à l’archive la suit. Il n’en a pas été tenu compte.</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1 est plusieurs fois dans l’archive. Le dernier a été pris.</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>Les lettres du nom %1 ont été devinées.</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1 n’était pas un fichier ordinaire. Il a été extrait comme tel.</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1 demandait des droits spéciaux, qui n’ont pas été accordés.</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1 n’a pas retrouvé sa date ou ses permissions.</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>L’archive contient un élément absent de sa table des matières. Il n’en a pas été tenu compte.</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>Le nom %1 mènerait ailleurs sur d’autres systèmes et a été un peu modifié.</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>Il y avait un autre %1, celui-ci a donc reçu un numéro.</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>L’archive est endommagée. Sur %2 éléments trouvés, %1 sont intacts.</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>Sa table des matières a disparu, on ne sait donc pas s’il y en avait d’autres.</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>Un élément au nom illisible est perdu.</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>%1 est perdu.</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>Et %Ln autre.</numerusform>
            <numerusform>Et %Ln autres.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>Copier les détails</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>Tout enregistrer…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Enregistré dans %1</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Afficher dans Fichiers</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>Le contenu de %1 est encore ouvert&#xa0;: Retour y mène.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Afficher</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln fichier caché n’est pas dans la liste. Il est enregistré avec le reste.</numerusform>
            <numerusform>%Ln fichiers cachés ne sont pas dans la liste. Ils sont enregistrés avec le reste.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>Enregistrement</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln fichier</numerusform>
            <numerusform>%Ln fichiers</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>Enregistré dans %2&#xa0;: %1</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>Il n’y a pas assez d’espace dans %1</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 n’est plus là</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>Rien ne peut être enregistré dans %1. Choisissez un autre dossier.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>%1 n’a pas pu être enregistré&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>Envoyer les données d’utilisation</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>Quels boutons servent, et si des archives ont pu être lues ou créées. Jamais ce qu’elles contiennent. Une fois désactivé, rien n’est plus gardé ni envoyé. Ce qui a été gardé avant peut encore être envoyé.</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>En savoir plus</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>Ce qui est gardé…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>Nos autres créations</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>Nos autres applications</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>Aucune application n’ouvre ce fichier</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>Aucune application de messagerie</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 n’a pas pu être lancé</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>Ouvrir avec…</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Afficher dans Fichiers</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>Le gestionnaire de fichiers n’a pas pu être ouvert</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>Enregistrer…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>ShownName</name>
    <message>
        <source>“%1”</source>
        <translation>«&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>%Ln étoile</numerusform>
            <numerusform>%Ln étoiles</numerusform>
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
        <translation>Réglages</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>Partager</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>Copier les détails</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>Dossier parent</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nouveau dossier</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>Sections</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>Tout est caché dans cette archive</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>Cette archive était vide</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>Ce qui est gardé</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Tout copier</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>«&#xa0;Décompresser&#xa0;» a été touché</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>«&#xa0;Compresser&#xa0;» a été touché</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>«&#xa0;Fichiers&#xa0;» a été touché</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>«&#xa0;Photos&#xa0;» a été touché</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>Une archive est venue d’une autre application</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>Une archive a été créée</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>Une archive n’a pas pu être créée</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>Une archive a été décompressée</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>Une archive n’a pas pu être décompressée</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>L’introduction a été affichée</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>L’introduction a été quittée</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>L’application a été notée</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>«&#xa0;Nos autres créations&#xa0;» a été touché</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>Aucun événement n’attend d’être envoyé.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln événement. Il reste sur cet appareil jusqu’à son envoi.</numerusform>
            <numerusform>%Ln événements. Ils restent sur cet appareil jusqu’à leur envoi.</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>Cette installation</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>Pas d’identifiant</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>Il est inventé quand un événement est gardé.</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identifiant</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1. Inventé&#xa0;; accompagne chaque événement.</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sessions</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1, la dernière le %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>Propriétés, qui accompagnent chaque événement</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>Groupes dont cette installation fait partie</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>Ce qui a été perdu, par cause</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>Ce qui est gardé ne peut pas être lu.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln fois</numerusform>
            <numerusform>%Ln fois</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>Combien de fois, ce qui n’est pas envoyé</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>Événements</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>Que voulez-vous faire&#xa0;?</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>Vos fichiers restent sur cet appareil.</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>Décompresser</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>Ouvrir une archive et en sortir le contenu</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>Compresser</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Réunissez fichiers, photos et vidéos dans une archive</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>Où se trouve ce que vous voulez mettre dans l’archive&#xa0;?</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>Tout ce qui est sur cet appareil, en une fois</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>Photos et vidéos</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>De vos dossiers Images et Vidéos</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln choisi</numerusform>
            <numerusform>%Ln choisis</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 sur %L2</translation>
    </message>
</context>
<context>
    <name>pellumar::ConfirmationPopupViewController</name>
    <message>
        <source>Do you want to unzip %1?</source>
        <translation>Voulez-vous décompresser %1&#xa0;?</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>1 fichier d’un autre type</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln fichier d’un autre type</numerusform>
            <numerusform>%Ln fichiers d’autres types</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>1 élément caché</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln élément caché</numerusform>
            <numerusform>%Ln éléments cachés</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>%1 et %2 ne sont pas affichés</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>%1 n’est pas affiché</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>%1 ne sont pas affichés</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>L’extension de «&#xa0;%1&#xa0;» est en majuscules. Renommez le fichier pour qu’il finisse par «&#xa0;.zip&#xa0;», puis rouvrez-le.</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>«&#xa0;%1&#xa0;» n’a pas le nom d’une archive ZIP. Si c’en est une, renommez-la pour qu’elle finisse par «&#xa0;.zip&#xa0;»&#xa0;; les autres archives demandent une autre application.</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>«&#xa0;%1&#xa0;» viendra ensuite</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>%Ln archive viendra ensuite</numerusform>
            <numerusform>%Ln archives viendront ensuite</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>Décompression impossible</translation>
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
        <translation>Copié</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>Dossier personnel</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Téléchargements</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documents</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>Vidéos</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>Tout n’a pas pu être récupéré</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln remarque</numerusform>
            <numerusform>%Ln remarques</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>Ce qui est intact est dans la liste.</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>L’archive a tout de même été ouverte.</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>%1 n’a pas pu être transmis&#xa0;: %2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>Rien à partager</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Un instant…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>Ce fichier n’est plus là.</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>Ces fichiers ne sont plus là.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>%Ln autre n’est plus là</numerusform>
            <numerusform>%Ln autres ne sont plus là</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>Ce dossier n’a pas pu être lu jusqu’au bout</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nouveau dossier</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>Un nom n’a pas de barre oblique</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>Un nom ne peut pas être plus long</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Créer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>Un dossier ne peut pas s’appeler %1</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>%1 n’a pas pu être créé&#xa0;: %2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copie en cours</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>Ouverture impossible&#xa0;: %1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>Enregistrer dans</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>Choisir une archive</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>Choisir des fichiers</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>Enregistrer ici</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>Ajouter (%L1)</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>Fichiers extraits</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>Tout partager</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln élément caché</numerusform>
            <numerusform>%Ln éléments cachés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln élément</numerusform>
            <numerusform>%Ln éléments</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>Fichiers extraits</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>Rien n’a été conservé</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>Les fichiers extraits disparaîtront quand vous partirez.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Partir</translation>
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
        <translation>Compression des fichiers</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>Extraction d’une archive</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>Décompression</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>Récupérer ce qui est intact</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>Récupération</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>Aimez-vous Pellumar Zip&#xa0;?</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>Une note dans la logithèque aide les autres à le trouver.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Noter</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>Compresser des fichiers</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>Récupération des médias</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>Gardez l’app ouverte</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>Les éléments n’ont pas pu être récupérés. Vérifiez votre connexion Internet, puis réessayez.</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Compression des fichiers</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>Compresser des images</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>Compression des images</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>Donnez un titre à votre fichier zip</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>Nom du fichier</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>Un titre ne peut pas contenir de barre oblique.</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>Un titre ne peut pas être plus long.</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>Ajouter un mot de passe…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Mot de passe</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>Il faudra ce mot de passe pour ouvrir l’archive. Les noms et les tailles se voient sans lui.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
</TS>
