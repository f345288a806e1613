<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>操作を完了できませんでした。</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
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
        <translation>写真とビデオを選択</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>写真とビデオを検索中</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>「ピクチャ」と「ビデオ」フォルダに写真やビデオがありません</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>ビデオ</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>写真</translation>
    </message>
</context>
<context>
    <name>CanKeepFiles</name>
    <message>
        <source>Keep…</source>
        <translation>残す…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>戻る</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>解凍</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>1バイト</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>ほかの1個のファイルも追加できませんでした。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>ほかの%Ln個のファイルも追加できませんでした。</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>ディスクの空きがありません。空きを作ってから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>%1のあるディスクに障害があります。ディスクとケーブルを確認してください。</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>%1のあるディスクまたはネットワークフォルダが応答しません。接続し直してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>開いているファイルが多すぎます。ほかのプログラムを閉じてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1は使用中です。使っているプログラムを閉じてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>%1の名前はこのディスクには長すぎます。</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1が見つかりません。移動、名前の変更、または削除された可能性があります。</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>%1を読み取る権限がありません。アクセス権を変更するか、所有者に確認してください。</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1はフォルダで、ファイルではありません。</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1を読み取れませんでした。</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>ディスクは読み取り専用です。ロックを解除するか、別のディスクをお使いください。</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>このアプリのフォルダに書き込む権限がありません。アクセス権を確認してください。</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1はこのディスクで扱えるファイルの大きさを超えています。</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>%1を入れるフォルダがなくなりました。もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1を書き込めませんでした。</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>%1の内容を書き込めませんでした。</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>%1の内容を入れる空きがディスクにありません。不要なものを削除してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>空きが足りません。必要：%1、空き：%2。</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1はファイルでもフォルダでもないため、圧縮できません。</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1は処理中に変更されました。書き込みが終わってから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1はこの端末のファイルではありません。こちらにコピーしてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1はダウンロードまたはコピーの途中で切れています。もう一度入手してください。</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1は破損しています。目次がありません。もう一度入手してください。</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1は分割アーカイブの一部ですが、各部分が合いません。もう一度入手してください。</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1は分割アーカイブの一部ですが、%2がありません。すべての部分を1つのフォルダに入れてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1はZIPアーカイブではありません。そのはずであれば、もう一度入手してください。</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>%1という名前のものがすでにあり、置き換えられません。別の名前を選んでください。</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>%1には、このディスクで名前を区別できないものが2つあります：%2。</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2が%1の中でファイルとフォルダの両方になっていて、ディスクに保存できません。</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%1の%2はアーカイブの外を指しています。安全のため、何も取り出しませんでした。</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1は%2を選んだ場所の外に置こうとします。安全のため、何も取り出しませんでした。</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1にはこの端末より多くのメモリが必要です。ほかのプログラムを閉じるか、より大きな端末をお使いください。</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1はパスワードで保護されています。パスワードなしでは何も取り出しませんでした。</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>パスワードが%1に合いません。確認してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>パスワードに必要なライブラリがこの端末にありません。libnettle パッケージをインストールしてから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1はこのバージョンで開けない方式で圧縮されています。一般的なZIPアーカイブを入手してください。</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1は破損しています。もう一度入手してください。</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%1の%2は破損しています。アーカイブをもう一度入手してください。</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1には矛盾があり、悪意の可能性があります。信頼できるところから入手したものだけをお使いください。</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>Pellumar Zipはいかがですか？</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>送信</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>あとで</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>%1 を開く</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>%1 を共有</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>フォルダを読み込み中…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>このフォルダは読み取れません</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>このフォルダの中にフォルダはありません</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>選べるものがありません</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>%1 へ上がる</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>アーカイブを作成中</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>このアーカイブは保存されていません</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>次にアプリを起動すると消えます。</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>破棄</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>別のアプリで %1 を変更しました。%2 に保存してあります。</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>別のアプリで%Ln個のファイルを変更しました：%1。%2 に保存してあります。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>隠し項目を表示</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>ここからでも、ほかのアプリからでも、アーカイブをすぐに開けます</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>ファイル、写真、ビデオを1つのアーカイブにまとめます</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>取り出したものを1つずつ、またはまとめて共有できます</translation>
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
        <translation>パスワードを隠す</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>パスワードを表示</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>パスワードが必要です</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 はパスワードで保護されています。</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>パスワードが違います。</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>すべて</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>選択中（%1）</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 を外す</translation>
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
        <translation>アーカイブの前に余分なデータがあります。無視しました。</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>アーカイブの後ろに余分なデータがあります。無視しました。</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1はアーカイブに複数あります。最後のものを取り出しました。</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>%1の文字は推測です。</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1は通常のファイルではありませんでした。通常のファイルとして取り出しました。</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1が求めた特別な権限は与えませんでした。</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1の日時またはアクセス権を戻せませんでした。</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>目次にないものがアーカイブに入っています。無視しました。</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>%1はほかのシステムで別の場所を指すため、名前を少し変えました。</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>同じ名前の%1があったため、番号を付けました。</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>アーカイブは破損しています。見つかった%2項目のうち、%1項目は無事です。</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>目次が失われているため、ほかにもあったかどうかは分かりません。</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>名前を読み取れないものが失われました。</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>%1は失われました。</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>ほか%Ln項目。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>詳細をコピー</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>すべて保存…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>%1 に保存しました</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>ファイルで表示</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>%1 の内容はまだ開いています。「戻る」で表示できます。</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>表示</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln個の隠しファイルは一覧にありません。一緒に保存されます。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>保存中</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln個のファイル</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>%1 を %2 に保存しました</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>%1 に十分な空きがありません</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 はもうありません</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>%1 には保存できません。別のフォルダを選んでください。</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>%1 を保存できませんでした：%2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>使用状況データを送信</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>使われたボタンと、アーカイブを読めたか作れたかだけです。中身は決して含みません。オフにすると、何も記録も送信もされません。以前の記録は送信されることがあります。</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>詳しく見る</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>記録された内容…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>ほかの製品</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>私たちのほかのアプリ</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>このファイルを開けるアプリがありません</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>メールのアプリがありません</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 を起動できませんでした</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>アプリで開く…</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>メール</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>Bluetooth</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>デバイス</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>ファイルで表示</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>ファイルマネージャを開けませんでした</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>保存先…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>ShownName</name>
    <message>
        <source>“%1”</source>
        <translation>「%1」</translation>
    </message>
</context>
<context>
    <name>StarButton</name>
    <message numerus="yes">
        <source>%Ln stars</source>
        <translation>
            <numerusform>星%Lnつ</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TabTitles</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>圧縮/解凍</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>共有</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>詳細をコピー</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>上のフォルダ</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新規フォルダ</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>セクション</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>このアーカイブの中身はすべて隠し項目です</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>このアーカイブは空でした</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>記録された内容</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>すべてコピー</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>「解凍」がタップされました</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>「圧縮」がタップされました</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>「ファイル」がタップされました</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>「写真」がタップされました</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>ほかのアプリからアーカイブが渡されました</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>アーカイブが作成されました</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>アーカイブを作成できませんでした</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>アーカイブが解凍されました</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>アーカイブを解凍できませんでした</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>紹介が表示されました</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>紹介が閉じられました</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>アプリが評価されました</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>「ほかの製品」がタップされました</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>送信待ちのイベントはありません。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln件のイベント。送信されるまでこの端末に残ります。</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>このインストール</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>識別子なし</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>イベントを記録するときに作られます。</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>識別子</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1。ランダムに作られ、各イベントに付きます。</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>セッション</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1、最後は %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>各イベントに付くプロパティ</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>このインストールが属するグループ</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>失われたもの（理由別）</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>記録された内容を読み取れません。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln回</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>回数（送信されません）</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>イベント</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>何をしますか？</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>ファイルはこの端末から出ません。</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>解凍</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>アーカイブを開いて中身を取り出します</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>圧縮</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>ファイル、写真、ビデオを1つのアーカイブにまとめます</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>アーカイブに入れるものはどこにありますか？</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>この端末にあるものを一度にいくつでも</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>写真とビデオ</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>「ピクチャ」と「ビデオ」フォルダから</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>%Ln個を選択中</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1/%L2</translation>
    </message>
</context>
<context>
    <name>pellumar::ConfirmationPopupViewController</name>
    <message>
        <source>Do you want to unzip %1?</source>
        <translation>%1 を解凍しますか？</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln項目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>別の種類のファイル1個</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>別の種類のファイル%Ln個</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>隠し項目1個</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>隠し項目%Ln個</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>%1と%2は表示していません</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>%1は表示していません</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>%1は表示していません</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>「%1」の拡張子が大文字です。末尾を「.zip」に変えてから、もう一度開いてください。</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>「%1」はZIPアーカイブの名前ではありません。ZIPであれば末尾を「.zip」に変えてください。ほかの種類には別のアプリが必要です。</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>これが終わったら、次は「%1」です</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>これが終わったら、次に%Ln個のアーカイブがあります</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>解凍できません</translation>
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
        <translation>コピーしました</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>ホーム</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>ダウンロード</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>ドキュメント</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>ピクチャ</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>ビデオ</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>一部を救出できませんでした</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln件の注意</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>無事なものは一覧にあります。</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>それでもアーカイブは開けました。</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>%1 を渡せませんでした：%2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>共有するものがありません</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln項目</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>お待ちください…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>このファイルはもうありません。</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>これらのファイルはもうありません。</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダ</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>ほかの%Ln個はもうありません</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>このフォルダを最後まで読み取れませんでした</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新規フォルダ</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>名前にスラッシュは使えません</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>名前をこれ以上長くできません</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>作成</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>フォルダに %1 という名前は付けられません</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>%1 を作成できませんでした：%2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>コピー中</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>開けませんでした：%1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>保存先</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>アーカイブを選択</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>ファイルを選択</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>ここに保存</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>追加（%L1）</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>解凍したファイル</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>すべて共有</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>隠し項目%Ln個</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln項目</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>解凍したファイル</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>何も保存していません</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>解凍したものは、ここを離れると消えます。</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>離れる</translation>
    </message>
</context>
<context>
    <name>pellumar::ViewController</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>圧縮/解凍</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>ファイルを圧縮中</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>アーカイブを解凍中</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>解凍中</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>無事なものを救出</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>救出中</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>Pellumar Zipを気に入りましたか？</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>ソフトウェアセンターで評価すると、ほかの人が見つけやすくなります。</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>評価する</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>あとで</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>ファイルを圧縮</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>メディアを取得中</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>アプリを開いたままにしてください</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>項目を取得できませんでした。インターネット接続を確認してから、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>ファイルを圧縮中</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>画像を圧縮</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>画像を圧縮中</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>ZIPファイルにタイトルを付けてください</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>ファイル名</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>タイトルにスラッシュは使えません。</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>タイトルをこれ以上長くできません。</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>パスワードを追加…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>アーカイブを開くときに必要です。名前とサイズはパスワードなしでも見えます。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
</TS>
