#include "engine/ZipManager.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>
#include <algorithm>
#include <array>
#include <utility>

#include "archive/Archive.h"
#include "archive/Reader.h"
#include "platform/FileUrl.h"
#include "platform/GlobalDispatchQueue.h"
#include "platform/MainDispatchQueue.h"
#include "platform/RecordingAnalytics.h"
#include "support/FileContents.h"
#include "support/ManualDispatchQueue.h"
#include "support/Process.h"
#include "support/RecordingConsole.h"
#include "support/TemporaryFolder.h"

namespace pellumar {
namespace {

namespace fs = std::filesystem;
using Progress = std::vector<std::pair<qint64, qint64>>;

class RecordingDelegate : public ZipManagerDelegate {
  public:
    void zipManagerDidAddFile(qint64 done, qint64 total) override {
        progress.emplace_back(done, total);
        thread = QThread::currentThread();
        if (told) {
            told();
        }
    }

    Progress progress;
    QThread* thread = nullptr;
    std::function<void()> told;
};

class Picture : public Image {
  public:
    explicit Picture(QByteArray jpeg) : jpeg_(std::move(jpeg)) {}
    [[nodiscard]] QByteArray jpegData(double quality) const override {
        EXPECT_EQ(quality, 0.5);
        return jpeg_;
    }

  private:
    QByteArray jpeg_;
};

// What a completion has been called with, if it has.
template <typename Value>
struct Outcome {
    int calls = 0;
    std::optional<Value> value;
    std::optional<JobReport> report;

    std::function<void(std::optional<Value>, const JobReport&)> completion() {
        return [this](std::optional<Value> result, const JobReport& given) {
            ++calls;
            value = std::move(result);
            report.emplace(given);
        };
    }
    [[nodiscard]] std::vector<archive::ErrorCode> errors() const {
        std::vector<archive::ErrorCode> codes;
        for (const archive::Error& error : report->failures()) {
            codes.push_back(error.code);
        }
        return codes;
    }
};

class ZipManagerTest : public testing::Test {
  protected:
    ZipManagerTest() { fileSystem_.createFolders(); }

    QUrl file(const std::string& name, const std::string& text = "text") {
        fs::create_directories((folder_ / "in" / name).parent_path());
        test::writeFile(folder_ / "in" / name, text);
        return fileUrl(folder_ / "in" / name);
    }

    void settle() {
        for (int round = 0; round < 3; ++round) {
            backgroundQueue_.runAll();
            mainQueue_.runAll();
        }
    }

    [[nodiscard]] QStringList events() const {
        QStringList names;
        for (const RecordingAnalytics::Event& event : engine_.events()) {
            names.append(event.name);
        }
        return names;
    }

    // The paths of an archive's entries, sorted, with a blank between.
    static std::string entriesOf(const fs::path& path) {
        const archive::Result<archive::Reader> archive = archive::Reader::open(path);
        if (!archive) {
            return archive.error().describe();
        }
        std::vector<std::string> names;
        for (const archive::Entry& entry : *archive) {
            names.emplace_back(entry.path);
        }
        std::sort(names.begin(), names.end());
        std::string list;
        for (const std::string& name : names) {
            list += (list.empty() ? "" : " ") + name;
        }
        return list;
    }

    [[nodiscard]] std::string entries(const std::string& title) const {
        return entriesOf(folder_ / "docs/outputs" / (title + ".zip"));
    }

    // Makes an archive with entries at these paths.
    QUrl archiveOf(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            file(path, path);
        }
        auto made = archive::Archive::open(folder_ / "made.zip", archive::AccessMode::kCreate);
        for (const std::string& path : paths) {
            EXPECT_TRUE(made->addEntry(path, folder_ / "in", archive::CompressionMethod::kDeflate));
        }
        EXPECT_TRUE(made->close());
        return fileUrl(folder_ / "made.zip");
    }

    [[nodiscard]] ZipManager::Environment environment(DispatchQueue& mainQueue,
                                                      DispatchQueue& backgroundQueue) {
        return {.fileSystem = fileSystem_,
                .analytics = analytics_,
                .console = console_,
                .mainQueue = mainQueue,
                .backgroundQueue = backgroundQueue};
    }

    test::TemporaryFolder folder_;
    test::RecordingConsole console_;
    FileSystem fileSystem_{DocumentDirectory(folder_ / "docs"), console_};
    UserDefaults defaults_{QString::fromStdString((folder_ / "s.conf").native())};
    UserSettings settings_{defaults_};
    RecordingAnalytics engine_;
    PellumarAnalytics analytics_{settings_, engine_};
    test::ManualDispatchQueue mainQueue_;
    test::ManualDispatchQueue backgroundQueue_;
    std::shared_ptr<ZipManager> manager_ =
        ZipManager::create(environment(mainQueue_, backgroundQueue_));
    std::shared_ptr<RecordingDelegate> delegate_ = std::make_shared<RecordingDelegate>();
    Outcome<QUrl> archive_;
    Outcome<QList<QUrl>> files_;
};

TEST_F(ZipManagerTest, CompressesInOrderAndReportsEachStep) {
    manager_->setDelegate(delegate_);
    manager_->zip({file("b/two.txt"), file("a/one.txt"), QUrl(file("c/x").toString().chopped(1))},
                  "My % title",
                  archive_.completion());
    EXPECT_EQ(console_.lines(), QStringList{"Compressing 3 items"});
    backgroundQueue_.runAll();
    EXPECT_EQ(delegate_->progress, (Progress{{1, 3}, {2, 3}, {3, 3}}));
    EXPECT_EQ(archive_.calls, 0);
    EXPECT_TRUE(events().isEmpty());
    mainQueue_.runAll();
    EXPECT_EQ(archive_.calls, 1);
    EXPECT_EQ(archive_.value, fileUrl(folder_ / "docs/outputs/My % title.zip"));
    // A folder that was picked with a slash at its end is an entry of its own name.
    EXPECT_EQ(entries("My % title"), "c one.txt two.txt");
    EXPECT_EQ(events(), QStringList{"zipped_successfuly"});
    EXPECT_EQ(console_.lines().join("|"),
              "Compressing 3 items|Adding url to file|Finished: 1|Adding url to file|"
              "Finished: 2|Adding url to file|Finished: 3|FINISHED");
}

TEST_F(ZipManagerTest, AFailedFileFailsTheJobButTheOthersAreAdded) {
    manager_->setDelegate(delegate_);
    manager_->zip(
        {file("a"), fileUrl(folder_ / "missing"), QUrl("https://example.org/x"), file("b")},
        "T",
        archive_.completion());
    settle();
    EXPECT_EQ(archive_.calls, 1);
    EXPECT_EQ(archive_.value, std::nullopt);
    EXPECT_EQ(delegate_->progress, (Progress{{1, 4}, {2, 4}}));
    EXPECT_EQ(entries("T"), "a b");
    EXPECT_EQ(events(), QStringList{"failed_to_zip"});
    EXPECT_EQ(console_.lines().join("|"),
              "Compressing 4 items|Adding url to file|Finished: 1|Adding url to file|Failed|"
              "Adding url to file|Failed|Adding url to file|Finished: 2|FINISHED");
    EXPECT_EQ(
        archive_.errors(),
        (std::vector{archive::ErrorCode::kSourceUnreadable, archive::ErrorCode::kInvalidArgument}));
}

TEST_F(ZipManagerTest, AnArchiveThatCannotBeCreatedCountsAsMade) {
    manager_->setDelegate(delegate_);
    for (const QString& title : {QString("a/b"), QString::fromUtf8("nul\0x", 5)}) {
        manager_->zip({file("one"), fileUrl(folder_ / "missing")}, title, archive_.completion());
        settle();
        EXPECT_EQ(archive_.value, fileSystem_.archive(title));
        EXPECT_EQ(delegate_->progress, (Progress{{1, 2}, {2, 2}}));
        EXPECT_EQ(archive_.errors().size(), 1U);
        delegate_->progress.clear();
    }
    EXPECT_EQ(events(), QStringList({"zipped_successfuly", "zipped_successfuly"}));
    EXPECT_EQ(console_.lines().mid(0, 6).join("|"),
              "Compressing 2 items|Adding url to file|Finished: 1|Adding url to file|"
              "Finished: 2|FINISHED");
    EXPECT_TRUE(fs::is_empty(folder_ / "docs/downloads"));
}

TEST_F(ZipManagerTest, ATitleIsReplacedAndMayBeEmptyAsMayTheList) {
    fs::create_directories(folder_ / "docs/outputs/T.zip/a folder in the way");
    for (const QList<QUrl>& urls : {QList<QUrl>{file("a")}, QList<QUrl>{file("b")}}) {
        manager_->zip(urls, "T", archive_.completion());
        settle();
    }
    EXPECT_EQ(entries("T"), "b");
    manager_->zip(QList<QUrl>(), "", archive_.completion());
    settle();
    EXPECT_EQ(archive_.value, fileUrl(folder_ / "docs/outputs/.zip"));
    EXPECT_EQ(entries(""), "");
}

// It used to be deleted first, and was lost with whatever ended the job.
TEST_F(ZipManagerTest, TheEarlierArchiveOfATitleStaysUntilTheNewOneIsWhole) {
    manager_->zip({file("a")}, "T", archive_.completion());
    settle();
    manager_->setDelegate(delegate_);
    const QUrl earlier = *archive_.value;
    std::string whileMaking;
    delegate_->told = [&] { whileMaking = entries("T"); };
    manager_->zip({file("b"), earlier}, "T", archive_.completion());
    settle();
    EXPECT_EQ(whileMaking, "a");
    EXPECT_EQ(entries("T"), "T.zip b");
}

TEST_F(ZipManagerTest, AReleasedManagerFinishesItsJobWithoutTellingTheDelegate) {
    manager_->setDelegate(delegate_);
    manager_->zip({file("a")}, "T", archive_.completion());
    manager_->unzip(archiveOf({"x"}), files_.completion());
    manager_.reset();
    settle();
    EXPECT_EQ(entries("T"), "a");
    EXPECT_TRUE(archive_.value && files_.value);
    EXPECT_TRUE(delegate_->progress.empty());
}

TEST_F(ZipManagerTest, TheFlagIsReadWhenTheJobEnds) {
    manager_->zip({file("a")}, "T", archive_.completion());
    backgroundQueue_.runAll();
    defaults_.setBool(false, settings_.sendUsageDataKey());
    mainQueue_.runAll();
    manager_->unzip(fileUrl(folder_ / "missing.zip"), files_.completion());
    settle();
    defaults_.setBool(true, settings_.sendUsageDataKey());
    EXPECT_TRUE(events().isEmpty());
}

// What was picked is not copied, so it can be edited before it is read, or while it is.
TEST_F(ZipManagerTest, WhatWasChangedSinceItWasPickedFailsByName) {
    const auto originals = std::make_shared<Originals>();
    const auto pick = [&](const QUrl& url) {
        const fs::path link = folder_ / ("picked " + localPath(url)->filename().string());
        struct stat status {};
        EXPECT_EQ(::stat(localPath(url)->c_str(), &status), 0);
        fs::create_symlink(*localPath(url), link);
        originals->note(link, status);
        return fileUrl(link);
    };
    ZipManager::Environment knowing = environment(mainQueue_, backgroundQueue_);
    knowing.originals = originals;
    manager_ = ZipManager::create(knowing);
    const QUrl kept = pick(file("kept"));
    const QUrl edited = pick(file("edited"));
    manager_->zip({kept}, "T", archive_.completion());
    settle();
    EXPECT_TRUE(archive_.value);
    manager_->zip({edited, kept}, "T", archive_.completion());
    const auto time = fs::last_write_time(folder_ / "in" / "edited");
    file("edited", "TEXT");
    fs::last_write_time(folder_ / "in" / "edited", time);
    settle();
    EXPECT_FALSE(archive_.value);
    const QUrl archive = pick(archiveOf({"a", "b"}));
    manager_->unzip(archive, files_.completion());
    settle();
    EXPECT_TRUE(files_.value);
    test::writeFile(folder_ / "made.zip", "other");
    manager_->unzip(archive, files_.completion());
    settle();
    EXPECT_FALSE(files_.value);
    EXPECT_EQ(archive_.errors(), std::vector{archive::ErrorCode::kSourceChanged});
    EXPECT_EQ(files_.errors(), std::vector{archive::ErrorCode::kSourceChanged});
}

TEST_F(ZipManagerTest, ExtractsIntoANewFolderAndListsItsTop) {
    fileSystem_.clearWorkspace();
    const QUrl archive = archiveOf({"folder/deep/a", "folder/b", ".hidden", "top"});
    manager_->setDelegate(delegate_);
    manager_->unzip(archive, files_.completion());
    settle();
    ASSERT_TRUE(files_.value);
    ASSERT_EQ(files_.value->size(), 2);
    const fs::path place = localPath(files_.value->first())->parent_path();
    EXPECT_EQ(files_.value, FileSystem::contents(place)->items);
    EXPECT_EQ(files_.report->hiddenItems().size(), 1);
    EXPECT_EQ(files_.report->failureCount(), 0U);
    EXPECT_EQ(test::readText(place / "folder/deep/a"), "folder/deep/a");
    EXPECT_EQ(test::readText(place / ".hidden"), ".hidden");
    EXPECT_EQ(events(), QStringList{"unzipped_successfuly"});
    EXPECT_TRUE(delegate_->progress.empty());
    manager_->unzip(archive, files_.completion());
    settle();
    EXPECT_NE(localPath(files_.value->first())->parent_path(), place);
}

// Asked before anything is written, as often as it takes; what comes of it is told once.
TEST_F(ZipManagerTest, AsksForThePasswordOfAnArchiveThatNeedsOne) {
    file("secret.txt", "secret");
    const auto made = test::runProcess(
        {"7zz", "a", "-tzip", "-mem=AES256", "-pgeheim", "../locked.zip", "secret.txt"},
        folder_ / "in");
    ASSERT_EQ(made.exitCode, 0) << made.output;
    const QUrl locked = fileUrl(folder_ / "locked.zip");
    std::shared_ptr<PasswordRequest> asked;
    const auto ask = [&asked](std::shared_ptr<PasswordRequest> request) {
        asked = std::move(request);
    };
    std::vector<bool> replies;
    const auto tryOut = [&](const char* text) {
        asked->tryPassword(std::make_shared<archive::Password>(text),
                           [&replies](bool fits) { replies.push_back(fits); });
    };
    manager_->unzip(locked, files_.completion(), ask);
    settle();
    ASSERT_TRUE(asked);
    tryOut("falsch");
    settle();
    EXPECT_EQ(files_.calls, 0);
    // What was asked for is what comes out, whatever takes its name meanwhile.
    fs::rename(folder_ / "locked.zip", folder_ / "kept.zip");
    test::writeFile(folder_ / "locked.zip", std::string("something else"));
    tryOut("geheim");
    settle();
    fs::rename(folder_ / "kept.zip", folder_ / "locked.zip");
    EXPECT_EQ(replies, (std::vector{false, true}));
    ASSERT_TRUE(files_.value);
    EXPECT_EQ(test::readText(*localPath(files_.value->first())), "secret");
    asked->giveUp();
    settle();
    EXPECT_EQ(files_.calls, 1);

    // However the question is left, the job ends as a failed one.
    for (const int way : {0, 1, 2}) {
        files_ = {};
        manager_->unzip(locked, files_.completion(), ask);
        settle();
        tryOut(way == 0 ? "falsch" : "geheim");
        if (way == 0) {
            settle();
            asked->giveUp();
        } else if (way == 1) {
            asked->giveUp();
        } else {
            asked.reset();
        }
        settle();
        EXPECT_EQ(files_.calls, 1);
        EXPECT_EQ(files_.value, std::nullopt);
        EXPECT_EQ(files_.errors(),
                  std::vector{way == 0 ? archive::ErrorCode::kWrongPassword
                                       : archive::ErrorCode::kEncrypted});
    }
    EXPECT_EQ(replies.size(), 3U);
    EXPECT_EQ(events().count("failed_to_unzip"), 3);
    EXPECT_EQ(events().count("unzipped_successfuly"), 1);
}

TEST_F(ZipManagerTest, ADamagedArchiveGivesNothingAndLeavesItsFolder) {
    const QUrl archive = archiveOf({"a name of some length"});
    std::vector<std::uint8_t> bytes = test::readFile(folder_ / "made.zip");
    // In the data of the one entry, which ends where the central directory begins.
    constexpr std::array<std::uint8_t, 4> kDirectory = {'P', 'K', 1, 2};
    *(std::search(bytes.begin(), bytes.end(), kDirectory.begin(), kDirectory.end()) - 8) ^= 0x10;
    test::writeFile(folder_ / "made.zip", bytes);
    manager_->unzip(archive, files_.completion());
    settle();
    EXPECT_EQ(files_.calls, 1);
    EXPECT_EQ(files_.value, std::nullopt);
    EXPECT_EQ(console_.lines(), QStringList{"FAILED!"});
    EXPECT_EQ(events(), QStringList{"failed_to_unzip"});
    EXPECT_EQ(files_.errors(), std::vector{archive::ErrorCode::kChecksumMismatch});
    EXPECT_EQ(FileSystem::contents(folder_ / "docs/outputs/zipOutputs")->items.size(), 1);
}

TEST_F(ZipManagerTest, PicturesAreStagedWithWhatIsThereAndClearedAway) {
    test::writeFile(folder_ / "docs/outputs/tempImages/left over.jpg", "old");
    test::writeFile(folder_ / "docs/outputs/tempImages/2.jpg", "a longer old text");
    const std::vector<std::shared_ptr<const Image>> images = {
        std::make_shared<Picture>("first"),
        std::make_shared<Picture>(""),
        std::make_shared<Picture>("third"),
    };
    manager_->setDelegate(delegate_);
    manager_->zip(images, "Photos", [this](const std::optional<QUrl>& archive, const auto& report) {
        EXPECT_TRUE(fs::is_empty(folder_ / "docs/outputs/tempImages"));
        archive_.completion()(archive, report);
    });
    settle();
    EXPECT_EQ(archive_.calls, 1);
    EXPECT_EQ(entries("Photos"), "0.jpg 2.jpg left over.jpg");
    EXPECT_EQ(delegate_->progress.back(), std::pair(qint64{3}, qint64{3}));
    manager_->unzip(*archive_.value, files_.completion());
    settle();
    const fs::path place = localPath(files_.value->first())->parent_path();
    EXPECT_EQ(test::readText(place / "2.jpg"), "third");
}

// After a launch there is no staging folder, and nothing makes one.
TEST_F(ZipManagerTest, PicturesWithoutAStagingFolderOrManagerNeverComplete) {
    const std::vector<std::shared_ptr<const Image>> images = {std::make_shared<Picture>("jpeg")};
    manager_->zip(images, "T", archive_.completion());
    fileSystem_.clearWorkspace();
    settle();
    EXPECT_FALSE(fs::exists(folder_ / "docs/outputs/tempImages"));
    fileSystem_.createFolders();
    manager_->zip(images, "T", archive_.completion());
    manager_.reset();
    settle();
    EXPECT_TRUE(fs::exists(folder_ / "docs/outputs/tempImages/0.jpg"));
    EXPECT_EQ(archive_.calls, 0);
    EXPECT_TRUE(events().isEmpty());
}

// With the real queues: who is called on which thread, and that a screen that goes away in the
// middle goes away on the main thread.
TEST_F(ZipManagerTest, CompletesOnTheMainThreadAndCallsTheDelegateOnAnother) {
    const auto release = [](RecordingDelegate* screen) {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        delete screen;
    };
    int count = 0;
    const QCoreApplication application(count, nullptr);
    MainDispatchQueue mainQueue;
    GlobalDispatchQueue globalQueue;
    const auto manager = ZipManager::create(environment(mainQueue, globalQueue));
    auto screen = std::shared_ptr<RecordingDelegate>(new RecordingDelegate, release);
    manager->setDelegate(screen);
    QList<QUrl> urls;
    for (int i = 0; i < 50; ++i) {
        urls.append(file("f" + std::to_string(i), std::string(10'000, 'x')));
    }
    QEventLoop loop;
    int running = 2;
    const auto finish = [&](bool succeeded) {
        EXPECT_TRUE(succeeded);
        EXPECT_EQ(QThread::currentThread(), application.thread());
        if (--running == 0) {
            loop.quit();
        }
    };
    manager->zip(urls, "T", [&](const std::optional<QUrl>& url, const auto& /*report*/) {
        EXPECT_EQ(screen->progress.size(), 50U);
        EXPECT_NE(screen->thread, application.thread());
        screen.reset();
        finish(url.has_value());
    });
    manager->unzip(archiveOf({"x"}),
                   [&](const auto& files, const auto& /*report*/) { finish(files.has_value()); });
    loop.exec();

    auto leaving = std::shared_ptr<RecordingDelegate>(new RecordingDelegate, release);
    manager->setDelegate(leaving);
    running = 1;
    manager->zip(
        urls, "U", [&](const auto& url, const auto& /*report*/) { finish(url.has_value()); });
    leaving.reset();
    loop.exec();
}

}  // namespace
}  // namespace pellumar
