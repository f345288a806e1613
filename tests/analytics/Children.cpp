#include "Children.h"

#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>

#include "EngineTest.h"

namespace pellumar::test {
namespace {

AnalyticsEnvironment environmentIn(const char* folder) {
    AnalyticsEnvironment environment;
    environment.folder = folder;
    environment.versions = {.serviceName = "child",
                            .serviceVersion = "0.9",
                            .osType = "linux",
                            .osVersion = "Debian 12"};
    environment.consent = ConsentStatus::kGranted;
    environment.idle = std::chrono::milliseconds(0);
    return environment;
}

// Calls itself until there is no stack left, which the compiler is not to see.
int overflow(int depth);
int (*volatile const again)(int) = overflow;

int overflow(int depth) {
    std::array<volatile char, 1024> room{};
    room[static_cast<std::size_t>(depth) % room.size()] = 1;
    return again(depth + 1) + room[0];
}

int crash(const char* folder, std::string_view how) {
    const rlimit noCore{.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    AnalyticsEnvironment environment = environmentIn(folder);
    environment.crashes = AnalyticsEnvironment::CrashCatching::kOn;
    RunningEngine engine(std::move(environment));
    engine.logEventWithName("before", {});
    static_cast<void>(engine.waitUntilStored(kDeadline));
    if (how == "fault") {
        // A page that nobody may touch: a null pointer would be found out before it faults.
        *static_cast<volatile char*>(
            ::mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) = 1;
    }
    if (how == "overflow") {
        return overflow(0);
    }
    std::abort();
}

// The tests see how far it came.
int complain(const char* what) {
    std::puts(what);
    return 1;
}

void fill(const std::filesystem::path& filler) {
    std::ofstream file(filler, std::ios::binary);
    while (file.write(std::string(4096, 'x').data(), 4096).flush()) {
    }
}

int fillDisk(const char* folder) {
    if (::mount("tmpfs", folder, "tmpfs", 0, "size=1m") != 0) {
        return kNoDisk;
    }
    const std::filesystem::path filler = std::filesystem::path(folder) / "filler";
    RunningEngine engine(environmentIn(folder));
    const auto log = [&engine](const char* name, int times) {
        for (int i = 0; i < times; ++i) {
            engine.logEventWithName(name, QVariantMap{{"text", QString(100, u'a')}});
        }
        return engine.waitUntilStored(kDeadline);
    };
    if (!log("before", 100)) {
        return complain("nothing was stored");
    }
    fill(filler);
    if (log("meanwhile", 5000)) {
        return complain("the disk was not full");
    }
    std::filesystem::remove(filler);
    // The first one may still tell of what was dropped.
    static_cast<void>(log("after", 1));
    if (!log("after", 1)) {
        return complain("nothing was stored when there was room again");
    }
    fill(filler);
    engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
    if (!engine.waitUntilObeyed(kDeadline)) {
        return complain("the denial was not kept");
    }
    return std::filesystem::exists(MeasurementFolder::storeIn(folder)) ? complain("not erased") : 0;
}

}  // namespace

bool runAsChild(int argc, char** argv, int& exitCode) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "--crash" && argc == 4) {
        exitCode = crash(argv[2], argv[3]);
        return true;
    }
    if (what == "--fill-disk" && argc == 3) {
        exitCode = fillDisk(argv[2]);
        return true;
    }
    return false;
}

}  // namespace pellumar::test
