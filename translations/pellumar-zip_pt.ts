<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>Não foi possível concluir a operação.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Erro</translation>
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
        <translation>Escolher fotos e vídeos</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Adicionar</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>Procurando fotos e vídeos</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>Não há fotos nem vídeos nas suas pastas Imagens e Vídeos</translation>
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
        <translation>Manter…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Ficar</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>Descompactar</translation>
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
        <translation>Outro arquivo também não pôde ser adicionado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>%Ln outro arquivo também não pôde ser adicionado.</numerusform>
            <numerusform>%Ln outros arquivos também não puderam ser adicionados.</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>O disco está cheio. Libere espaço e tente de novo.</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>O disco que contém %1 relata uma falha. Verifique o disco e o cabo.</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>O disco ou a pasta de rede que contém %1 não responde. Conecte de novo e tente outra vez.</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>Há arquivos demais abertos neste dispositivo. Feche outros programas e tente de novo.</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1 está em uso. Feche o programa que o usa e tente de novo.</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>O nome de %1 é longo demais para este disco.</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1 não está mais lá. Pode ter sido movido, renomeado ou excluído.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>Você não tem permissão para ler %1. Altere as permissões ou fale com o proprietário.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 é uma pasta, não um arquivo.</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>Não foi possível ler %1.</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>O disco é somente leitura. Desbloqueie-o ou use outro.</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>Você não tem permissão para gravar na pasta deste aplicativo. Verifique as permissões.</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1 é maior do que este disco permite.</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>Não há mais pasta para %1. Tente de novo.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>Não foi possível gravar %1.</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>Não foi possível gravar o conteúdo de %1.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>Não há espaço no disco para o conteúdo de %1. Exclua o que não precisa e tente de novo.</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>Não há espaço suficiente: são necessários %1 e há %2 livres.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1 não é um arquivo nem uma pasta e não pode ser compactado.</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1 foi alterado nesse meio-tempo. Espere até que nada grave nele e tente de novo.</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1 não é um arquivo deste dispositivo. Copie-o para cá e tente de novo.</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1 foi cortado ao ser baixado ou copiado. Obtenha-o de novo.</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1 está danificado: falta o índice. Obtenha-o de novo.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1 é uma parte de um arquivo dividido, e as partes não combinam. Obtenha-as de novo.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1 é uma parte de um arquivo dividido, e falta %2. Coloque todas as partes em uma pasta e tente de novo.</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1 não é um arquivo ZIP. Se deveria ser, obtenha-o de novo.</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>Já existe algo com o nome %1 que não pode ser substituído. Escolha outro nome.</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>Em %1 há dois itens cujos nomes este disco não distingue: %2.</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2 é ao mesmo tempo arquivo e pasta em %1, o que nenhum disco permite.</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%2 em %1 aponta para fora do arquivo. Para sua segurança, nada foi extraído.</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1 colocaria %2 em um lugar que você não escolheu. Para sua segurança, nada foi extraído.</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1 precisa de mais memória do que este dispositivo tem. Feche outros programas ou use um dispositivo maior.</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1 está protegido por senha. Nada foi extraído sem ela.</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>A senha não corresponde a %1. Confira e tente de novo.</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>Senhas exigem uma biblioteca que falta neste dispositivo. Instale o pacote libnettle e tente de novo.</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1 está compactado de um jeito que esta versão não abre. Peça um arquivo ZIP comum.</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1 está danificado. Obtenha-o de novo.</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%2 em %1 está danificado. Obtenha o arquivo de novo.</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1 se contradiz, como se alguém quisesse causar danos. Aceite-o só de uma fonte confiável.</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>O que você acha do Pellumar Zip?</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Enviar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Agora não</translation>
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
        <translation>Compartilhar %1</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>Lendo a pasta…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>Não é possível ler esta pasta</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>Não há pastas dentro desta</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>Nada para escolher aqui</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>Subir para %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>Criando um arquivo</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>Este arquivo não foi mantido</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>Ele some na próxima vez que o app iniciar.</translation>
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
        <translation>Você alterou %1 em outro aplicativo. Está guardado em %2.</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>Você alterou %Ln arquivo em outros aplicativos: %1. Está guardado em %2.</numerusform>
            <numerusform>Você alterou %Ln arquivos em outros aplicativos: %1. Estão guardados em %2.</numerusform>
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
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>Abra arquivos ZIP na hora, daqui ou de outro aplicativo</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Junte arquivos, fotos e vídeos em um ZIP</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>Compartilhe o resultado, um a um ou tudo junto</translation>
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
        <translation>Ocultar a senha</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>Mostrar a senha</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>Senha necessária</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 está protegido por senha.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Senha</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>Essa não é a senha.</translation>
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
        <translation>Tudo</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>Selecionados (%1)</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Remover %1</translation>
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
        <translation>Há algo antes do arquivo que não faz parte dele. Foi ignorado.</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>Há algo depois do arquivo que não faz parte dele. Foi ignorado.</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1 está mais de uma vez no arquivo. O último foi usado.</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>As letras do nome %1 são uma suposição.</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1 não era um arquivo comum. Foi extraído como tal.</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1 pedia permissões especiais. Não as recebeu.</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1 não recuperou a data ou as permissões.</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>O arquivo contém algo que não está no índice. Foi ignorado.</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>O nome %1 levaria a outro lugar em outros sistemas e foi um pouco alterado.</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>Já havia outro %1, por isso este recebeu um número.</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>O arquivo está danificado. De %2 itens encontrados, %1 estão intactos.</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>O índice se perdeu, então ninguém sabe se havia mais.</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>Perdeu-se algo cujo nome não pode ser lido.</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>%1 se perdeu.</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>E mais %Ln.</numerusform>
            <numerusform>E mais %Ln.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>Copiar detalhes</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>Salvar tudo…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Salvo em %1</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Ver em Arquivos</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>O conteúdo de %1 continua aberto: Voltar leva até lá.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Ver</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln arquivo oculto não está na lista. É salvo com o resto.</numerusform>
            <numerusform>%Ln arquivos ocultos não estão na lista. São salvos com o resto.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>Salvando</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln arquivo</numerusform>
            <numerusform>%Ln arquivos</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>Salvo em %2: %1</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>Não há espaço suficiente em %1</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 não está mais lá</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>Não é possível salvar em %1. Escolha outra pasta.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>Não foi possível salvar %1: %2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>Enviar dados de uso</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>Quais botões são usados e se arquivos puderam ser lidos ou criados. Nunca o conteúdo deles. Desativado, nada disso é guardado ou enviado. O que foi guardado antes ainda pode ser enviado.</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>Saiba mais</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>O que foi guardado…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>Mais de nós</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>Nossos outros aplicativos</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>Nenhum aplicativo abre este arquivo</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>Não há aplicativo de e-mail</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>Não foi possível iniciar %1</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>Abrir com…</translation>
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
        <translation>Dispositivo</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>Ver em Arquivos</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>Não foi possível abrir o gerenciador de arquivos</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>Salvar em…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>Pronto</translation>
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
        <translation>“%1”</translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>%Ln estrela</numerusform>
            <numerusform>%Ln estrelas</numerusform>
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
        <translation>Compartilhar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>Copiar detalhes</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>Pasta acima</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nova pasta</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>Voltar</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>Seções</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>Tudo neste arquivo está oculto</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>Este arquivo estava vazio</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>O que foi guardado</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Copiar tudo</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>“Descompactar” foi tocado</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>“Compactar” foi tocado</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>“Arquivos” foi tocado</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>“Fotos” foi tocado</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>Um arquivo veio de outro aplicativo</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>Um arquivo foi criado</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>Um arquivo não pôde ser criado</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>Um arquivo foi descompactado</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>Um arquivo não pôde ser descompactado</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>A introdução foi mostrada</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>A introdução foi fechada</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>O aplicativo foi avaliado</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>“Mais de nós” foi tocado</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>Nenhum evento aguarda envio.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln evento. Fica neste dispositivo até ser enviado.</numerusform>
            <numerusform>%Ln eventos. Ficam neste dispositivo até serem enviados.</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>Esta instalação</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>Sem identificador</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>Um é inventado quando um evento é guardado.</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>Identificador</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1. Inventado; acompanha cada evento.</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>Sessões</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1, a última em %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>Propriedades, que acompanham cada evento</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>Grupos a que esta instalação pertence</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>O que se perdeu, por motivo</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>Não é possível ler o que foi guardado.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln vez</numerusform>
            <numerusform>%Ln vezes</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>Quantas vezes, o que não é enviado</translation>
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
        <translation>O que você quer fazer?</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>Seus arquivos ficam neste dispositivo.</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>Descompactar</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>Abra um arquivo ZIP e tire o que há dentro</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>Compactar</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>Junte arquivos, fotos e vídeos em um ZIP</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>Onde está o que você quer pôr no arquivo?</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Arquivos</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>O que houver neste dispositivo, vários de uma vez</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>Fotos e vídeos</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>Das suas pastas Imagens e Vídeos</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln selecionado</numerusform>
            <numerusform>%Ln selecionados</numerusform>
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
        <translation>Quer descompactar %1?</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>1 arquivo de outro tipo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln arquivo de outro tipo</numerusform>
            <numerusform>%Ln arquivos de outros tipos</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>1 item oculto</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln item oculto</numerusform>
            <numerusform>%Ln itens ocultos</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>%1 e %2 não são mostrados</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>%1 não é mostrado</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>%1 não são mostrados</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>“%1” tem a extensão em maiúsculas. Renomeie para terminar em “.zip” e abra de novo.</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>“%1” não tem nome de arquivo ZIP. Se for um, renomeie para terminar em “.zip”; os de outros tipos precisam de outro aplicativo.</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>“%1” vem em seguida</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>%Ln arquivo vem em seguida</numerusform>
            <numerusform>%Ln arquivos vêm em seguida</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>Não é possível descompactar</translation>
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
        <translation>Copiado</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>Pasta pessoal</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>Downloads</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Documentos</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imagens</translation>
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
        <translation>Nem tudo pôde ser resgatado</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln observação</numerusform>
            <numerusform>%Ln observações</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>O que está intacto está na lista.</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>O arquivo foi aberto mesmo assim.</translation>
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
        <translation>Não foi possível entregar %1: %2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>Nada para compartilhar</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Um momento…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>Este arquivo não está mais lá.</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>Estes arquivos não estão mais lá.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Pasta</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>%Ln outro não está mais lá</numerusform>
            <numerusform>%Ln outros não estão mais lá</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>Não foi possível ler a pasta toda</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>Nova pasta</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>Um nome não tem barra</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>Um nome não pode ser mais longo</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>Criar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>Uma pasta não pode se chamar %1</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>Não foi possível criar %1: %2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>Copiando</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>Não foi possível abrir: %1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>Salvar em</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>Escolher um arquivo ZIP</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>Escolher arquivos</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>Salvar aqui</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>Adicionar (%L1)</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Adicionar</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>Arquivos extraídos</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>Compartilhar tudo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln item oculto</numerusform>
            <numerusform>%Ln itens ocultos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln itens</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>Arquivos extraídos</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>Nada foi mantido</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>O que foi descompactado some quando você sair.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Sair</translation>
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
        <translation>Compactando arquivos</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>Extraindo um arquivo</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>Descompactando</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>Resgatar o que está intacto</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>Resgatando</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>Você gosta do Pellumar Zip?</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>Uma avaliação na central de programas ajuda outros a encontrá-lo.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>Avaliar</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Agora não</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>Compactar arquivos</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>Buscando mídias</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>Mantenha o app aberto</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>Não foi possível buscar os itens. Verifique sua conexão com a Internet e tente de novo.</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>Compactando arquivos</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>Compactar imagens</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>Compactando imagens</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>Dê um título ao seu arquivo ZIP</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>Nome do arquivo</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>Um título não pode ter barra.</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>Um título não pode ser mais longo.</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>Adicionar senha…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Senha</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>Será preciso para abrir o arquivo. Nomes e tamanhos são visíveis sem ela.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salvar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
</TS>
