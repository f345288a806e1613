#include "app/Language.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QGuiApplication>

#include "gui/ScreenFixture.h"
#include "platform/DisplayText.h"
#include "platform/FileUrl.h"
#include "platform/kit/UIAlertController.h"
#include "screens/PasswordViewController.h"
#include "screens/UnzipViewController.h"
#include "screens/ZipViewController.h"
#include "support/FileContents.h"

namespace pellumar::test {
namespace {

// What is shown, and what is written down beside it, of a user who unzips, fails to, and zips.
class Journey : public ScreenFixture {
  public:
    Journey() {
        const auto home = showHome();
        home->unzipTapped();
        settle();
        window.topViewController()->goBack();
        settle();
        home->didConfirmUnzip(makeArchive("a.zip"));
        settle();
        shown << stack()->topViewController()->title();
        stack()->popViewController(false);
        writeFile(folder / "none.zip", "no archive");
        home->didConfirmUnzip(fileUrl(folder / "none.zip"));
        settle();
        shown << answerAlert()->message();
        home->zipTapped();
        settle();
        writeFile(folder / "b.txt", "text");
        const auto composer =
            std::dynamic_pointer_cast<ZipViewController>(stack()->topViewController());
        composer->documentPickerDidPickDocuments({fileUrl(folder / "b.txt")});
        settle();
        shown << answerAlert()->message();
        for (const auto& event : events.events()) {
            written << event.name;
            const QVariantMap parameters = event.parameters.value_or(QVariantMap());
            for (auto each = parameters.begin(); each != parameters.end(); ++each) {
                written << each.key() + '=' + each->toString();
            }
        }
        for (const QString& line : console.lines()) {
            written << QString(line).replace(QString::fromStdString(folder.path()), "FOLDER");
        }
    }

    QStringList shown;
    QStringList written;

  private:
    void TestBody() override {}

    std::shared_ptr<UIAlertController> answerAlert() {
        auto alert = presented<UIAlertController>();
        alert->choose(0);
        settle();
        return alert;
    }
};

TEST(Language, ChangesWhatIsShownAndNothingThatIsMeasuredOrWritten) {
    const Journey english;
    EXPECT_EQ(english.shown,
              (QStringList{"Unzipped Files",
                           "Could not complete the operation.",
                           "Please, give a title to your zip file"}));
    EXPECT_TRUE(english.written.contains("failed_to_unzip"))
        << qUtf8Printable(english.written.join('\n'));
    for (const char* const name : {"ar", "de", "es", "fr", "ja", "pt", "zh_Hans"}) {
        const Language language{QLocale(name)};
        const Journey other;
        EXPECT_EQ(other.written, english.written) << name;
        for (qsizetype i = 0; i < english.shown.size(); ++i) {
            EXPECT_NE(other.shown[i], english.shown[i]) << name;
        }
    }
}

TEST(Language, IsTheFirstOfThoseTheUserReadsThatThereIs) {
    const struct {
        const char* locale;
        const char* text;
    } tests[] = {{"C", "Cancel"},
                 {"en_GB", "Cancel"},
                 {"nl_NL", "Cancel"},
                 {"de_AT", "Abbrechen"},
                 {"pt_PT", "Cancelar"},
                 {"fr_CA", "Annuler"},
                 {"zh_CN", "取消"},
                 {"zh_SG", "取消"},
                 {"zh_TW", "Cancel"}};
    for (const auto& [locale, text] : tests) {
        const Language language{QLocale(locale)};
        EXPECT_EQ(QCoreApplication::translate("SheetHeader", "Cancel"), text) << locale;
    }
}

TEST(Language, OfTheRightToLeftTurnsTheWindowAndKeepsNamesApart) {
    const QString arabicName = QString::fromUtf16(u"\u0635\u0648\u0631.zip");
    const QString isolatedName = QChar(0x2068) + arabicName + QChar(0x2069);
    EXPECT_FALSE(QGuiApplication::isRightToLeft());
    EXPECT_EQ(isolated("a.zip"), "a.zip");
    EXPECT_EQ(isolated(arabicName), isolatedName);
    const Language arabic{QLocale(QLocale::Arabic)};
    EXPECT_TRUE(QGuiApplication::isRightToLeft());
    EXPECT_EQ(isolated("a.zip"), QString::fromUtf16(u"\u2068a.zip\u2069"));
    EXPECT_EQ(isolated(arabicName), isolatedName);
}

}  // namespace
}  // namespace pellumar::test
