#include <gtest/gtest.h>

#include <QDateTime>
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
    EXPECT_TRUE(runUntil([this] { return userProperty("participating_tests") == "|"; },
                         "PELLUMAR_ANALYTICS_URL="));
    EXPECT_EQ(collector.names(), QStringList());
}

}  // namespace
}  // namespace pellumar::test
