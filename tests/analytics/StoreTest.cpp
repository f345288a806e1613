#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <fstream>

#include "Children.h"
#include "EngineTest.h"
#include "support/FileContents.h"
#include "support/Process.h"

namespace pellumar::test {
namespace {

class StoreTest : public EngineTest {
  protected:
    static void log(AnalyticsEngine& engine, const QString& name, int times = 1) {
        for (int i = 0; i < times; ++i) {
            engine.logEventWithName(name, QVariantMap{{"text", QString(100, 'a')}, {"n", i}});
            // Slower than the worker, so that nothing is dropped on the way.
            if (i % 1000 == 999) {
                static_cast<void>(engine.waitUntilStored(kDeadline));
            }
        }
    }
    // From outside, as another program would.
    void execute(const std::string& sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(MeasurementFolder::storeIn(folder).c_str(), &database), SQLITE_OK);
        sqlite3_busy_timeout(database, 30'000);
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
    [[nodiscard]] std::uintmax_t bytesOnDisk() const {
        std::uintmax_t bytes = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            bytes += file.file_size();
        }
        return bytes;
    }
};

TEST_F(StoreTest, OutlivesTheProcess) {
    QString installation;
    for (const char* name : {"one", "two"}) {
        RunningEngine engine(environment());
        log(engine, name);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
        engine.stop();
        const QString now = openStore(folder)->memory().installation;
        EXPECT_TRUE(installation.isEmpty() || installation == now);
        installation = now;
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(namesOf(events), (QStringList{"pz_session_start", "pz_first_open", "one", "two"}));
    EXPECT_EQ(events[0].session, events[3].session);
    EXPECT_EQ(parameterOf(events[3], "n"), "0");
}

TEST_F(StoreTest, CanBeReadByAPersonBesideAnEngine) {
    EXPECT_EQ(AnalyticsStore::jsonLines(folder), QByteArray());
    RunningEngine engine(quiet());
    engine.setUserPropertyString("|1|", "participating_tests");
    engine.logEventWithName("evaluated_app", QVariantMap{{"rating", 5}});
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    const std::optional<QByteArray> lines = AnalyticsStore::jsonLines(folder);
    ASSERT_TRUE(lines);
    QMap<QString, QJsonObject> last;
    for (const QByteArray& line : lines->trimmed().split('\n')) {
        const QJsonObject row = QJsonDocument::fromJson(line).object();
        last.insert(row["table"].toString(), row);
    }
    EXPECT_EQ(last.keys(), (QStringList{"counts", "events", "state", "user_properties"}));
    EXPECT_EQ(last["events"]["name"], "evaluated_app");
    EXPECT_EQ(last["events"]["parameters"][0]["value"]["intValue"], "5");
    EXPECT_EQ(last["events"]["time"], kNoon);
    EXPECT_EQ(last["user_properties"]["value"], "|1|");
}

TEST_F(StoreTest, AStoreOfAnotherVersionIsLeftAsItIs) {
    {
        RunningEngine engine(quiet());
        log(engine, "old");
    }
    execute("PRAGMA user_version = 99");
    {
        RunningEngine engine(quiet());
        log(engine, "new");
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    }
    execute("PRAGMA user_version = 1");
    EXPECT_EQ(ownNames(folder), QStringList{"old"});
}

TEST_F(StoreTest, ADamagedStoreIsMadeAnew) {
    using File = std::fstream;
    const std::map<std::string, std::function<void(File&)>> damages{
        {"no database", [](File& file) { file.write("This is no database, is it?", 27); }},
        {"nonsense inside",
         [](File& file) {
             file.seekp(4096);
             for (int i = 0; i < 4096 * 8; ++i) {
                 file.put(static_cast<char>(i * 37));
             }
         }},
        {"cut short",
         [this](File& /*file*/) {
             std::filesystem::resize_file(MeasurementFolder::storeIn(folder), 20'580);
         }},
    };
    for (const auto& [name, damage] : damages) {
        SCOPED_TRACE(name);
        folder = parent / name;
        {
            RunningEngine engine(environment());
            log(engine, "old", 500);
        }
        // So that nothing stands in the log only.
        execute("PRAGMA wal_checkpoint(TRUNCATE)");
        {
            File file(MeasurementFolder::storeIn(folder), std::ios::in | std::ios::out);
            damage(file);
        }
        {
            RunningEngine engine(environment());
            log(engine, "new");
            EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        }
        // It is not the first start.
        EXPECT_EQ(namesOf(storedEvents(folder)), (QStringList{"pz_session_start", "new"}));
    }
}

// Nonsense that we ask of the database is our fault, and no reason to throw data away.
TEST_F(StoreTest, AMistakeOfOursErasesNothing) {
    RunningEngine engine(quiet());
    log(engine, "old");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    for (const auto& [mistake, mending] :
         {std::pair("ALTER TABLE losses RENAME TO lost", "ALTER TABLE lost RENAME TO losses"),
          std::pair("CREATE TRIGGER never BEFORE INSERT ON events BEGIN "
                    "SELECT RAISE(ABORT, 'never'); END",
                    "DROP TRIGGER never")}) {
        execute(mistake);
        log(engine, "old");
        engine.logEventWithName("1 wrong name", {});
        EXPECT_FALSE(engine.waitUntilStored(kDeadline)) << mistake;
        execute(mending);
        EXPECT_TRUE(engine.waitUntilStored(kDeadline)) << mending;
    }
    engine.stop();
    EXPECT_EQ(ownNames(folder), (QStringList{"old", "old", "old"}));
}

TEST_F(StoreTest, StaysWithinItsBoundAndTheOldestGo) {
    constexpr qint64 kBound = 512 << 10;
    AnalyticsEnvironment with = quiet();
    with.mostBytes = kBound;
    RunningEngine engine(std::move(with));
    log(engine, "first");
    log(engine, "many", 20'000);
    log(engine, "last");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_LE(std::filesystem::file_size(MeasurementFolder::storeIn(folder)), kBound);
    // With the log, which may be as much again, and what it takes to find something in it.
    EXPECT_LE(bytesOnDisk(), 3 * kBound);
    engine.stop();
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(events.back().name, "last");
    EXPECT_FALSE(namesOf(events).contains("first"));
    EXPECT_GT(events.size(), 1000U);
    const std::unique_ptr<AnalyticsStore> store = openStore(folder);
    EXPECT_EQ(store->losses()["no_room"] + static_cast<qint64>(events.size()), 20'002);
    EXPECT_EQ(store->times("many", std::nullopt), 20'000);
}

// What comes near to it for everybody: the kernel makes no file of the process longer.
class FullDisk {
  public:
    explicit FullDisk(rlim_t mostBytes) : handler_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{.rlim_cur = mostBytes, .rlim_max = before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    sighandler_t handler_;
};

TEST_F(StoreTest, AFullDiskCostsEventsAndNothingElse) {
    RunningEngine engine(quiet());
    log(engine, "before");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    {
        const FullDisk full(100'000);
        log(engine, "meanwhile", 10'000);
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    }
    static_cast<void>(engine.waitUntilStored(kDeadline));
    log(engine, "after");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    const QStringList names = ownNames(folder);
    EXPECT_EQ(names.first(), "before");
    const qint64 dropped = openStore(folder)->losses()["queue_full"];
    EXPECT_EQ(names.count("meanwhile") + dropped, 10'000);
    EXPECT_GT(dropped, 0);
}

TEST_F(StoreTest, ADenialThatCannotBeWrittenIsObeyedAndWrittenLater) {
    RunningEngine engine(quiet());
    engine.setConsent(ConsentKind::kAdStorage, ConsentStatus::kGranted);
    log(engine, "before");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    const std::string before = readText(MeasurementFolder::consentIn(folder));
    {
        const FullDisk full(0);
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        log(engine, "forbidden");
        EXPECT_FALSE(engine.waitUntilObeyed(kDeadline));
        EXPECT_FALSE(engine.consent()->isErasureOwed);
        EXPECT_FALSE(std::filesystem::exists(MeasurementFolder::storeIn(folder)));
        EXPECT_EQ(readText(MeasurementFolder::consentIn(folder)), before);
    }
    EXPECT_TRUE(engine.waitUntilObeyed(kDeadline));
    EXPECT_NE(readText(MeasurementFolder::consentIn(folder)), before);
}

TEST_F(StoreTest, OnAFullDiskADenialMakesRoomForItself) {
    std::filesystem::create_directory(folder);
    const ProcessResult result = runProcess({"unshare",
                                             "--user",
                                             "--map-root-user",
                                             "--mount",
                                             std::filesystem::read_symlink("/proc/self/exe"),
                                             "--fill-disk",
                                             folder.string()});
    if (result.exitCode == kNoDisk || result.output.find("unshare: ") != std::string::npos) {
        GTEST_SKIP() << "no file system of its own: " << result.output;
    }
    EXPECT_EQ(result.exitCode, 0) << result.output;
}

TEST_F(StoreTest, AFolderThatCannotBeWrittenIsWaitedFor) {
    {
        // Even root makes no files here.
        AnalyticsEnvironment with = environment();
        with.folder = "/proc/self";
        RunningEngine engine(std::move(with));
        log(engine, "tapped", 10);
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        EXPECT_FALSE(engine.waitUntilObeyed(kDeadline));
    }
    writeFile(folder, "in the way");
    RunningEngine engine(quiet());
    log(engine, "early");
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    std::filesystem::remove(folder);
    log(engine, "late");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    EXPECT_EQ(ownNames(folder), (QStringList{"early", "late"}));
}

}  // namespace
}  // namespace pellumar::test
