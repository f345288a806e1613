#include <gtest/gtest.h>

#include <QDateTime>
#include <QProcess>
#include <algorithm>
#include <cctype>
#include <chrono>
#include <functional>
#include <thread>

#include "analytics/AnalyticsStore.h"
#include "support/FileContents.h"
#include "support/Process.h"
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
    // Shows all its screens and ends.
    void run(const std::string& variable = {}) const {
        std::vector<std::string> command = program();
        if (!variable.empty()) {
            command.insert(command.begin() + 1, variable);
        }
        command.emplace_back("--self-test");
        const ProcessResult result = runProcess(command);
        EXPECT_EQ(result.exitCode, 0) << result.output;
    }
    // Launches as for a user, and goes on until the condition holds; false if it does not in time.
    [[nodiscard]] bool runUntil(const std::function<bool()>& condition) const {
        QStringList command;
        for (const std::string& word : program()) {
            command.append(QString::fromStdString(word));
        }
        QProcess process;
        process.start(command.takeFirst(), command);
        const auto deadline = std::chrono::steady_clock::now() + kProcessDeadline;
        bool holds = false;
        while (!holds && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            holds = condition();
        }
        process.kill();
        process.waitForFinished();
        return holds;
    }
    // What is kept under the name, empty without a store.
    [[nodiscard]] QString userProperty(const QString& name) const {
        if (!std::filesystem::exists(AnalyticsStore::fileIn(measured()))) {
            return {};
        }
        const auto store = AnalyticsStore::open(measured());
        return store ? store->userProperties().value(name) : QString();
    }
    [[nodiscard]] std::filesystem::path measured() const {
        return home / "data/pellumar-zip/Analytics";
    }

    TemporaryFolder home;
    Collector collector;

  private:
    [[nodiscard]] std::vector<std::string> program() const {
        // Without a bus every start is the first.
        std::vector<std::string> command{
            "env", "HOME=" + home.path().string(), "DBUS_SESSION_BUS_ADDRESS=unix:path=/nowhere"};
        for (const char* each : {"data", "config", "cache", "state"}) {
            std::string name(each);
            std::transform(name.begin(), name.end(), name.begin(), ::toupper);
            command.push_back("XDG_" + name + "_HOME=" + (home / each).string());
        }
        command.insert(command.end(),
                       {"QT_QPA_PLATFORM=offscreen", "QT_QUICK_BACKEND=software", PELLUMAR_ZIP});
        return command;
    }
};

TEST_F(UsageDataTest, EventsLeaveForTheCollectorThatIsConfigured) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() + "\n");
    // What does not leave at the end of a run, for want of time, does later.
    for (int i = 0; i < 5 && !collector.names().contains("started_tutorial"); ++i) {
        run();
    }
    EXPECT_TRUE(collector.names().contains("started_tutorial"));
    EXPECT_EQ(collector.names().count("pz_first_open"), 1);
    ASSERT_FALSE(collector.batches().empty());
    EXPECT_EQ(collector.batches()[0].resource["service.name"], "pellumar-zip");
}

// Both launches show the onboarding, which is an event of the application's own. Those leave with
// the oldest first, so what the first launch may have held back would be there at the end.
TEST_F(UsageDataTest, TheSwitchDecidesAboutTheApplicationsOwnEventsAndNothingElse) {
    const std::string url = "ANALYTICS_URL=" + collector.address().toStdString() + "\n";
    prefer(url + "SEND_USAGE_DATA=false\n");
    ASSERT_TRUE(runUntil([this] {
        return collector.names().contains("pz_first_open") &&
               userProperty("participating_tests") == "|";
    }));
    const qint64 switchedOn = QDateTime::currentMSecsSinceEpoch();
    prefer(url + "SEND_USAGE_DATA=true\n");
    EXPECT_TRUE(runUntil([this] { return collector.names().contains("started_tutorial"); }));

    for (const CollectedBatch& batch : collector.batches()) {
        for (const CollectedRecord& record : batch.records) {
            EXPECT_TRUE(record.name.startsWith("pz_") || record.milliseconds >= switchedOn)
                << record.name.toStdString();
            EXPECT_FALSE(record.attributes.contains("pz.consent.analytics_storage"));
        }
    }
}

TEST_F(UsageDataTest, WithoutAnAddressEventsAreOnlyKept) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() + "\n");
    // The environment comes first.
    run("PELLUMAR_ANALYTICS_URL=");
    EXPECT_EQ(collector.names(), QStringList());
    EXPECT_TRUE(std::filesystem::exists(AnalyticsStore::fileIn(measured())));
}

}  // namespace
}  // namespace pellumar::test
