#include "platform/documents/ThumbnailStore.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileUrl.h"
#include "platform/documents/ThumbnailProvider.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class ThumbnailStoreTest : public testing::Test {
  protected:
    // Qt cannot name every file, so the picture is moved into place.
    void paint(const std::string& name, QSize size, const QColor& color) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const fs::path path = folder / "painted.png";
        ASSERT_TRUE(image.save(QString::fromStdString(path)));
        fs::rename(path, folder / name);
    }
    [[nodiscard]] std::vector<fs::path> kept(const char* size) const {
        std::vector<fs::path> files;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(folder / "cache" / size, none)) {
            files.push_back(entry.path());
        }
        return files;
    }

    TemporaryFolder folder;
    ThumbnailStore store{folder / "cache", Thumbnailers({})};
};

TEST_F(ThumbnailStoreTest, KeepsAndRenewsAPictureOfAnyName) {
    paint("caf\xe9 1.png", {800, 400}, Qt::red);
    const fs::path file = folder / "caf\xe9 1.png";
    EXPECT_EQ(store.thumbnail(file, 100).size(), QSize(100, 50));
    ASSERT_EQ(kept("normal").size(), 1U);
    EXPECT_EQ(fs::status(kept("normal").front()).permissions(), fs::perms(0600));
    EXPECT_EQ(store.thumbnail(file, 200).size(), QSize(200, 100));
    EXPECT_EQ(QImage(QString::fromStdString(kept("large").at(0))).size(), QSize(256, 128));

    // What is kept is what is shown, until the file changes.
    QImage marked(QString::fromStdString(kept("normal").front()));
    marked.fill(Qt::blue);
    ASSERT_TRUE(marked.save(QString::fromStdString(kept("normal").front())));
    EXPECT_EQ(store.thumbnail(file, 128).pixelColor(5, 5), QColor(Qt::blue));
    fs::last_write_time(file, fs::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_EQ(store.thumbnail(file, 128).pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(kept("normal").size(), 1U);
}

TEST_F(ThumbnailStoreTest, KeepsNothingOfWhatIsSmallOrNoPicture) {
    paint("small.png", {20, 10}, Qt::red);
    paint("thin.png", {4000, 1}, Qt::red);
    writeFile(folder / "text.png", "no picture");
    EXPECT_EQ(store.thumbnail(folder / "small.png", 100).size(), QSize(20, 10));
    EXPECT_TRUE(store.thumbnail(folder / "text.png", 100).isNull());
    EXPECT_TRUE(store.thumbnail(folder / "gone.png", 100).isNull());
    EXPECT_TRUE(store.thumbnail(folder.path(), 100).isNull());
    EXPECT_TRUE(kept("normal").empty());
    EXPECT_EQ(store.thumbnail(folder / "thin.png", 100).size(), QSize(100, 1));
}

TEST_F(ThumbnailStoreTest, IsFoundByTheNameThatOthersWouldLookFor) {
    paint("me.png", {800, 400}, Qt::red);
    static_cast<void>(store.thumbnail(folder / "me.png", 128));
    ASSERT_EQ(kept("normal").size(), 1U);
    const QImage image(QString::fromStdString(kept("normal").front()));
    const QByteArray uri = "file://" + QByteArray::fromStdString(folder / "me.png");
    EXPECT_EQ(image.text("Thumb::URI"), uri);
    EXPECT_EQ(kept("normal").front().stem().string(),
              QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex().toStdString());
}

TEST_F(ThumbnailStoreTest, ProgramsOfTheDesktopMakeWhatWeCannotRead) {
    paint("poster", {300, 150}, Qt::green);
    writeFile(
        folder / "make",
        "#!/bin/sh\n[ \"$1\" = 256 ] && cp \"" + (folder / "poster").string() + "\" \"$3\"\n");
    fs::permissions(folder / "make", fs::perms::owner_all);
    fs::create_directory(folder / "thumbnailers");
    const auto describe = [this](const std::string& name, const std::string& command) {
        writeFile(folder / "thumbnailers" / name,
                  "[Thumbnailer Entry]\nExec=" + command + "\nMimeType=video/mp4;image/heif;\n");
    };
    describe("a.thumbnailer", "does-not-exist %i %o");
    describe("b.thumbnailer", (folder / "make").string() + " %s %i %o");
    describe("c.thumbnailer", "false");
    const ThumbnailStore aided(folder / "cache", Thumbnailers({folder / "thumbnailers"}));
    for (const char* const name : {"100% \"film\".mp4", "photo.heic"}) {
        writeFile(folder / name, "not to be read by us");
        const QImage picture = aided.thumbnail(folder / name, 256);
        EXPECT_EQ(picture.size(), QSize(256, 128)) << name;
        EXPECT_TRUE(aided.thumbnail(folder / "other.webm", 256).isNull());
    }
    EXPECT_EQ(kept("large").size(), 2U);
    fs::remove(folder / "make");
    EXPECT_FALSE(aided.thumbnail(folder / "photo.heic", 200).isNull());
}

// The engine listens only once it has the response; by then, the picture may be made.
TEST_F(ThumbnailStoreTest, APictureThatIsMadeBeforeAnyoneListensIsToldOf) {
    int none = 0;
    const QCoreApplication application(none, nullptr);
    paint("a.png", {8, 8}, Qt::red);
    ThumbnailProvider provider(store);
    const QString source = ThumbnailProvider::source(fileUrl(folder / "a.png"));
    const std::unique_ptr<QQuickImageResponse> response(
        provider.requestImageResponse(source.section('/', 3), {64, 64}));
    ASSERT_TRUE(provider.waitForDone(std::chrono::seconds(30)));
    int told = 0;
    QObject::connect(response.get(), &QQuickImageResponse::finished, [&told] { ++told; });
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace pellumar::test
