#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>

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
        ASSERT_EQ(sqlite3_open(AnalyticsStore::fileIn(folder).c_str(), &database), SQLITE_OK);
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
        AnalyticsEngine engine(environment());
        log(engine, name);
        ASSERT_TRUE(engine.waitUntilStored(kDeadline));
        engine.stop();
        const QString now = AnalyticsStore::open(folder)->installation().current();
        EXPECT_TRUE(installation.isEmpty() || installation == now);
        installation = now;
    }
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(namesOf(events), (QStringList{"pz_session_start", "pz_first_open", "one", "two"}));
    EXPECT_EQ(events[0].sessionUid, events[3].sessionUid);
    EXPECT_EQ(parameterOf(events[3], "n"), ParameterValue(qint64{0}));
}

TEST_F(StoreTest, AnOlderStoreIsBroughtUpToDateAndANewerOneReplaced) {
    // As the first version has made it.
    std::filesystem::create_directory(folder);
    execute(R"(
        CREATE TABLE state (key TEXT PRIMARY KEY, value) WITHOUT ROWID;
        CREATE TABLE sessions (number INTEGER PRIMARY KEY, uid TEXT NOT NULL,
            started INTEGER NOT NULL, last_seen INTEGER NOT NULL, engagement INTEGER NOT NULL,
            unreported_engagement INTEGER NOT NULL);
        CREATE TABLE events (id INTEGER PRIMARY KEY AUTOINCREMENT, uid TEXT NOT NULL,
            name TEXT NOT NULL, time INTEGER NOT NULL, session INTEGER NOT NULL,
            consent INTEGER NOT NULL, dropped_parameters INTEGER NOT NULL);
        CREATE TABLE parameters (event INTEGER NOT NULL, name TEXT NOT NULL, type TEXT NOT NULL,
            value NOT NULL, PRIMARY KEY (event, name)) WITHOUT ROWID;
        CREATE TABLE user_properties (name TEXT PRIMARY KEY, value TEXT NOT NULL,
            time INTEGER NOT NULL, advertising INTEGER NOT NULL DEFAULT 0) WITHOUT ROWID;
        CREATE TABLE counts (name TEXT PRIMARY KEY, total INTEGER NOT NULL,
            first INTEGER NOT NULL, last INTEGER NOT NULL) WITHOUT ROWID;
        CREATE TABLE day_counts (name TEXT NOT NULL, day INTEGER NOT NULL, total INTEGER NOT NULL,
            PRIMARY KEY (name, day)) WITHOUT ROWID;
        INSERT INTO state VALUES ('installation', '10944e7f-643c-4633-9dcb-8bbaa5cd15dc');
        INSERT INTO sessions VALUES (7, 'session', 1705492700000, 1705492700000, 5, 0);
        INSERT INTO events VALUES (3, 'uid', 'old', 1705492700000, 7, 0, 0);
        INSERT INTO parameters VALUES (3, 'text', 't', 'kept');
        PRAGMA user_version = 1)");
    {
        AnalyticsEngine engine(quiet());
        log(engine, "1 wrong name");
        log(engine, "new");
    }
    EXPECT_EQ(ownNames(folder), (QStringList{"old", "new"}));
    const StoredEvent old = storedEvents(folder).front();
    EXPECT_EQ(old.sessionUid, "session");
    EXPECT_EQ(parameterOf(old, "text"), ParameterValue(QString("kept")));
    EXPECT_EQ(AnalyticsStore::open(folder)->losses().all()["invalid"], 1);
    EXPECT_EQ(AnalyticsStore::open(folder)->installation().current(),
              "10944e7f-643c-4633-9dcb-8bbaa5cd15dc");
    execute("PRAGMA user_version = 99");
    EXPECT_EQ(ownNames(folder), QStringList());
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
             std::filesystem::resize_file(AnalyticsStore::fileIn(folder), 20'580);
         }},
    };
    for (const auto& [name, damage] : damages) {
        SCOPED_TRACE(name);
        folder = parent / name;
        {
            AnalyticsEngine engine(environment());
            log(engine, "old", 500);
        }
        // So that nothing stands in the log only.
        execute("PRAGMA wal_checkpoint(TRUNCATE)");
        {
            File file(AnalyticsStore::fileIn(folder), std::ios::in | std::ios::out);
            damage(file);
        }
        {
            AnalyticsEngine engine(environment());
            log(engine, "new");
            EXPECT_TRUE(engine.waitUntilStored(kDeadline));
        }
        // It is not the first start.
        EXPECT_EQ(namesOf(storedEvents(folder)), (QStringList{"pz_session_start", "new"}));
    }
}

TEST_F(StoreTest, DamageThatComesLaterIsMended) {
    AnalyticsEngine engine(quiet());
    log(engine, "old");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    execute("DROP TABLE events");
    log(engine, "new");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    EXPECT_EQ(ownNames(folder), QStringList{"new"});
}

TEST_F(StoreTest, StaysWithinItsBoundAndTheOldestGo) {
    constexpr qint64 kBound = 512 << 10;
    AnalyticsEnvironment with = quiet();
    with.mostBytes = kBound;
    AnalyticsEngine engine(std::move(with));
    log(engine, "first");
    log(engine, "many", 20'000);
    log(engine, "last");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    EXPECT_LE(std::filesystem::file_size(AnalyticsStore::fileIn(folder)), kBound);
    // With the log, which may be as much again, and what it takes to find something in it.
    EXPECT_LE(bytesOnDisk(), 3 * kBound);
    engine.stop();
    const std::vector<StoredEvent> events = storedEvents(folder);
    EXPECT_EQ(events.back().event.name, "last");
    EXPECT_FALSE(namesOf(events).contains("first"));
    EXPECT_GT(events.size(), 1000U);
    const std::unique_ptr<AnalyticsStore> store = AnalyticsStore::open(folder);
    EXPECT_EQ(store->losses().all()["no_room"] + static_cast<qint64>(events.size()), 20'002);
    EXPECT_EQ(store->counts().total("many"), 20'000);
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
    AnalyticsEngine engine(quiet());
    log(engine, "before");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    {
        const FullDisk full(100'000);
        log(engine, "meanwhile", 10'000);
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    }
    log(engine, "after");
    static_cast<void>(engine.waitUntilStored(kDeadline));
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    const QStringList names = ownNames(folder);
    EXPECT_EQ(names.first(), "before");
    EXPECT_EQ(names.last(), "after");
    const qint64 dropped = AnalyticsStore::open(folder)->losses().all()["queue_full"];
    EXPECT_EQ(names.count("meanwhile") + dropped, 10'000);
    EXPECT_GT(dropped, 0);
}

TEST_F(StoreTest, ADenialThatCannotBeWrittenIsObeyedAndWrittenLater) {
    AnalyticsEngine engine(quiet());
    engine.setConsent(ConsentKind::kAdStorage, ConsentStatus::kGranted);
    log(engine, "before");
    ASSERT_TRUE(engine.waitUntilStored(kDeadline));
    {
        const FullDisk full(0);
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        log(engine, "forbidden");
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
        EXPECT_FALSE(std::filesystem::exists(AnalyticsStore::fileIn(folder)));
        // What was answered before still stands.
        EXPECT_TRUE(ConsentState(folder).current().allowsStorage());
        EXPECT_TRUE(ConsentState(folder).current().allowsAdvertisingAudiences());
    }
    EXPECT_TRUE(becomesTrue([&] { return !ConsentState(folder).current().allowsStorage(); }));
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
        AnalyticsEngine engine(std::move(with));
        log(engine, "tapped", 10);
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    }
    writeFile(folder, "in the way");
    AnalyticsEngine engine(quiet());
    log(engine, "early");
    EXPECT_FALSE(engine.waitUntilStored(kDeadline));
    std::filesystem::remove(folder);
    log(engine, "late");
    EXPECT_TRUE(engine.waitUntilStored(kDeadline));
    engine.stop();
    EXPECT_EQ(ownNames(folder), (QStringList{"early", "late"}));
}

TEST_F(StoreTest, TwoProcessesShareIt) {
    constexpr int kEvents = 300;
    const Collector collector;
    std::vector<ProcessResult> results(2);
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < results.size(); ++i) {
            threads.emplace_back([&, i] {
                results[i] = runProcess({"/proc/self/exe",
                                         "--log",
                                         folder.string(),
                                         collector.address().toStdString(),
                                         "process" + std::to_string(i),
                                         std::to_string(kEvents)});
            });
        }
    }
    EXPECT_EQ(results[0].exitCode, 0) << results[0].output;
    EXPECT_EQ(results[1].exitCode, 0) << results[1].output;
    QSet<QString> arrived;
    for (const StoredEvent& event : storedEvents(folder)) {
        if (event.event.name.startsWith("process")) {
            arrived.insert(event.uid);
        }
    }
    for (const CollectedBatch& batch : collector.batches()) {
        for (const CollectedRecord& record : batch.records) {
            if (record.name.startsWith("process")) {
                arrived.insert(record.attributes["log.record.uid"]);
            }
        }
    }
    EXPECT_EQ(arrived.size(), 2 * kEvents);
    // One of them has begun, and the other joined in.
    EXPECT_EQ(collector.names().count("pz_first_open"), 1);
    EXPECT_EQ(collector.faults(), QStringList());
}

}  // namespace
}  // namespace pellumar::test
