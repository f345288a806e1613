<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>无法完成操作。</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
</context>
<context>
    <name>AssetPickerController</name>
    <message>
        <source>Choose photos and videos</source>
        <translation>选择照片和视频</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>正在查找照片和视频</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>“图片”和“视频”文件夹中没有照片或视频</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>视频</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>照片</translation>
    </message>
</context>
<context>
    <name>CanKeepFiles</name>
    <message>
        <source>Keep…</source>
        <translation>保留…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>留下</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>解压</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>1 字节</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>另有 1 个文件也无法添加。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>另有 %Ln 个文件也无法添加。</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>磁盘已满。请腾出空间后重试。</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>%1所在的磁盘报告故障。请检查磁盘及其连接线。</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>%1所在的磁盘或网络文件夹没有响应。请重新连接后重试。</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>此设备上打开的文件过多。请关闭其他程序后重试。</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1正在使用中。请关闭使用它的程序后重试。</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>%1的名称对此磁盘来说太长。</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1已不存在，可能已被移动、重命名或删除。</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>您无权读取%1。请更改其权限，或询问其所有者。</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1是文件夹，不是文件。</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>无法读取%1。</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>磁盘为只读。请解除锁定，或使用其他磁盘。</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>您无权写入此应用的文件夹。请检查其权限。</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1超出此磁盘允许的文件大小。</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>存放%1的文件夹已不存在。请重试。</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>无法写入%1。</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>无法写入%1的内容。</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>磁盘空间不足以存放%1的内容。请删除不需要的内容后重试。</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>空间不足：需要%1，可用%2。</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1既不是文件也不是文件夹，无法压缩。</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>%1在此期间被更改。请等待写入完成后重试。</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1不是此设备上的文件。请复制到此设备后重试。</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>%1在下载或复制时被截断。请重新获取。</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1已损坏：缺少目录。请重新获取。</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1是分卷压缩包的一部分，但各部分不匹配。请重新获取。</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1是分卷压缩包的一部分，但缺少%2。请将所有部分放入同一文件夹后重试。</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1不是 ZIP 压缩包。如果应该是，请重新获取。</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>已有名为%1的项目且无法替换。请选择其他名称。</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>%1中有两个项目的名称在此磁盘上无法区分：%2。</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2在%1中既是文件又是文件夹，任何磁盘都无法保存。</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%1中的%2指向压缩包之外。为了安全，未取出任何内容。</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1会把%2放到您未选择的位置。为了安全，未取出任何内容。</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1需要的内存超出此设备所能提供。请关闭其他程序，或使用更大的设备。</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1受密码保护。没有密码，未取出任何内容。</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>密码与%1不符。请检查后重试。</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>使用密码所需的库未安装在此设备上。请安装 libnettle 软件包后重试。</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1的压缩方式此版本无法打开。请索取普通的 ZIP 压缩包。</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1已损坏。请重新获取。</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%1中的%2已损坏。请重新获取压缩包。</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1自相矛盾，可能有人蓄意破坏。请只使用可信来源的文件。</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>您觉得 Pellumar Zip 怎么样？</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>以后再说</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>打开 %1</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>共享 %1</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>正在读取文件夹…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>无法读取此文件夹</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>此文件夹中没有文件夹</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>这里没有可选的内容</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>返回到 %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>正在制作压缩包</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>此压缩包尚未保留</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>下次启动应用时它将消失。</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>放弃</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>您在其他应用中更改了 %1。已保存在 %2。</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>您在其他应用中更改了 %Ln 个文件：%1。已保存在 %2。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>显示隐藏项目</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>在这里或从其他应用中即刻打开压缩包</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>把文件、照片和视频放进一个压缩包</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>逐个或一并共享取出的内容</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
</context>
<context>
    <name>PasswordField</name>
    <message>
        <source>Hide the password</source>
        <translation>隐藏密码</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>显示密码</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>需要密码</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 受密码保护。</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>密码不正确。</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>已选择（%1）</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>移除 %1</translation>
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
        <translation>压缩包前面有不属于它的内容，已忽略。</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>压缩包后面有不属于它的内容，已忽略。</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1在压缩包中出现多次，已取最后一个。</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>名称%1的文字是推测的。</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1不是普通文件，已作为普通文件取出。</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1要求特殊权限，未予授予。</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1未能恢复其时间或权限。</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>压缩包中有目录未列出的内容，已忽略。</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>名称%1在其他系统上会指向别处，已略作更改。</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>已有另一个%1，因此加上了编号。</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>压缩包已损坏。找到的%2个项目中，%1个完好。</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>其目录已丢失，无法得知是否还有更多内容。</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>一个名称无法读取的项目已丢失。</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>%1已丢失。</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>另有 %Ln 个。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>复制详情</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>全部保存到…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>已保存到 %1</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>在文件中显示</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>%1 的内容仍然打开：点“返回”即可查看。</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>%Ln 个隐藏文件不在列表中，会一并保存。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>正在保存</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>%Ln 个文件</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>已将 %1 保存到 %2</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>%1 中空间不足</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 已不存在</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>无法保存到 %1。请选择其他文件夹。</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>无法保存 %1：%2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>发送使用数据</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>用了哪些按钮，以及压缩包能否读取或制作，绝不包括其中的内容。关闭后，不再记录或发送这些数据。此前的记录仍可能发送。</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>了解更多</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>已记录的内容…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>更多产品</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>我们的其他应用</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>没有可打开此文件的应用</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>没有邮件应用</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>无法启动 %1</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>打开方式…</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>电子邮件</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>蓝牙</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>在文件中显示</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>无法打开文件管理器</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>保存到…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
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
            <numerusform>%Ln 星</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TabTitles</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>压缩/解压</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>共享</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>复制详情</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>上级文件夹</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新建文件夹</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>分区</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>此压缩包的内容全部隐藏</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>此压缩包是空的</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>已记录的内容</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>全部复制</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>点按了“解压”</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>点按了“压缩”</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>点按了“文件”</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>点按了“照片”</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>从其他应用收到压缩包</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>制作了压缩包</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>无法制作压缩包</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>解压了压缩包</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>无法解压压缩包</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>显示了介绍</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>离开了介绍</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>评价了应用</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>点按了“更多产品”</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>没有等待发送的事件。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>%Ln 个事件。在发送之前保留在此设备上。</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>此安装</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>没有标识符</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>记录事件时会生成一个。</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>标识符</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1。随机生成，随每个事件发送。</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>会话</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1，最近一次是 %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>随每个事件发送的属性</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>此安装所属的群组</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>丢失的内容（按原因）</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>无法读取已记录的内容。</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>%Ln 次</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>次数（不发送）</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>您想做什么？</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>您的文件留在此设备上。</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>解压</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>打开压缩包并取出其中的内容</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>压缩</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>把文件、照片和视频放进一个压缩包</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>要放进压缩包的内容在哪里？</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>此设备上的任何内容，可一次多选</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>照片和视频</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>来自“图片”和“视频”文件夹</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>已选择 %Ln 项</numerusform>
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
        <translation>要解压 %1 吗？</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 个项目</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>1 个其他类型的文件</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>%Ln 个其他类型的文件</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>1 个隐藏项目</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln 个隐藏项目</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>未显示%1和%2</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>未显示%1</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>未显示%1</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>“%1”的扩展名是大写的。请将其重命名为以“.zip”结尾，然后重新打开。</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>“%1”的名称不是 ZIP 压缩包。如果它是，请重命名为以“.zip”结尾；其他类型的压缩包需要其他应用。</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>完成后接着处理“%1”</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>完成后接着处理 %Ln 个压缩包</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>无法解压</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>好</translation>
    </message>
</context>
<context>
    <name>pellumar::Notice</name>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>主文件夹</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>视频</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>未能全部抢救</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>%Ln 条提示</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>完好的内容在列表中。</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>压缩包仍已打开。</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>无法递交 %1：%2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>没有可共享的内容</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 个项目</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>请稍候…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>此文件已不存在。</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>这些文件已不存在。</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>另有 %Ln 个已不存在</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>无法完整读取此文件夹</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>名称不能含有斜杠</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>名称不能更长</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>文件夹不能命名为 %1</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>无法创建 %1：%2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>正在复制</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>无法打开：%1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>保存到</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>选择压缩包</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>选择文件</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>保存到这里</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>添加（%L1）</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>解压的文件</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>全部共享</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>%Ln 个隐藏项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>%Ln 个项目</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>解压的文件</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>尚未保留任何内容</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>离开后，解压的内容将消失。</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>离开</translation>
    </message>
</context>
<context>
    <name>pellumar::ViewController</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>压缩/解压</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>正在压缩文件</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>正在解压压缩包</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>正在解压</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>抢救完好的内容</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>正在抢救</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>您喜欢 Pellumar Zip 吗？</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>在软件中心评分能帮助其他人找到它。</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>评分</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>以后再说</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>压缩文件</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>正在获取媒体</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>请保持应用打开</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>无法获取项目。请检查互联网连接后重试。</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>正在压缩文件</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>压缩图像</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>正在压缩图像</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>请为您的 zip 文件取个标题</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>文件名</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>标题不能含有斜杠。</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>标题不能更长。</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>添加密码…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>打开压缩包时需要它。没有密码也能看到名称和大小。</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
