#include "screens/PhotoSource.h"

#include <QImage>
#include <set>

#include "gui/ScreenFixture.h"
#include "platform/FileUrl.h"
#include "platform/gui/QtImage.h"
#include "platform/kit/UIAlertController.h"
#include "platform/photos/ImagePickerController.h"
#include "screens/ZipViewController.h"

namespace pellumar::test {
namespace {

// Keeps the requests; the test answers them.
class ScriptedImages : public PHImageManager {
  public:
    void requestContentEditingInput(const PHAsset& /*photo*/,
                                    PHRequestOptions options,
                                    const FileAnswer& answer) override {
        isNetworkAllowed.append(options.isNetworkAccessAllowed);
        files.append(answer);
    }
    void requestVideo(const PHAsset& photo,
                      PHRequestOptions options,
                      const FileAnswer& answer) override {
        requestContentEditingInput(photo, options, answer);
    }
    void requestImage(const PHAsset& /*asset*/,
                      PHRequestOptions options,
                      const ImageAnswer& answer) override {
        isNetworkAllowed.append(options.isNetworkAccessAllowed);
        pictures.append(answer);
    }

    QList<bool> isNetworkAllowed;
    QList<FileAnswer> files;
    QList<ImageAnswer> pictures;
};

class PhotoSourceTest : public ScreenFixture {
  protected:
    PhotoSourceTest() {
        std::filesystem::create_directory(folder / "Pictures");
        std::filesystem::create_directory(folder / "Videos");
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::red);
        for (const char* const name : {"one.png", "two.png"}) {
            image.save(QString::fromStdString(folder / "Pictures" / name));
        }
        image.save(QString::fromStdString(folder / "Videos" / "clip.mp4"), "PNG");
    }

    // The composer, with a picker of this kind that has all the assets there are.
    template <typename Picker>
    std::shared_ptr<Picker> openPicker() {
        home_ = showHome();
        composer = makeController<ZipViewController>(services);
        stack()->pushViewController(composer, true);
        composer->fromPhotosTapped();
        settle();
        return presented<Picker>();
    }
    static void pickAll(AssetPickerController& picker) {
        for (int row = 0; row < picker.model()->rowCount(); ++row) {
            picker.assetTapped(row);
        }
        picker.confirmTapped();
    }
    [[nodiscard]] std::shared_ptr<UIAlertController> nextAlert() {
        EXPECT_TRUE(waitUntil([this] { return presented<UIAlertController>() != nullptr; }));
        return presented<UIAlertController>();
    }

    const PHAsset photo{"p", PHAssetMediaType::kImage, "/p.png", 0};
    const PHAsset video{"v", PHAssetMediaType::kVideo, "/v.mp4", 0};
    ScriptedImages scripted;
    PhotoSource source{{photoLibrary, scripted, mainQueue, backgroundQueue, folders}, console};
    std::shared_ptr<ZipViewController> composer;

  private:
    std::shared_ptr<ViewController> home_;
};

TEST_F(PhotoSourceTest, PhotosAndVideosBecomeASharedArchive) {
    const auto picker = openPicker<PHPickerViewController>();
    ASSERT_TRUE(picker);
    EXPECT_EQ(picker->model()->limit(), 100);
    EXPECT_EQ(picker->model()->rowCount(), 3);
    picker->confirmTapped();
    EXPECT_TRUE(presented<PHPickerViewController>()) << "with nothing selected";
    pickAll(*picker);
    EXPECT_TRUE(waitUntil([this] { return composer->hud() != nullptr; }));
    EXPECT_EQ(composer->hud()->label(), "Fetching media");
    EXPECT_EQ(composer->hud()->detailsLabel(), "Keep the app open");
    EXPECT_FALSE(composer->hud()->isDeterminate());
    const auto alert = nextAlert();
    ASSERT_TRUE(alert);
    EXPECT_TRUE(composer->hud()->isHidden());
    EXPECT_EQ(alert->alertTitle(), "Zip Files");
    alert->setText("Trip");
    alert->choose(0);
    settle();
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->activityItems().first().fileName(), "Trip.zip");
    EXPECT_EQ(eventNames(), (QStringList{"tapped_photos", "zipped_successfuly"}));
    EXPECT_TRUE(console.lines().contains("Got assets"));
    EXPECT_EQ(console.lines().filter("Response URL: Optional(file:///").size(), 3);
}

// Two albums had a "one.png" each: the archive had two entries of that name, of which one was lost.
TEST_F(PhotoSourceTest, PhotosOfOneNameBothReachTheArchive) {
    std::filesystem::create_directory(folder / "Pictures" / "Album");
    std::filesystem::copy(folder / "Pictures" / "two.png", folder / "Pictures/Album/one.png");
    pickAll(*openPicker<PHPickerViewController>());
    const auto alert = nextAlert();
    ASSERT_TRUE(alert);
    alert->setText("Trip");
    alert->choose(0);
    settle();
    const auto sheet = presented<UIActivityViewController>();
    ASSERT_TRUE(sheet);
    std::set<std::string> names;
    QList<QUrl> files;
    ZipManager::create(services.jobs)
        ->unzip(sheet->activityItems().first(),
                [&files](const auto& all, const auto&) { files = *all; });
    settle();
    for (const QUrl& url : files) {
        names.insert(url.fileName().toStdString());
    }
    EXPECT_EQ(names, (std::set<std::string>{"clip.mp4", "one (2).png", "one.png", "two.png"}));
}

TEST_F(PhotoSourceTest, CancelledPicksDoNothing) {
    openPicker<PHPickerViewController>()->cancelTapped();
    settle();
    EXPECT_FALSE(presented<PHPickerViewController>());
    EXPECT_FALSE(composer->hud());
    EXPECT_TRUE(console.lines().filter("Got Identifiers").isEmpty());
    services.ui.device.systemVersion = 13;
    openPicker<ImagePickerController>()->goBack();
    settle();
    EXPECT_FALSE(presented<ImagePickerController>());
}

TEST_F(PhotoSourceTest, OneThatCannotBeFetchedFailsAll) {
    pickAll(*openPicker<PHPickerViewController>());
    settle();
    ASSERT_TRUE(console.lines().contains("Got assets"));
    std::filesystem::remove(folder / "Pictures" / "two.png");
    const auto alert = nextAlert();
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->alertTitle(), "Error");
    EXPECT_EQ(alert->message(),
              "Failed to fetch items. Verify your Internet connection and try again.");
    EXPECT_EQ(alert->actionTitles(), QStringList{"OK"});
    EXPECT_TRUE(console.lines().contains("Response URL: nil"));
}

TEST_F(PhotoSourceTest, BeforeTheSystemsPickerPhotosAreRendered) {
    services.ui.device.systemVersion = 13.7;
    const auto picker = openPicker<ImagePickerController>();
    ASSERT_TRUE(picker);
    EXPECT_EQ(picker->model()->rowCount(), 2) << "no videos";
    EXPECT_EQ(picker->model()->limit(), PhotoGridModel::kNoLimit);
    pickAll(*picker);
    settle();
    const auto alert = presented<UIAlertController>();
    ASSERT_TRUE(alert);
    EXPECT_FALSE(composer->hud());
    EXPECT_EQ(alert->alertTitle(), "Zip Images");
    alert->setText("Old");
    alert->choose(0);
    EXPECT_EQ(composer->hud()->label(), "Compressing images");
    settle();
    ASSERT_TRUE(presented<UIActivityViewController>());
    EXPECT_EQ(console.lines().filter("Appending asset").size(), 2);
    EXPECT_TRUE(console.lines().contains("NOTIFIED"));
}

TEST_F(PhotoSourceTest, FilesComeInTheOrderOfTheAnswers) {
    QList<QUrl> urls;
    source.fetchFiles({photo, video}, [&urls](const QList<QUrl>& all) { urls = all; });
    settle();
    ASSERT_EQ(scripted.files.size(), 2);
    EXPECT_EQ(scripted.isNetworkAllowed, (QList<bool>{true, true}));
    scripted.files[1](QUrl("file:///v.mp4"));
    settle();
    EXPECT_TRUE(urls.isEmpty());
    scripted.files[0](QUrl("file:///p.png"));
    settle();
    EXPECT_EQ(urls, (QList<QUrl>{QUrl("file:///v.mp4"), QUrl("file:///p.png")}));

    bool isDone = false;
    source.fetchFiles({}, [&isDone](const QList<QUrl>& all) { isDone = all.isEmpty(); });
    settle();
    EXPECT_TRUE(isDone);
}

TEST_F(PhotoSourceTest, OnlyFinalImagesCount) {
    std::size_t count = 0;
    source.renderImages({photo, photo},
                        [&count](const PhotoSource::Images& all) { count = all.size(); });
    settle();
    ASSERT_EQ(scripted.pictures.size(), 2);
    EXPECT_EQ(scripted.isNetworkAllowed, (QList<bool>{false, false}));
    const auto image = std::make_shared<QtImage>(QImage(1, 1, QImage::Format_RGB32));
    scripted.pictures[0](image, PHImageInfo{.isDegraded = false});
    scripted.pictures[1](nullptr, PHImageInfo{.isDegraded = false});
    scripted.pictures[1](image, std::nullopt);
    scripted.pictures[1](image, PHImageInfo{});
    scripted.pictures[1](image, PHImageInfo{.isDegraded = true});
    settle();
    EXPECT_EQ(count, 0U) << "one is still to come";
    scripted.pictures[1](image, PHImageInfo{.isDegraded = false});
    settle();
    EXPECT_EQ(count, 2U);
}

TEST_F(PhotoSourceTest, NothingHappensOnceTheComposerIsGone) {
    pickAll(*openPicker<PHPickerViewController>());
    settle();
    stack()->popViewController(true);
    composer.reset();
    settle();
    releaseScreens();
    EXPECT_FALSE(waitUntil([this] { return presented<UIAlertController>() != nullptr; },
                           std::chrono::milliseconds(400)));
    EXPECT_TRUE(console.lines().filter("Response URL").isEmpty());
}

}  // namespace
}  // namespace pellumar::test
