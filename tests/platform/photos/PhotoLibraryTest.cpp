#include "platform/photos/PHPhotoLibrary.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>

#include "platform/FileUrl.h"
#include "platform/photos/FileImageManager.h"
#include "platform/photos/PhotoGridModel.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

namespace pellumar::test {
namespace {

namespace fs = std::filesystem;

class PhotoLibraryTest : public testing::Test {
  protected:
    // A file that was changed some hours ago.
    fs::path add(const std::string& name, int hoursAgo) {
        fs::path file = folder / name;
        fs::create_directories(file.parent_path());
        writeFile(file, "content");
        fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
        return file;
    }
    [[nodiscard]] std::vector<PHAsset> allAssets() const {
        const std::atomic<bool> isCancelled = false;
        return library.fetchAssets(isCancelled);
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const PHAsset& asset : allAssets()) {
            names.push_back(asset.file.filename());
        }
        return names;
    }

    TemporaryFolder folder;
    PHPhotoLibrary library{{folder / "Pictures", folder / "Pictures" / "Videos", folder / "none"}};
};

TEST_F(PhotoLibraryTest, FindsWhatIsSeenOfItTheNewestFirst) {
    add("Pictures/old.JPG", 3);
    add("Pictures/Camera/caf\xe9.heic", 1);
    add("Pictures/Videos/clip.mp4", 2);
    add("Pictures/.hidden.png", 0);
    add("Pictures/.cache/small.png", 0);
    add("Pictures/notes.txt", 0);
    add("elsewhere/other.png", 0);
    fs::create_directory_symlink(folder / "elsewhere", folder / "Pictures" / "link");
    fs::create_directory_symlink(folder / "Pictures", folder / "Pictures" / "loop");
    fs::create_symlink(folder / "gone.png", folder / "Pictures" / "broken.png");
    EXPECT_EQ(names(), (std::vector<std::string>{"caf\xe9.heic", "clip.mp4", "old.JPG"}));
    const auto assets = allAssets();
    EXPECT_EQ(assets[0].mediaType, PHAssetMediaType::kImage);
    EXPECT_EQ(assets[1].mediaType, PHAssetMediaType::kVideo);
}

TEST_F(PhotoLibraryTest, IdentifiersLeadBackAndNowhereElse) {
    add("Pictures/caf\xe9.png", 1);
    add("Pictures/notes.txt", 1);
    add("elsewhere/other.png", 1);
    add("Pictures-not/other.png", 1);
    const PHAsset asset = allAssets().at(0);
    ASSERT_TRUE(library.fetchAsset(asset.localIdentifier));
    EXPECT_EQ(library.fetchAsset(asset.localIdentifier)->file, asset.file);
    for (const char* const file :
         {"elsewhere/other.png", "Pictures-not/other.png", "Pictures/notes.txt", "Pictures"}) {
        EXPECT_FALSE(library.fetchAsset(fileUrl(folder / file).toEncoded())) << file;
    }
    EXPECT_FALSE(
        library.fetchAsset(fileUrl(folder / "Pictures").toEncoded() + "/../elsewhere/other.png"));
    EXPECT_FALSE(library.fetchAsset("nonsense"));
    // What is gone is only found out by looking, which may hang.
    fs::remove(asset.file);
    EXPECT_TRUE(library.fetchAsset(asset.localIdentifier));
    EXPECT_TRUE(allAssets().empty());
    EXPECT_FALSE(library.fetchAsset(asset.localIdentifier));
}

TEST_F(PhotoLibraryTest, GridNumbersTheSelectionUpToTheLimit) {
    for (int i = 0; i < 4; ++i) {
        add((i < 2 ? "Pictures/b/" : "Pictures/A/") + std::to_string(i) + ".png", i);
    }
    PhotoGridModel grid(2);
    grid.setAssets(allAssets());
    EXPECT_EQ(grid.albumNames(), (QStringList{"All", "A", "b"}));
    const auto ordinalAt = [&grid](int row) {
        const QModelIndex index = grid.index(row);
        return grid.data(index, PhotoGridModel::kIsSelected).toBool()
                   ? grid.data(index, PhotoGridModel::kOrdinal).toInt()
                   : 0;
    };
    grid.toggle(3);
    grid.toggle(0);
    EXPECT_TRUE(grid.isFull());
    grid.toggle(1);
    EXPECT_EQ(ordinalAt(1), 0);
    EXPECT_EQ(ordinalAt(3), 1);
    EXPECT_EQ(ordinalAt(0), 2);
    // An album shows its own, and keeps what is selected elsewhere.
    grid.setAlbum(1);
    ASSERT_EQ(grid.rowCount(), 2);
    EXPECT_EQ(ordinalAt(1), 1);
    grid.toggle(1);
    grid.setAlbum(0);
    EXPECT_EQ(ordinalAt(0), 1);
    EXPECT_FALSE(grid.isFull());
    EXPECT_EQ(grid.selectedAssets().at(0).file.filename(), "0.png");
}

TEST_F(PhotoLibraryTest, OriginalsAreHandedOutWhereTheyCanBeRead) {
    const ThumbnailStore store(folder / "cache", Thumbnailers({}));
    FileImageManager images(store);
    const fs::path file = add("Pictures/a.png", 1);
    const PHAsset asset = allAssets().at(0);
    std::optional<QUrl> answer;
    const auto keep = [&answer](const std::optional<QUrl>& url) { answer = url; };
    images.requestContentEditingInput(asset, {.isNetworkAccessAllowed = true}, keep);
    EXPECT_EQ(answer, fileUrl(file));

    // It is no picture, so there is no image of it.
    int calls = 0;
    images.requestImage(asset, {}, [&calls](const auto& image, const auto& info) {
        ++calls;
        EXPECT_FALSE(image);
        EXPECT_FALSE(info);
    });
    EXPECT_EQ(calls, 1);
    fs::remove(file);
    images.requestVideo(asset, {.isNetworkAccessAllowed = true}, keep);
    EXPECT_FALSE(answer);
}

}  // namespace
}  // namespace pellumar::test
