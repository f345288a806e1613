<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AlertWords</name>
    <message>
        <source>Could not complete the operation.</source>
        <translation>تعذّر إكمال العملية.</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>خطأ</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
</context>
<context>
    <name>AssetPickerController</name>
    <message>
        <source>Choose photos and videos</source>
        <translation>اختيار صور وفيديوهات</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>إضافة</translation>
    </message>
    <message>
        <source>Looking for photos and videos</source>
        <translation>جارٍ البحث عن الصور والفيديوهات</translation>
    </message>
    <message>
        <source>There are no photos or videos in your Pictures and Videos folders</source>
        <translation>لا توجد صور أو فيديوهات في مجلدي «الصور» و«الفيديو»</translation>
    </message>
</context>
<context>
    <name>AssetTile</name>
    <message>
        <source>Video</source>
        <translation>فيديو</translation>
    </message>
    <message>
        <source>Photo</source>
        <translation>صورة</translation>
    </message>
</context>
<context>
    <name>CanKeepFiles</name>
    <message>
        <source>Keep…</source>
        <translation>احتفاظ…</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>بقاء</translation>
    </message>
</context>
<context>
    <name>ConfirmationPopupViewController</name>
    <message>
        <source>Unzip</source>
        <translation>فك الضغط</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>1 byte</source>
        <translation>بايت واحد</translation>
    </message>
</context>
<context>
    <name>FailureWords</name>
    <message>
        <source>One other file could not be added either.</source>
        <translation>تعذّرت إضافة ملف آخر أيضًا.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln other files could not be added either.</source>
        <translation>
            <numerusform>لم يتعذّر أي ملف آخر.</numerusform>
            <numerusform>تعذّرت إضافة ملف آخر أيضًا.</numerusform>
            <numerusform>تعذّرت إضافة ملفين آخرين أيضًا.</numerusform>
            <numerusform>تعذّرت إضافة %Ln ملفات أخرى أيضًا.</numerusform>
            <numerusform>تعذّرت إضافة %Ln ملفًا آخر أيضًا.</numerusform>
            <numerusform>تعذّرت إضافة %Ln ملف آخر أيضًا.</numerusform>
        </translation>
    </message>
    <message>
        <source>The disk is full. Make room on it, then try again.</source>
        <translation>القرص ممتلئ. أفرغ مساحة ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>The disk that holds %1 reports a fault. Check the disk and its cable.</source>
        <translation>القرص الذي يحوي %1 أبلغ عن عطل. افحص القرص والكابل.</translation>
    </message>
    <message>
        <source>The disk or the network folder that holds %1 does not answer. Connect it again, then try again.</source>
        <translation>القرص أو مجلد الشبكة الذي يحوي %1 لا يستجيب. أعد توصيله ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>Too many files are open on this device. Close other programs, then try again.</source>
        <translation>عدد الملفات المفتوحة على هذا الجهاز كبير جدًا. أغلق برامج أخرى ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 is in use. Close the program that uses it, then try again.</source>
        <translation>%1 قيد الاستخدام. أغلق البرنامج الذي يستخدمه ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>The name of %1 is too long for this disk.</source>
        <translation>اسم %1 أطول مما يسمح به هذا القرص.</translation>
    </message>
    <message>
        <source>%1 is not there any more. It may have been moved, renamed or deleted.</source>
        <translation>%1 لم يعد موجودًا. ربما نُقل أو أُعيدت تسميته أو حُذف.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1. Change its permissions, or ask its owner.</source>
        <translation>ليس لديك إذن بقراءة %1. غيّر أذوناته أو اسأل مالكه.</translation>
    </message>
    <message>
        <source>%1 is a folder, not a file.</source>
        <translation>%1 مجلد وليس ملفًا.</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>تعذّرت قراءة %1.</translation>
    </message>
    <message>
        <source>The disk can only be read. Unlock it, or use another one.</source>
        <translation>القرص للقراءة فقط. ألغِ قفله أو استخدم قرصًا آخر.</translation>
    </message>
    <message>
        <source>You are not allowed to write into the folder of this application. Check its permissions.</source>
        <translation>ليس لديك إذن بالكتابة في مجلد هذا التطبيق. تحقق من أذوناته.</translation>
    </message>
    <message>
        <source>%1 is larger than this disk takes a file.</source>
        <translation>%1 أكبر مما يسمح به هذا القرص للملف.</translation>
    </message>
    <message>
        <source>There is no folder for %1 any more. Try again.</source>
        <translation>لم يعد هناك مجلد لـ %1. حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>تعذّرت كتابة %1.</translation>
    </message>
    <message>
        <source>What is in %1 could not be written.</source>
        <translation>تعذّرت كتابة محتوى %1.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk for what is in %1. Delete what you do not need, then try again.</source>
        <translation>لا توجد مساحة كافية على القرص لمحتوى %1. احذف ما لا تحتاجه ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>There is not enough room: %1 are needed, %2 are free.</source>
        <translation>المساحة غير كافية: المطلوب %1 والمتاح %2.</translation>
    </message>
    <message>
        <source>%1 is neither a file nor a folder, so it cannot be packed.</source>
        <translation>%1 ليس ملفًا ولا مجلدًا، لذا لا يمكن ضغطه.</translation>
    </message>
    <message>
        <source>%1 was changed meanwhile. Wait until nothing writes to it, then try again.</source>
        <translation>تغيّر %1 في هذه الأثناء. انتظر حتى تنتهي الكتابة فيه ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 is not a file on this device. Copy it here, then try again.</source>
        <translation>%1 ليس ملفًا على هذا الجهاز. انسخه إلى هنا ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 was cut short while it was downloaded or copied. Get it again.</source>
        <translation>انقطع %1 أثناء التنزيل أو النسخ. احصل عليه من جديد.</translation>
    </message>
    <message>
        <source>%1 is damaged: it does not tell what is in it. Get it again.</source>
        <translation>%1 تالف: فهرسه مفقود. احصل عليه من جديد.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and its parts do not fit together. Get them again.</source>
        <translation>%1 جزء من أرشيف مقسّم، وأجزاؤه لا تتوافق. احصل عليها من جديد.</translation>
    </message>
    <message>
        <source>%1 is one part of an archive in several, and %2 is missing. Put all parts into one folder, then try again.</source>
        <translation>%1 جزء من أرشيف مقسّم، و%2 مفقود. ضع كل الأجزاء في مجلد واحد ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 is not a ZIP archive. If it should be one, get it again.</source>
        <translation>%1 ليس أرشيف ZIP. إن كان يُفترض أن يكون كذلك فاحصل عليه من جديد.</translation>
    </message>
    <message>
        <source>Something of the name %1 is there and cannot be replaced. Choose another name.</source>
        <translation>يوجد شيء باسم %1 ولا يمكن استبداله. اختر اسمًا آخر.</translation>
    </message>
    <message>
        <source>There are two things in %1 whose names this disk cannot tell apart: %2.</source>
        <translation>في %1 عنصران لا يميّز هذا القرص بين اسميهما: %2.</translation>
    </message>
    <message>
        <source>%2 is both a file and a folder in %1, which no disk can hold.</source>
        <translation>%2 ملف ومجلد معًا في %1، ولا يسمح بذلك أي قرص.</translation>
    </message>
    <message>
        <source>%2 in %1 points to a place outside of it. Nothing was taken out, for your safety.</source>
        <translation>%2 في %1 يشير إلى خارج الأرشيف. حفاظًا على أمانك لم يُستخرج شيء.</translation>
    </message>
    <message>
        <source>%1 would put %2 in a place that you did not choose. Nothing was taken out, for your safety.</source>
        <translation>%1 قد يضع %2 في مكان لم تختره. حفاظًا على أمانك لم يُستخرج شيء.</translation>
    </message>
    <message>
        <source>%1 needs more memory than this device can give. Close other programs, or use a larger device.</source>
        <translation>%1 يحتاج إلى ذاكرة أكبر مما في هذا الجهاز. أغلق برامج أخرى أو استخدم جهازًا أكبر.</translation>
    </message>
    <message>
        <source>%1 is protected with a password. Nothing was taken out without it.</source>
        <translation>%1 محمي بكلمة مرور. لم يُستخرج شيء من دونها.</translation>
    </message>
    <message>
        <source>The password does not fit %1. Check it, then try again.</source>
        <translation>كلمة المرور لا تطابق %1. تحقق منها ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>Passwords take a library that is not installed on this device. Install the package libnettle, then try again.</source>
        <translation>تحتاج كلمات المرور إلى مكتبة غير مثبتة على هذا الجهاز. ثبّت الحزمة libnettle ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>%1 is packed in a way that this version cannot open. Ask for a common ZIP archive.</source>
        <translation>%1 مضغوط بطريقة لا يستطيع هذا الإصدار فتحها. اطلب أرشيف ZIP عاديًا.</translation>
    </message>
    <message>
        <source>%1 is damaged. Get it again.</source>
        <translation>%1 تالف. احصل عليه من جديد.</translation>
    </message>
    <message>
        <source>%2 in %1 is damaged. Get the archive again.</source>
        <translation>%2 في %1 تالف. احصل على الأرشيف من جديد.</translation>
    </message>
    <message>
        <source>%1 contradicts itself, as if somebody meant harm. Take it only from a place that you trust.</source>
        <translation>%1 يناقض نفسه كأن أحدًا أراد الضرر. لا تأخذه إلا من مصدر تثق به.</translation>
    </message>
</context>
<context>
    <name>FeedbackViewController</name>
    <message>
        <source>How do you like Pellumar Zip?</source>
        <translation>ما رأيك في Pellumar Zip؟</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>إرسال</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>ليس الآن</translation>
    </message>
</context>
<context>
    <name>FileTableViewCell</name>
    <message>
        <source>Open %1</source>
        <translation>فتح %1</translation>
    </message>
    <message>
        <source>Share %1</source>
        <translation>مشاركة %1</translation>
    </message>
</context>
<context>
    <name>FolderState</name>
    <message>
        <source>Reading the folder…</source>
        <translation>جارٍ قراءة المجلد…</translation>
    </message>
    <message>
        <source>This folder cannot be read</source>
        <translation>لا يمكن قراءة هذا المجلد</translation>
    </message>
    <message>
        <source>There are no folders in this one</source>
        <translation>لا مجلدات داخل هذا المجلد</translation>
    </message>
    <message>
        <source>Nothing to choose here</source>
        <translation>لا شيء للاختيار هنا</translation>
    </message>
</context>
<context>
    <name>FolderWay</name>
    <message>
        <source>Up to %1</source>
        <translation>الصعود إلى %1</translation>
    </message>
</context>
<context>
    <name>JobWords</name>
    <message>
        <source>Making an archive</source>
        <translation>جارٍ إنشاء أرشيف</translation>
    </message>
    <message>
        <source>This archive was not kept</source>
        <translation>لم يُحتفظ بهذا الأرشيف</translation>
    </message>
    <message>
        <source>It goes when the app starts the next time.</source>
        <translation>سيُحذف عند تشغيل التطبيق في المرة القادمة.</translation>
    </message>
    <message>
        <source>Let it go</source>
        <translation>تجاهل</translation>
    </message>
</context>
<context>
    <name>KeptEdits</name>
    <message>
        <source>You changed %1 in another application. It is kept in %2.</source>
        <translation>غيّرت %1 في تطبيق آخر. وهو محفوظ في %2.</translation>
    </message>
    <message numerus="yes">
        <source>You changed %Ln files in other applications: %1. They are kept in %2.</source>
        <translation>
            <numerusform>لم تغيّر ملفات في تطبيقات أخرى: %1. المكان %2.</numerusform>
            <numerusform>غيّرت ملفًا في تطبيقات أخرى: %1. وهو محفوظ في %2.</numerusform>
            <numerusform>غيّرت ملفين في تطبيقات أخرى: %1. وهما محفوظان في %2.</numerusform>
            <numerusform>غيّرت %Ln ملفات في تطبيقات أخرى: %1. وهي محفوظة في %2.</numerusform>
            <numerusform>غيّرت %Ln ملفًا في تطبيقات أخرى: %1. وهي محفوظة في %2.</numerusform>
            <numerusform>غيّرت %Ln ملف في تطبيقات أخرى: %1. وهي محفوظة في %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>NotShownNote</name>
    <message>
        <source>Show hidden</source>
        <translation>إظهار المخفي</translation>
    </message>
</context>
<context>
    <name>Notice</name>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>OnboardingViewController</name>
    <message>
        <source>Open archives in a moment, from here or from any other application</source>
        <translation>افتح الأرشيفات في لحظة، من هنا أو من أي تطبيق آخر</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>اجمع الملفات والصور والفيديوهات في أرشيف واحد</translation>
    </message>
    <message>
        <source>Share what comes out, one by one or all together</source>
        <translation>شارك ما يخرج منها، واحدًا واحدًا أو كله معًا</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
</context>
<context>
    <name>PasswordField</name>
    <message>
        <source>Hide the password</source>
        <translation>إخفاء كلمة المرور</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>إظهار كلمة المرور</translation>
    </message>
</context>
<context>
    <name>PasswordViewController</name>
    <message>
        <source>Password needed</source>
        <translation>كلمة المرور مطلوبة</translation>
    </message>
    <message>
        <source>%1 is protected with a password.</source>
        <translation>%1 محمي بكلمة مرور.</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>كلمة المرور</translation>
    </message>
    <message>
        <source>This is not the password.</source>
        <translation>كلمة المرور غير صحيحة.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>PhotoGridModel</name>
    <message>
        <source>All</source>
        <translation>الكل</translation>
    </message>
</context>
<context>
    <name>PickedRow</name>
    <message>
        <source>Selected (%1)</source>
        <translation>المحدد (%1)</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>إزالة %1</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>RTL</translation>
    </message>
</context>
<context>
    <name>Remarks</name>
    <message>
        <source>There is something in front of the archive that is no part of it. It was passed over.</source>
        <translation>يسبق الأرشيفَ شيء ليس جزءًا منه، وقد تم تجاوزه.</translation>
    </message>
    <message>
        <source>There is something behind the archive that is no part of it. It was passed over.</source>
        <translation>يلي الأرشيفَ شيء ليس جزءًا منه، وقد تم تجاوزه.</translation>
    </message>
    <message>
        <source>%1 is in the archive more than once. The last one was taken.</source>
        <translation>%1 موجود في الأرشيف أكثر من مرة. أُخذ الأخير.</translation>
    </message>
    <message>
        <source>The letters of the name %1 are a guess.</source>
        <translation>حروف الاسم %1 تخمين.</translation>
    </message>
    <message>
        <source>%1 was no common file. It was taken out as one.</source>
        <translation>%1 لم يكن ملفًا عاديًا. استُخرج كملف عادي.</translation>
    </message>
    <message>
        <source>%1 asked for special rights. It did not get them.</source>
        <translation>%1 طلب أذونات خاصة ولم يحصل عليها.</translation>
    </message>
    <message>
        <source>%1 did not get its time or its permissions back.</source>
        <translation>%1 لم يستعد وقته أو أذوناته.</translation>
    </message>
    <message>
        <source>The archive holds something that its list of contents leaves out. It was passed over.</source>
        <translation>في الأرشيف شيء لا يذكره فهرسه، وقد تم تجاوزه.</translation>
    </message>
    <message>
        <source>The name %1 would lead elsewhere on other systems, and was changed a little.</source>
        <translation>الاسم %1 يقود إلى مكان آخر على أنظمة أخرى، فتغيّر قليلًا.</translation>
    </message>
    <message>
        <source>There was another %1, so it was given a number.</source>
        <translation>كان هناك %1 آخر، فأُعطي هذا رقمًا.</translation>
    </message>
    <message>
        <source>The archive is damaged. Of %2 things that were found in it, %1 are whole.</source>
        <translation>الأرشيف تالف. السليم %1 من أصل %2 مما عُثر عليه فيه.</translation>
    </message>
    <message>
        <source>Its list of contents is gone, so nobody can tell whether there was more.</source>
        <translation>فهرسه مفقود، فلا أحد يعلم إن كان فيه المزيد.</translation>
    </message>
    <message>
        <source>Something whose name cannot be read is lost.</source>
        <translation>فُقد شيء لا يمكن قراءة اسمه.</translation>
    </message>
    <message>
        <source>%1 is lost.</source>
        <translation>فُقد %1.</translation>
    </message>
    <message numerus="yes">
        <source>And %Ln more.</source>
        <translation>
            <numerusform>ولا شيء غيرها.</numerusform>
            <numerusform>وواحد آخر.</numerusform>
            <numerusform>واثنان آخران.</numerusform>
            <numerusform>و%Ln أخرى.</numerusform>
            <numerusform>و%Ln أخرى.</numerusform>
            <numerusform>و%Ln أخرى.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>RemarksViewController</name>
    <message>
        <source>Copy details</source>
        <translation>نسخ التفاصيل</translation>
    </message>
</context>
<context>
    <name>ResultsHeader</name>
    <message>
        <source>Save all to…</source>
        <translation>حفظ الكل في…</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>حُفظ في %1</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>عرض في الملفات</translation>
    </message>
    <message>
        <source>What came of %1 is still open: Back leads there.</source>
        <translation>محتوى %1 ما زال مفتوحًا: زر الرجوع يعيدك إليه.</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>عرض</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden files are not in the list. They are saved with all.</source>
        <translation>
            <numerusform>لا ملفات مخفية خارج القائمة.</numerusform>
            <numerusform>ملف مخفي واحد ليس في القائمة، ويُحفظ مع البقية.</numerusform>
            <numerusform>ملفان مخفيان ليسا في القائمة، ويُحفظان مع البقية.</numerusform>
            <numerusform>%Ln ملفات مخفية ليست في القائمة، وتُحفظ مع البقية.</numerusform>
            <numerusform>%Ln ملفًا مخفيًا ليست في القائمة، وتُحفظ مع البقية.</numerusform>
            <numerusform>%Ln ملف مخفي ليست في القائمة، وتُحفظ مع البقية.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SavingWords</name>
    <message>
        <source>Saving</source>
        <translation>جارٍ الحفظ</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files</source>
        <translation>
            <numerusform>لا ملفات</numerusform>
            <numerusform>ملف واحد</numerusform>
            <numerusform>ملفان</numerusform>
            <numerusform>%Ln ملفات</numerusform>
            <numerusform>%Ln ملفًا</numerusform>
            <numerusform>%Ln ملف</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1 to %2</source>
        <translation>حُفظ في %2: %1</translation>
    </message>
    <message>
        <source>There is not enough room in %1</source>
        <translation>لا توجد مساحة كافية في %1</translation>
    </message>
    <message>
        <source>%1 is no longer there</source>
        <translation>%1 لم يعد موجودًا</translation>
    </message>
    <message>
        <source>Nothing can be saved in %1. Choose another folder.</source>
        <translation>لا يمكن الحفظ في %1. اختر مجلدًا آخر.</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>تعذّر حفظ %1: %2</translation>
    </message>
</context>
<context>
    <name>SettingsViewController</name>
    <message>
        <source>Send usage data</source>
        <translation>إرسال بيانات الاستخدام</translation>
    </message>
    <message>
        <source>Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.</source>
        <translation>ما الأزرار المستخدمة، وهل أمكنت قراءة الأرشيفات أو إنشاؤها، لا محتواها أبدًا. عند الإيقاف لا يُحفظ شيء من ذلك ولا يُرسل. وما حُفظ من قبل قد يُرسل.</translation>
    </message>
    <message>
        <source>See more</source>
        <translation>معرفة المزيد</translation>
    </message>
    <message>
        <source>What has been kept…</source>
        <translation>ما تم حفظه…</translation>
    </message>
    <message>
        <source>More from us</source>
        <translation>المزيد منا</translation>
    </message>
    <message>
        <source>Our other applications</source>
        <translation>تطبيقاتنا الأخرى</translation>
    </message>
</context>
<context>
    <name>ShareTarget</name>
    <message>
        <source>No application opens this file</source>
        <translation>لا يوجد تطبيق يفتح هذا الملف</translation>
    </message>
    <message>
        <source>No application for mail</source>
        <translation>لا يوجد تطبيق للبريد</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>تعذّر تشغيل %1</translation>
    </message>
    <message>
        <source>Open with…</source>
        <translation>فتح باستخدام…</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>البريد</translation>
    </message>
    <message>
        <source>Bluetooth</source>
        <translation>بلوتوث</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>جهاز</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Show in files</source>
        <translation>عرض في الملفات</translation>
    </message>
    <message>
        <source>The file manager could not be opened</source>
        <translation>تعذّر فتح مدير الملفات</translation>
    </message>
    <message>
        <source>Save to…</source>
        <translation>حفظ في…</translation>
    </message>
</context>
<context>
    <name>SheetFoot</name>
    <message>
        <source>Done</source>
        <translation>تم</translation>
    </message>
</context>
<context>
    <name>SheetHeader</name>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
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
            <numerusform>بلا نجوم</numerusform>
            <numerusform>نجمة واحدة</numerusform>
            <numerusform>نجمتان</numerusform>
            <numerusform>%Ln نجوم</numerusform>
            <numerusform>%Ln نجمة</numerusform>
            <numerusform>%Ln نجمة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TabTitles</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>ضغط/فك</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
</context>
<context>
    <name>UIActivityViewController</name>
    <message>
        <source>Share</source>
        <translation>مشاركة</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
</context>
<context>
    <name>UIAlertController</name>
    <message>
        <source>Copy details</source>
        <translation>نسخ التفاصيل</translation>
    </message>
</context>
<context>
    <name>UIDocumentPickerViewController</name>
    <message>
        <source>Folder above</source>
        <translation>المجلد الأعلى</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>مجلد جديد</translation>
    </message>
</context>
<context>
    <name>UINavigationController</name>
    <message>
        <source>Back</source>
        <translation>رجوع</translation>
    </message>
</context>
<context>
    <name>UITabBarController</name>
    <message>
        <source>Sections</source>
        <translation>الأقسام</translation>
    </message>
</context>
<context>
    <name>UnzipViewController</name>
    <message>
        <source>All that is in this archive is hidden</source>
        <translation>كل ما في هذا الأرشيف مخفي</translation>
    </message>
    <message>
        <source>There was nothing in this archive</source>
        <translation>هذا الأرشيف فارغ</translation>
    </message>
</context>
<context>
    <name>UsageDataViewController</name>
    <message>
        <source>What has been kept</source>
        <translation>ما تم حفظه</translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>نسخ الكل</translation>
    </message>
</context>
<context>
    <name>UsageWords</name>
    <message>
        <source>Unzip was tapped</source>
        <translation>نُقر على «فك الضغط»</translation>
    </message>
    <message>
        <source>Zip was tapped</source>
        <translation>نُقر على «ضغط»</translation>
    </message>
    <message>
        <source>Files was tapped</source>
        <translation>نُقر على «ملفات»</translation>
    </message>
    <message>
        <source>Photos was tapped</source>
        <translation>نُقر على «صور»</translation>
    </message>
    <message>
        <source>An archive came from another application</source>
        <translation>جاء أرشيف من تطبيق آخر</translation>
    </message>
    <message>
        <source>An archive was made</source>
        <translation>أُنشئ أرشيف</translation>
    </message>
    <message>
        <source>An archive could not be made</source>
        <translation>تعذّر إنشاء أرشيف</translation>
    </message>
    <message>
        <source>An archive was unzipped</source>
        <translation>فُك ضغط أرشيف</translation>
    </message>
    <message>
        <source>An archive could not be unzipped</source>
        <translation>تعذّر فك ضغط أرشيف</translation>
    </message>
    <message>
        <source>The introduction was shown</source>
        <translation>عُرضت المقدمة</translation>
    </message>
    <message>
        <source>The introduction was left</source>
        <translation>أُغلقت المقدمة</translation>
    </message>
    <message>
        <source>The application was rated</source>
        <translation>قُيّم التطبيق</translation>
    </message>
    <message>
        <source>More from us was tapped</source>
        <translation>نُقر على «المزيد منا»</translation>
    </message>
    <message>
        <source>No event waits to be sent.</source>
        <translation>لا أحداث تنتظر الإرسال.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln events. They stay on this device until they are sent.</source>
        <translation>
            <numerusform>لا أحداث.</numerusform>
            <numerusform>حدث واحد. يبقى على هذا الجهاز حتى يُرسل.</numerusform>
            <numerusform>حدثان. يبقيان على هذا الجهاز حتى يُرسلا.</numerusform>
            <numerusform>%Ln أحداث. تبقى على هذا الجهاز حتى تُرسل.</numerusform>
            <numerusform>%Ln حدثًا. تبقى على هذا الجهاز حتى تُرسل.</numerusform>
            <numerusform>%Ln حدث. تبقى على هذا الجهاز حتى تُرسل.</numerusform>
        </translation>
    </message>
    <message>
        <source>This installation</source>
        <translation>هذا التثبيت</translation>
    </message>
    <message>
        <source>No identifier</source>
        <translation>لا معرّف</translation>
    </message>
    <message>
        <source>One is made up when an event is kept.</source>
        <translation>يُنشأ معرّف عند حفظ حدث.</translation>
    </message>
    <message>
        <source>Identifier</source>
        <translation>المعرّف</translation>
    </message>
    <message>
        <source>%1. Made up; goes with every event.</source>
        <translation>%1. مُختلق، ويرافق كل حدث.</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>الجلسات</translation>
    </message>
    <message>
        <source>%1, the last on %2</source>
        <translation>%1، آخرها في %2</translation>
    </message>
    <message>
        <source>Properties, which go with every event</source>
        <translation>خصائص ترافق كل حدث</translation>
    </message>
    <message>
        <source>Groups that this installation belongs to</source>
        <translation>مجموعات ينتمي إليها هذا التثبيت</translation>
    </message>
    <message>
        <source>What was lost, by the reason</source>
        <translation>ما فُقد، بحسب السبب</translation>
    </message>
    <message>
        <source>What has been kept cannot be read.</source>
        <translation>لا يمكن قراءة ما تم حفظه.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln times</source>
        <translation>
            <numerusform>ولا مرة</numerusform>
            <numerusform>مرة واحدة</numerusform>
            <numerusform>مرتان</numerusform>
            <numerusform>%Ln مرات</numerusform>
            <numerusform>%Ln مرة</numerusform>
            <numerusform>%Ln مرة</numerusform>
        </translation>
    </message>
    <message>
        <source>How often, which is not sent</source>
        <translation>عدد المرات، ولا يُرسل</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>الأحداث</translation>
    </message>
</context>
<context>
    <name>ViewController</name>
    <message>
        <source>What shall it be?</source>
        <translation>ماذا تريد أن تفعل؟</translation>
    </message>
    <message>
        <source>Your files stay on this device.</source>
        <translation>ملفاتك تبقى على هذا الجهاز.</translation>
    </message>
    <message>
        <source>Unzip</source>
        <translation>فك الضغط</translation>
    </message>
    <message>
        <source>Open an archive and take out what is in it</source>
        <translation>افتح أرشيفًا واستخرج ما فيه</translation>
    </message>
    <message>
        <source>Zip</source>
        <translation>ضغط</translation>
    </message>
    <message>
        <source>Put files, photos and videos into one archive</source>
        <translation>اجمع الملفات والصور والفيديوهات في أرشيف واحد</translation>
    </message>
</context>
<context>
    <name>ZipViewController</name>
    <message>
        <source>Where is what you want to put into the archive?</source>
        <translation>أين ما تريد وضعه في الأرشيف؟</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>ملفات</translation>
    </message>
    <message>
        <source>Anything on this device, many at once</source>
        <translation>أي شيء على هذا الجهاز، عدة ملفات معًا</translation>
    </message>
    <message>
        <source>Photos and videos</source>
        <translation>صور وفيديوهات</translation>
    </message>
    <message>
        <source>From your Pictures and Videos folders</source>
        <translation>من مجلدي «الصور» و«الفيديو»</translation>
    </message>
</context>
<context>
    <name>pellumar::AssetPickerController</name>
    <message numerus="yes">
        <source>%Ln selected</source>
        <translation>
            <numerusform>لم يُحدد شيء</numerusform>
            <numerusform>حُدد واحد</numerusform>
            <numerusform>حُدد اثنان</numerusform>
            <numerusform>حُدد %Ln</numerusform>
            <numerusform>حُدد %Ln</numerusform>
            <numerusform>حُدد %Ln</numerusform>
        </translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 من %L2</translation>
    </message>
</context>
<context>
    <name>pellumar::ConfirmationPopupViewController</name>
    <message>
        <source>Do you want to unzip %1?</source>
        <translation>هل تريد فك ضغط %1؟</translation>
    </message>
</context>
<context>
    <name>pellumar::FileTableViewCell</name>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>لا عناصر</numerusform>
            <numerusform>عنصر واحد</numerusform>
            <numerusform>عنصران</numerusform>
            <numerusform>%Ln عناصر</numerusform>
            <numerusform>%Ln عنصرًا</numerusform>
            <numerusform>%Ln عنصر</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::FolderModel</name>
    <message>
        <source>1 file of another kind</source>
        <translation>ملف واحد من نوع آخر</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files of other kinds</source>
        <translation>
            <numerusform>لا ملفات من نوع آخر</numerusform>
            <numerusform>ملف واحد من نوع آخر</numerusform>
            <numerusform>ملفان من نوع آخر</numerusform>
            <numerusform>%Ln ملفات من أنواع أخرى</numerusform>
            <numerusform>%Ln ملفًا من أنواع أخرى</numerusform>
            <numerusform>%Ln ملف من أنواع أخرى</numerusform>
        </translation>
    </message>
    <message>
        <source>1 hidden item</source>
        <translation>عنصر مخفي واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>لا عناصر مخفية</numerusform>
            <numerusform>عنصر مخفي واحد</numerusform>
            <numerusform>عنصران مخفيان</numerusform>
            <numerusform>%Ln عناصر مخفية</numerusform>
            <numerusform>%Ln عنصرًا مخفيًا</numerusform>
            <numerusform>%Ln عنصر مخفي</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 and %2 are not shown</source>
        <translation>غير معروض: %1، و%2</translation>
    </message>
    <message>
        <source>%1 is not shown</source>
        <translation>غير معروض: %1</translation>
    </message>
    <message>
        <source>%1 are not shown</source>
        <translation>غير معروض: %1</translation>
    </message>
</context>
<context>
    <name>pellumar::HandedOverArchives</name>
    <message>
        <source>“%1” has its ending in capital letters. Rename it to end in “.zip”, and open it again.</source>
        <translation>امتداد «%1» بأحرف كبيرة. أعد تسميته لينتهي بـ ‎«.zip»‎ ثم افتحه من جديد.</translation>
    </message>
    <message>
        <source>“%1” is not named as a ZIP archive. If it is one, rename it to end in “.zip”; archives of other kinds need another application.</source>
        <translation>اسم «%1» ليس لأرشيف ZIP. إن كان كذلك فأعد تسميته لينتهي بـ ‎«.zip»‎؛ أما الأنواع الأخرى فتحتاج إلى تطبيق آخر.</translation>
    </message>
    <message>
        <source>“%1” is next, when this is done</source>
        <translation>التالي بعد هذا: «%1»</translation>
    </message>
    <message numerus="yes">
        <source>%Ln archives are next, when this is done</source>
        <translation>
            <numerusform>لا أرشيفات بعد هذا</numerusform>
            <numerusform>التالي بعد هذا أرشيف واحد</numerusform>
            <numerusform>التالي بعد هذا أرشيفان</numerusform>
            <numerusform>التالي بعد هذا %Ln أرشيفات</numerusform>
            <numerusform>التالي بعد هذا %Ln أرشيفًا</numerusform>
            <numerusform>التالي بعد هذا %Ln أرشيف</numerusform>
        </translation>
    </message>
    <message>
        <source>Cannot unzip this</source>
        <translation>لا يمكن فك ضغط هذا</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
</context>
<context>
    <name>pellumar::Notice</name>
    <message>
        <source>Copied</source>
        <translation>تم النسخ</translation>
    </message>
</context>
<context>
    <name>pellumar::PickerPlaces</name>
    <message>
        <source>Home</source>
        <translation>المجلد الشخصي</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>التنزيلات</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>المستندات</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>الصور</translation>
    </message>
    <message>
        <source>Videos</source>
        <translation>الفيديو</translation>
    </message>
</context>
<context>
    <name>pellumar::RemarksViewController</name>
    <message>
        <source>Not everything could be rescued</source>
        <translation>لم يمكن إنقاذ كل شيء</translation>
    </message>
    <message numerus="yes">
        <source>%Ln remarks</source>
        <translation>
            <numerusform>لا ملاحظات</numerusform>
            <numerusform>ملاحظة واحدة</numerusform>
            <numerusform>ملاحظتان</numerusform>
            <numerusform>%Ln ملاحظات</numerusform>
            <numerusform>%Ln ملاحظة</numerusform>
            <numerusform>%Ln ملاحظة</numerusform>
        </translation>
    </message>
    <message>
        <source>What is whole stands in the list.</source>
        <translation>السليم موجود في القائمة.</translation>
    </message>
    <message>
        <source>The archive was opened all the same.</source>
        <translation>ومع ذلك فُتح الأرشيف.</translation>
    </message>
</context>
<context>
    <name>pellumar::SettingsViewController</name>
    <message>
        <source>Settings</source>
        <translation>الإعدادات</translation>
    </message>
</context>
<context>
    <name>pellumar::UIActivityViewController</name>
    <message>
        <source>%1 could not be handed on: %2</source>
        <translation>تعذّر تسليم %1: %2</translation>
    </message>
    <message>
        <source>Nothing to share</source>
        <translation>لا شيء للمشاركة</translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>لا عناصر</numerusform>
            <numerusform>عنصر واحد</numerusform>
            <numerusform>عنصران</numerusform>
            <numerusform>%Ln عناصر</numerusform>
            <numerusform>%Ln عنصرًا</numerusform>
            <numerusform>%Ln عنصر</numerusform>
        </translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>لحظة من فضلك…</translation>
    </message>
    <message>
        <source>This file is no longer there.</source>
        <translation>هذا الملف لم يعد موجودًا.</translation>
    </message>
    <message>
        <source>These files are no longer there.</source>
        <translation>هذه الملفات لم تعد موجودة.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>مجلد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more no longer there</source>
        <translation>
            <numerusform>كل شيء موجود</numerusform>
            <numerusform>واحد آخر لم يعد موجودًا</numerusform>
            <numerusform>اثنان آخران لم يعودا موجودين</numerusform>
            <numerusform>%Ln أخرى لم تعد موجودة</numerusform>
            <numerusform>%Ln أخرى لم تعد موجودة</numerusform>
            <numerusform>%Ln أخرى لم تعد موجودة</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pellumar::UIDocumentPickerViewController</name>
    <message>
        <source>This folder could not be read to its end</source>
        <translation>تعذّرت قراءة هذا المجلد كاملًا</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>مجلد جديد</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>A name has no slash</source>
        <translation>الاسم لا يحتوي على شرطة مائلة</translation>
    </message>
    <message>
        <source>A name is no longer than this</source>
        <translation>لا يمكن أن يكون الاسم أطول</translation>
    </message>
    <message>
        <source>Create</source>
        <translation>إنشاء</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>A folder cannot be called %1</source>
        <translation>لا يمكن تسمية مجلد %1</translation>
    </message>
    <message>
        <source>%1 could not be created: %2</source>
        <translation>تعذّر إنشاء %1: %2</translation>
    </message>
    <message>
        <source>Copying</source>
        <translation>جارٍ النسخ</translation>
    </message>
    <message>
        <source>Could not be opened: %1</source>
        <translation>تعذّر الفتح: %1</translation>
    </message>
    <message>
        <source>Save to</source>
        <translation>حفظ في</translation>
    </message>
    <message>
        <source>Choose an archive</source>
        <translation>اختيار أرشيف</translation>
    </message>
    <message>
        <source>Choose files</source>
        <translation>اختيار ملفات</translation>
    </message>
    <message>
        <source>Save here</source>
        <translation>حفظ هنا</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Add (%L1)</source>
        <translation>إضافة (%L1)</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>إضافة</translation>
    </message>
</context>
<context>
    <name>pellumar::UnzipViewController</name>
    <message>
        <source>Unzipped Files</source>
        <translation>الملفات المستخرجة</translation>
    </message>
    <message>
        <source>Share All</source>
        <translation>مشاركة الكل</translation>
    </message>
    <message numerus="yes">
        <source>%Ln hidden items</source>
        <translation>
            <numerusform>لا عناصر مخفية</numerusform>
            <numerusform>عنصر مخفي واحد</numerusform>
            <numerusform>عنصران مخفيان</numerusform>
            <numerusform>%Ln عناصر مخفية</numerusform>
            <numerusform>%Ln عنصرًا مخفيًا</numerusform>
            <numerusform>%Ln عنصر مخفي</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln items</source>
        <translation>
            <numerusform>لا عناصر</numerusform>
            <numerusform>عنصر واحد</numerusform>
            <numerusform>عنصران</numerusform>
            <numerusform>%Ln عناصر</numerusform>
            <numerusform>%Ln عنصرًا</numerusform>
            <numerusform>%Ln عنصر</numerusform>
        </translation>
    </message>
    <message>
        <source>Unzipped files</source>
        <translation>الملفات المستخرجة</translation>
    </message>
    <message>
        <source>Nothing was kept</source>
        <translation>لم يُحتفظ بشيء</translation>
    </message>
    <message>
        <source>What was unzipped goes when you leave.</source>
        <translation>ما فُك ضغطه يُحذف عند الخروج.</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>خروج</translation>
    </message>
</context>
<context>
    <name>pellumar::ViewController</name>
    <message>
        <source>Zip/Unzip</source>
        <translation>ضغط/فك</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>جارٍ ضغط الملفات</translation>
    </message>
    <message>
        <source>Extracting an archive</source>
        <translation>جارٍ استخراج أرشيف</translation>
    </message>
    <message>
        <source>Unzipping</source>
        <translation>جارٍ فك الضغط</translation>
    </message>
    <message>
        <source>Rescue what is whole</source>
        <translation>إنقاذ السليم</translation>
    </message>
    <message>
        <source>Rescuing</source>
        <translation>جارٍ الإنقاذ</translation>
    </message>
</context>
<context>
    <name>pellumar::WindowReviewPrompt</name>
    <message>
        <source>Do you like Pellumar Zip?</source>
        <translation>هل يعجبك Pellumar Zip؟</translation>
    </message>
    <message>
        <source>A rating in the software centre helps others find it.</source>
        <translation>التقييم في مركز البرامج يساعد الآخرين في العثور عليه.</translation>
    </message>
    <message>
        <source>Rate</source>
        <translation>تقييم</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>ليس الآن</translation>
    </message>
</context>
<context>
    <name>pellumar::ZipViewController</name>
    <message>
        <source>Zip Files</source>
        <translation>ضغط ملفات</translation>
    </message>
    <message>
        <source>Fetching media</source>
        <translation>جارٍ جلب الوسائط</translation>
    </message>
    <message>
        <source>Keep the app open</source>
        <translation>أبقِ التطبيق مفتوحًا</translation>
    </message>
    <message>
        <source>Failed to fetch items. Verify your Internet connection and try again.</source>
        <translation>تعذّر جلب العناصر. تحقق من اتصالك بالإنترنت ثم حاول مجددًا.</translation>
    </message>
    <message>
        <source>Compressing files</source>
        <translation>جارٍ ضغط الملفات</translation>
    </message>
    <message>
        <source>Zip Images</source>
        <translation>ضغط صور</translation>
    </message>
    <message>
        <source>Compressing images</source>
        <translation>جارٍ ضغط الصور</translation>
    </message>
    <message>
        <source>Please, give a title to your zip file</source>
        <translation>أدخل عنوانًا لملف zip</translation>
    </message>
    <message>
        <source>Filename</source>
        <translation>اسم الملف</translation>
    </message>
    <message>
        <source>A title cannot have a slash in it.</source>
        <translation>لا يمكن أن يحتوي العنوان على شرطة مائلة.</translation>
    </message>
    <message>
        <source>A title cannot be longer than this.</source>
        <translation>لا يمكن أن يكون العنوان أطول.</translation>
    </message>
    <message>
        <source>Add a password…</source>
        <translation>إضافة كلمة مرور…</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>كلمة المرور</translation>
    </message>
    <message>
        <source>Whoever opens the archive needs it. Names and sizes can be seen without it.</source>
        <translation>ستلزم لفتح الأرشيف. الأسماء والأحجام تظهر من دونها.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
</TS>
