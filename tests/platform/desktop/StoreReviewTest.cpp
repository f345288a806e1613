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

class StoreReviewTest : public testing::Test {
  protected:
    void request() {
        QSettings memory(QString::fromStdString(folder / "memory.ini"), QSettings::IniFormat);
        SKStoreReviewController(
            memory, opener, [this] { return now; }, [this] { return hasStore; })
            .requestReview();
    }

    TemporaryFolder folder;
    RecordingOpener opener;
    QDateTime now{QDate(2026, 3, 1), QTime(12, 0), Qt::UTC};
    bool hasStore = true;
};

TEST_F(StoreReviewTest, AsksThreeTimesAYearAcrossLaunches) {
    for (int day = 0; day < 10; ++day) {
        request();
        now = now.addDays(1);
    }
    EXPECT_EQ(opener.opened, QList<QUrl>(3, QUrl("appstream:org.pellumar.Zip")));
    // The first of the three is a year old, the others are not.
    now = now.addDays(355);
    request();
    request();
    EXPECT_EQ(opener.opened.size(), 4);
}

TEST_F(StoreReviewTest, AttemptsWithoutAStoreDoNotCount) {
    hasStore = false;
    for (int i = 0; i < 5; ++i) {
        request();
    }
    EXPECT_TRUE(opener.opened.isEmpty());
    hasStore = true;
    request();
    EXPECT_EQ(opener.opened.size(), 1);
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
