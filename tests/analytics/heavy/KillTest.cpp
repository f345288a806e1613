#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <set>
#include <thread>
#include <vector>

#include "analytics/AnalyticsEngine.h"
#include "analytics/HttpTransport.h"
#include "analytics/MeasurementFolder.h"
#include "support/TemporaryFolder.h"
#include "support/collector/Collector.h"

namespace pellumar::test {
namespace {

constexpr int kKills = 200;
// One for five events.
constexpr std::size_t kMostLinesOfAChild = 24;
// In every so many, events are logged without consent.
constexpr int kForbiddenEvery = 10;
constexpr std::chrono::seconds kDeadline{60};
constexpr QLatin1String kChildArgument("--log-for-ever");
constexpr QLatin1String kForbidden("forbidden");

AnalyticsEnvironment environmentOf(const std::filesystem::path& folder, const QString& address) {
    AnalyticsEnvironment environment;
    environment.folder = folder;
    environment.versions = {
        .serviceName = "child", .serviceVersion = "1", .osType = "linux", .osVersion = "Debian"};
    environment.idle = std::chrono::milliseconds(0);
    environment.transport = HttpTransport::maker(address, {});
    environment.parameters = [](const QString& key) {
        return key == QLatin1String("measurement_batch_events") ? "20" : QString();
    };
    return environment;
}

// What this program does as the child that is killed: it logs "counted" with its number, and says
// how many of them are stored, a line each time, beginning with 0 when there is consent.
[[noreturn]] void logForEver(const char* folder, const char* address, int first, bool isForbidden) {
    AnalyticsEngine engine(environmentOf(folder, address));
    engine.start();
    const auto sayIfStored = [&engine](int number) {
        if (engine.waitUntilStored(kDeadline)) {
            std::printf("%d\n", number);
            std::fflush(stdout);
        }
    };
    if (isForbidden) {
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        for (int i = 0; i < 20; ++i) {
            engine.logEventWithName("forbidden", {});
        }
        static_cast<void>(engine.waitUntilStored(kDeadline));
    }
    engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kGranted);
    sayIfStored(0);
    for (int i = 0;; ++i) {
        engine.logEventWithName("counted", QVariantMap{{"n", first + i}});
        if (i % 5 == 4) {
            sayIfStored(i + 1);
        }
    }
}

// Of a child's events, those that it has said are stored.
int storedBy(const QByteArray& said) {
    const QList<QByteArray> lines = said.left(said.lastIndexOf('\n')).split('\n');
    return lines.last().toInt();
}

std::set<int> arrivedAt(const Collector& collector) {
    std::set<int> numbers;
    for (const CollectedBatch& batch : collector.batches()) {
        for (const CollectedRecord& record : batch.records) {
            if (record.name == "counted") {
                numbers.insert(record.attributes["n"].toInt());
            }
        }
    }
    return numbers;
}

// Sends the rest.
void sendAll(const std::filesystem::path& folder, const Collector& collector) {
    AnalyticsEngine engine(environmentOf(folder, collector.address()));
    engine.start();
    const auto isAnythingLeft = [&] {
        const std::optional<QByteArray> lines = AnalyticsStore::jsonLines(folder);
        return !lines || lines->contains(R"("table":"events")");
    };
    const auto deadline = std::chrono::steady_clock::now() + kDeadline;
    while (isAnythingLeft() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

// What SQLite says of the file as the process has left it. Of a copy: looking at the file itself
// would tidy up what the engine has to cope with next.
DatabaseOutcome soundness(const std::filesystem::path& folder) {
    const TemporaryFolder copy;
    for (const char* name : {"usage.db", "usage.db-wal"}) {
        if (std::filesystem::exists(folder / name)) {
            std::filesystem::copy_file(folder / name, copy / name);
        }
    }
    return AnalyticsStore(copy.path()).takeOutcome();
}

// Kills one child, anywhere between its start and the end of its events, and says how many of these
// were stored by then.
int killOne(const std::filesystem::path& folder,
            const Collector& collector,
            int first,
            std::mt19937& random,
            bool forbidden) {
    QProcess child;
    child.start("/proc/self/exe",
                {kChildArgument,
                 QString::fromStdString(folder.string()),
                 collector.address(),
                 QString::number(first),
                 forbidden ? kForbidden : QLatin1String("plain")});
    QByteArray said;
    const auto lines = static_cast<qsizetype>(random() % kMostLinesOfAChild);
    while (said.count('\n') < lines && child.waitForReadyRead(30'000)) {
        said += child.readAllStandardOutput();
    }
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 3000));
    child.kill();
    child.waitForFinished();
    return storedBy(said + child.readAllStandardOutput());
}

TEST(AnalyticsKill, WhatWasReportedStoredArrivesThoughTheProcessIsKilledAgainAndAgain) {
    const TemporaryFolder parent;
    const std::filesystem::path folder = parent / "analytics";
    const Collector collector;
    std::mt19937 random(6);
    std::set<int> stored;
    for (int round = 0; round < kKills; ++round) {
        const bool forbidden = round % kForbiddenEvery == 0;
        if (forbidden) {
            // Denial would erase what has not left by then.
            sendAll(folder, collector);
        }
        const int first = round * 100'000;
        const int count = killOne(folder, collector, first, random, forbidden);
        for (int i = 0; i < count; ++i) {
            stored.insert(first + i);
        }
        EXPECT_EQ(soundness(folder), DatabaseOutcome::kDone);
        ASSERT_FALSE(HasFailure());
    }
    sendAll(folder, collector);
    const std::set<int> arrived = arrivedAt(collector);
    std::vector<int> missing;
    std::set_difference(
        stored.begin(), stored.end(), arrived.begin(), arrived.end(), std::back_inserter(missing));
    EXPECT_EQ(missing, std::vector<int>());
    EXPECT_FALSE(collector.names().contains("forbidden"));
    EXPECT_EQ(collector.faults(), QStringList());
    EXPECT_GT(stored.size(), 10'000U);
}

}  // namespace
}  // namespace pellumar::test

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 6 && pellumar::test::kChildArgument == argv[1]) {
        pellumar::test::logForEver(
            argv[2], argv[3], std::atoi(argv[4]), pellumar::test::kForbidden == argv[5]);
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
