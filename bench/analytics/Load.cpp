// Logs very many events, and holds the engine to its bounds of memory and disk:
//
//     analytics_load [EVENTS [ADDRESS]]
//
// With the address of a collector they are sent meanwhile; docs/analytics/collect.py is one.

#include <QCoreApplication>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "analytics/AnalyticsEngine.h"
#include "analytics/HttpTransport.h"
#include "analytics/MeasurementFolder.h"

namespace {

using namespace pellumar;

constexpr long kMostMemory = 8L << 20;
constexpr int kBurst = 1000;

// A line of /proc/self/status, in bytes.
long memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with(name)) {
            return std::strtol(line.c_str() + name.size(), nullptr, 10) * 1024;
        }
    }
    return 0;
}

long diskOf(const std::filesystem::path& folder) {
    long bytes = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        bytes += static_cast<long>(file.file_size());
    }
    return bytes;
}

AnalyticsEnvironment environmentOf(const QString& folder, const char* address) {
    AnalyticsEnvironment environment;
    environment.folder = folder.toStdString();
    environment.versions = {
        .serviceName = "load", .serviceVersion = "1", .osType = "linux", .osVersion = "Debian 12"};
    environment.consent = ConsentStatus::kGranted;
    environment.idle = std::chrono::milliseconds(0);
    environment.transport = HttpTransport::maker(address, {});
    return environment;
}

bool isWithin(const char* what, long bytes, long most) {
    std::printf("%-28s %7.2f MiB, at most %.2f\n",
                what,
                static_cast<double>(bytes) / (1 << 20),
                static_cast<double>(most) / (1 << 20));
    return bytes <= most;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int events = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    const QTemporaryDir folder;
    const long before = memory("VmRSS:");
    const auto start = std::chrono::steady_clock::now();
    AnalyticsEngine engine(environmentOf(folder.path(), argc > 2 ? argv[2] : ""));
    engine.start();
    for (int i = 0; i < events; ++i) {
        engine.logEventWithName("evaluated_app",
                                QVariantMap{{"rating", i % 5}, {"screen", "home"}});
        // The queue is all but full each time, and none is dropped.
        if (i % kBurst == kBurst - 1 && !engine.waitUntilStored(std::chrono::seconds(60))) {
            std::fputs("events were lost\n", stderr);
            return 1;
        }
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    const long grown = memory("VmHWM:") - before;
    const std::filesystem::path path = folder.path().toStdString();
    const auto file =
        static_cast<long>(std::filesystem::file_size(MeasurementFolder::storeIn(path)));
    std::printf(
        "%d events in %.1f s, %.0f a second\n", events, seconds.count(), events / seconds.count());
    const bool smallMemory = isWithin("peak memory of the engine", grown, kMostMemory);
    const bool smallFile = isWithin("store", file, AnalyticsStore::kMostBytes);
    const bool smallFolder =
        isWithin("with its log", diskOf(path), AnalyticsStore::kMostBytes + (2L << 20));
    const auto end = std::chrono::steady_clock::now();
    engine.stop();
    const std::chrono::duration<double, std::milli> farewell =
        std::chrono::steady_clock::now() - end;
    std::printf("%-28s %7.0f ms\n", "end of the engine", farewell.count());
    return smallMemory && smallFile && smallFolder ? 0 : 1;
}
