#include <gtest/gtest.h>

#include <QSettings>

#include "platform/desktop/SKStoreReviewController.h"
#include "platform/desktop/SoftwareCentre.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

class RecordingOpener : public UrlOpener {
  public:
    void open(const QUrl& url) override { opened.append(url); }
    QList<QUrl> opened;
};

// Is answered at once, or never.
class QuickPrompt : public ReviewPrompt {
  public:
    void ask(Answered answered) override {
        ++asked;
        if (answer) {
            answered(*answer);
        }
    }
    int asked = 0;
    std::optional<bool> answer = false;
};

class StoreReviewTest : public testing::Test {
  protected:
    // In a process of its own, as it were.
    void request() {
        QSettings memory(QString::fromStdString(folder / "memory.ini"), QSettings::IniFormat);
        SKStoreReviewController(
            memory, prompt, opener, [this] { return now; }, [this] { return hasStore; })
            .requestReview();
    }
    void requestDaily(int days) {
        for (int day = 0; day < days; ++day) {
            request();
            now = now.addDays(1);
        }
    }

    TemporaryFolder folder;
    QuickPrompt prompt;
    RecordingOpener opener;
    QDateTime now{QDate(2026, 3, 1), QTime(12, 0), Qt::UTC};
    bool hasStore = true;
};

TEST_F(StoreReviewTest, NotNowIsRememberedForMonths) {
    requestDaily(120);
    EXPECT_EQ(prompt.asked, 1);
    requestDaily(240);
    EXPECT_EQ(prompt.asked, 3);
    // The first of the three is less than a year old, then it is not.
    requestDaily(5);
    EXPECT_EQ(prompt.asked, 3);
    request();
    EXPECT_EQ(prompt.asked, 4);
    EXPECT_TRUE(opener.opened.isEmpty());
}

TEST_F(StoreReviewTest, WhoWentToRateIsNotAskedAgain) {
    prompt.answer = true;
    requestDaily(1000);
    EXPECT_EQ(prompt.asked, 1);
    ASSERT_EQ(opener.opened.size(), 1);
    EXPECT_EQ(opener.opened[0].toEncoded(), "appstream:org.pellumar.Zip");
}

TEST_F(StoreReviewTest, OnlyAnAnswerCounts) {
    hasStore = false;
    requestDaily(5);
    EXPECT_EQ(prompt.asked, 0);
    hasStore = true;
    prompt.answer.reset();
    requestDaily(5);
    EXPECT_EQ(prompt.asked, 5);
}

TEST_F(StoreReviewTest, FindsTheStoreInTheDesktopsLists) {
    qputenv("XDG_DATA_HOME", (folder / "data").c_str());
    qputenv("XDG_DATA_DIRS", (folder / "none").c_str());
    EXPECT_FALSE(SoftwareCentre::isInstalled());
    std::filesystem::create_directories(folder / "data" / "applications");
    writeFile(folder / "data" / "applications" / "mimeinfo.cache",
              "[MIME Cache]\nx-scheme-handler/appstream=org.gnome.Software.desktop;\n");
    EXPECT_TRUE(SoftwareCentre::isInstalled());
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("XDG_DATA_DIRS");
}

}  // namespace
}  // namespace pellumar::test
