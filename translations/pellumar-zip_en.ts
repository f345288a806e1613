<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>FailureWords</name>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>One other file could not be added either.</numerusform>
            <numerusform>%Ln other files could not be added either.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>You changed %Ln file in other applications: %1. It is kept in %2.</numerusform>
            <numerusform>You changed %Ln files in other applications: %1. They are kept in %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Remarks</name>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>And %Ln more.</numerusform>
            <numerusform>And %Ln more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln hidden file is not in the list. It is saved with all.</numerusform>
            <numerusform>%Ln hidden files are not in the list. They are saved with all.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln file</numerusform>
            <numerusform>%Ln files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>One star</numerusform>
            <numerusform>%Ln stars</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln event. It stays on this device until it is sent.</numerusform>
            <numerusform>%Ln events. They stay on this device until they are sent.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>Once</numerusform>
            <numerusform>%Ln times</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln selected</numerusform>
            <numerusform>%Ln selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln file of another kind</numerusform>
            <numerusform>%Ln files of other kinds</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln hidden item</numerusform>
            <numerusform>%Ln hidden items</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>%Ln archive is next, when this is done</numerusform>
            <numerusform>%Ln archives are next, when this is done</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln remark</numerusform>
            <numerusform>%Ln remarks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>%Ln more no longer there</numerusform>
            <numerusform>%Ln more no longer there</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln hidden item</numerusform>
            <numerusform>%Ln hidden items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln item</numerusform>
            <numerusform>%Ln items</numerusform>
        </translation>
    </message>
</context>
</TS>
