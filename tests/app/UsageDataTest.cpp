#include <gtest/gtest.h>

#include <QProcess>
#include <chrono>
#include <functional>
#include <thread>

#include "analytics/AnalyticsStore.h"
#include "support/FileContents.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {
namespace {

// The program itself, with folders of its own and a collector that records what leaves.
class UsageDataTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_EQ(collector.faults(), QStringList()); }

    void prefer(const std::string& lines) const {
        std::filesystem::create_directories(home / "config/pellumar-zip");
        writeFile(home / "config/pellumar-zip/pellumar-zip.conf", "[General]\n" + lines);
    }
    // Launches as for a user, and ends as a session does once the condition holds; false if it does
    // not in time.
    [[nodiscard]] bool runUntil(const std::function<bool()>& condition,
                                const QString& variable = {}) const {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start("env", program(variable));
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        bool holds = false;
        while (!holds && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            holds = condition();
        }
        process.terminate();
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        return holds;
    }
    // Whether something with this text is kept.
    [[nodiscard]] bool isKept(const char* text) const {
        return AnalyticsStore::jsonLines(measured()).value_or(QByteArray()).contains(text);
    }
    [[nodiscard]] std::filesystem::path measured() const {
        return home / "data/pellumar-zip/Analytics";
    }

    TemporaryFolder home;
    Collector collector;

    static constexpr std::chrono::seconds kPatience{120};

    // The arguments of env(1).
    [[nodiscard]] QStringList program(const QString& variable) const {
        QStringList words{"HOME=" + QString::fromStdString(home.path().string()),
                          // Without a bus every start is the first.
                          "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere",
                          "QT_QPA_PLATFORM=offscreen",
                          "QT_QUICK_BACKEND=software"};
        for (const char* each : {"data", "config", "cache", "state"}) {
            words.append("XDG_" + QString(each).toUpper() +
                         "_HOME=" + QString::fromStdString((home / each).string()));
        }
        if (!variable.isEmpty()) {
            words.append(variable);
        }
        return words << PELLUMAR_ZIP;
    }
};

TEST_F(UsageDataTest, EventsLeaveForTheCollectorThatIsConfigured) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() + "\n");
    EXPECT_TRUE(runUntil([this] { return collector.names().contains("started_tutorial"); }));
    // Nobody has granted what makes automatic ones.
    EXPECT_EQ(collector.names(), QStringList{"started_tutorial"});
    ASSERT_FALSE(collector.batches().empty());
    EXPECT_EQ(collector.batches()[0].resource["service.name"], "pellumar-zip");
}

// With an address and without. Both launches show the onboarding, which is an event of the
// application's own; those leave with the oldest first, so what the first launch may have held back
// would be there at the end.
TEST_F(UsageDataTest, WithTheSwitchOffNotOneByteLeaves) {
    const std::string url = "ANALYTICS_URL=" + collector.address().toStdString() + "\n";
    prefer(url + "SEND_USAGE_DATA=false\n");
    for (const char* const variable : {"", "PELLUMAR_ANALYTICS_URL="}) {
        ASSERT_TRUE(runUntil([this] { return isKept("participating_tests"); }, variable));
        EXPECT_FALSE(isKept("installation"));
        std::filesystem::remove_all(measured());
        EXPECT_TRUE(collector.batches().empty());
    }
    prefer(url + "SEND_USAGE_DATA=true\n");
    EXPECT_TRUE(runUntil([this] { return collector.names().contains("started_tutorial"); }));
    EXPECT_EQ(collector.names(), QStringList{"started_tutorial"});
}

TEST_F(UsageDataTest, ADeployerMayGrantWhatMakesAutomaticEvents) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() +
           "\nANALYTICS_CONSENT=granted\nSEND_USAGE_DATA=false\n");
    EXPECT_TRUE(runUntil([this] { return collector.names().contains("pz_first_open"); }));
    // The environment comes first.
    EXPECT_TRUE(
        runUntil([this] { return !isKept("installation"); }, "PELLUMAR_ANALYTICS_CONSENT=denied"));
}

TEST_F(UsageDataTest, WithoutAnAddressEventsAreOnlyKeptAndCanBeExported) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() + "\n");
    // The environment comes first.
    EXPECT_TRUE(runUntil([this] { return isKept("started_tutorial"); }, "PELLUMAR_ANALYTICS_URL="));
    EXPECT_EQ(collector.names(), QStringList());
    const QString file = QString::fromStdString((home / "usage.jsonl").string());
    EXPECT_EQ(QProcess::execute("env", program({}) << "--export-usage-data" << file), 0);
    const std::string lines = readText(home / "usage.jsonl");
    EXPECT_NE(lines.find("started_tutorial"), std::string::npos);
    EXPECT_NE(lines.find(R"("table":"consent")"), std::string::npos);
}

}  // namespace
}  // namespace pellumar::test
