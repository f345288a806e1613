#include <signal.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <fstream>

#include "EngineTest.h"

namespace pellumar::test {
namespace {

class StoreTest : public EngineTest {
  protected:
    // From outside, as another program would.
    void execute(const std::string& sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(MeasurementFolder::storeIn(folder).c_str(), &database), SQLITE_OK);
        sqlite3_busy_timeout(database, 30'000);
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
};

TEST_F(StoreTest, AStoreOfAnotherVersionIsLeftAsItIs) {
    {
        RunningEngine engine(quiet());
        log(engine, "old");
    }
    execute("PRAGMA user_version = 99");
    {
        RunningEngine engine(quiet());
        EXPECT_FALSE(log(engine, "new"));
    }
    EXPECT_EQ(ownNames(), QStringList{"old"});
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
        RunningEngine engine(environment());
        EXPECT_TRUE(log(engine, "new"));
        // It is not the first start.
        EXPECT_EQ(names(), (QStringList{"pz_session_start", "new"}));
    }
}

// Nonsense that we ask of the database is our fault, and no reason to throw data away.
TEST_F(StoreTest, AMistakeOfOursErasesNothing) {
    RunningEngine engine(quiet());
    EXPECT_TRUE(log(engine, "old"));
    for (const auto& [mistake, mending] :
         {std::pair("ALTER TABLE counts RENAME TO lost", "ALTER TABLE lost RENAME TO counts"),
          std::pair("CREATE TRIGGER never BEFORE INSERT ON events BEGIN "
                    "SELECT RAISE(ABORT, 'never'); END",
                    "DROP TRIGGER never")}) {
        execute(mistake);
        EXPECT_FALSE(log(engine, "old")) << mistake;
        execute(mending);
        EXPECT_TRUE(engine.waitUntilStored(kDeadline)) << mending;
    }
    EXPECT_EQ(ownNames(), (QStringList{"old", "old", "old"}));
}

TEST_F(StoreTest, StaysWithinItsBoundAndTheOldestGo) {
    constexpr qint64 kBound = 512 << 10;
    AnalyticsEnvironment with = quiet();
    with.mostBytes = kBound;
    RunningEngine engine(std::move(with));
    log(engine, "first");
    log(engine, "many", 10'000);
    // At once, and with more than a tenth of the bound.
    constexpr int kLong = 50;
    for (int i = 0; i < kLong; ++i) {
        QVariantMap parameters;
        for (char name = 'a'; name < 'w'; ++name) {
            parameters.insert(QString(QLatin1Char(name)), QString(100, 'x'));
        }
        engine.logEventWithName("long", parameters);
    }
    EXPECT_TRUE(log(engine, "last"));
    EXPECT_LE(std::filesystem::file_size(MeasurementFolder::storeIn(folder)), kBound);
    const QStringList kept = ownNames();
    EXPECT_EQ(kept.back(), "last");
    EXPECT_FALSE(kept.contains("first"));
    EXPECT_EQ(kept.count("long"), kLong);
    EXPECT_GT(kept.size(), 500);
    EXPECT_EQ(lost("no_room") + kept.size(), 10'002 + kLong);
    EXPECT_EQ(count("many"), 10'000);
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

TEST_F(StoreTest, AFullDiskCostsEventsButNoDenial) {
    RunningEngine engine(quiet());
    EXPECT_TRUE(log(engine, "before"));
    {
        const FullDisk full(100'000);
        EXPECT_FALSE(log(engine, "meanwhile", 5'000));
    }
    // The first one may still tell of what was dropped.
    log(engine, "after");
    EXPECT_TRUE(log(engine, "after"));
    EXPECT_EQ(ownNames().first(), "before");
    EXPECT_EQ(ownNames().size() + lost("queue_full"), 5'003);
    EXPECT_GT(lost("queue_full"), 0);
    const FullDisk full(0);
    engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
    EXPECT_FALSE(log(engine, "forbidden"));
    EXPECT_FALSE(engine.waitUntilObeyed(kDeadline));
    EXPECT_FALSE(engine.consent()->isErasureOwed);
    EXPECT_FALSE(isAnythingStored());
}

}  // namespace
}  // namespace pellumar::test
