#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "support/FileContents.h"
#include "support/Process.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {
namespace {

// The program itself, which shows all its screens and ends, with folders of its own and a collector
// that records what leaves.
class UsageDataTest : public testing::Test {
  protected:
    void TearDown() override { EXPECT_EQ(collector.faults(), QStringList()); }

    void prefer(const std::string& lines) const {
        std::filesystem::create_directories(home / "config/pellumar-zip");
        writeFile(home / "config/pellumar-zip/pellumar-zip.conf", "[General]\n" + lines);
    }
    void run(const std::string& variable = {}) const {
        std::vector<std::string> command{"env", "HOME=" + home.path().string()};
        for (const char* each : {"data", "config", "cache", "state"}) {
            std::string name(each);
            std::transform(name.begin(), name.end(), name.begin(), ::toupper);
            command.push_back("XDG_" + name + "_HOME=" + (home / each).string());
        }
        command.insert(command.end(), {"QT_QPA_PLATFORM=offscreen", "QT_QUICK_BACKEND=software"});
        if (!variable.empty()) {
            command.push_back(variable);
        }
        command.insert(command.end(), {PELLUMAR_ZIP, "--self-test"});
        const ProcessResult result = runProcess(command);
        EXPECT_EQ(result.exitCode, 0) << result.output;
    }

    TemporaryFolder home;
    Collector collector;
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

TEST_F(UsageDataTest, WithTheSwitchOffNothingLeavesAndNothingIsKept) {
    prefer("SEND_USAGE_DATA=false\n");
    run("PELLUMAR_ANALYTICS_URL=" + collector.address().toStdString());
    EXPECT_EQ(collector.names(), QStringList());
    EXPECT_FALSE(std::filesystem::exists(home / "data/pellumar-zip/Analytics/events.db"));
}

TEST_F(UsageDataTest, WithoutAnAddressEventsAreOnlyKept) {
    prefer("ANALYTICS_URL=" + collector.address().toStdString() + "\n");
    // The environment comes first.
    run("PELLUMAR_ANALYTICS_URL=");
    EXPECT_EQ(collector.names(), QStringList());
    EXPECT_TRUE(std::filesystem::exists(home / "data/pellumar-zip/Analytics/events.db"));
}

}  // namespace
}  // namespace pellumar::test
