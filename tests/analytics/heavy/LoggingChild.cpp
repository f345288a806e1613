#include "LoggingChild.h"

#include <cstdio>

#include "analytics/AnalyticsEngine.h"
#include "analytics/HttpTransport.h"

namespace pellumar::test {
namespace {

constexpr std::chrono::seconds kStoreDeadline{30};

AnalyticsEnvironment environmentOf(const char* folder, const char* address) {
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

void say(int number) {
    std::printf("%d\n", number);
    std::fflush(stdout);
}

}  // namespace

void logForEver(const char* folder, const char* address, int first, std::string_view beginning) {
    AnalyticsEngine engine(environmentOf(folder, address));
    engine.start();
    if (beginning == kForbidden) {
        engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kDenied);
        for (int i = 0; i < 20; ++i) {
            engine.logEventWithName("forbidden", {});
        }
        static_cast<void>(engine.waitUntilStored(kStoreDeadline));
    }
    engine.setConsent(ConsentKind::kAnalyticsStorage, ConsentStatus::kGranted);
    if (engine.waitUntilStored(kStoreDeadline)) {
        say(0);
    }
    for (int i = 0;; ++i) {
        engine.logEventWithName("counted", QVariantMap{{"n", first + i}});
        if (i % 5 == 4 && engine.waitUntilStored(kStoreDeadline)) {
            say(i + 1);
        }
    }
}

}  // namespace pellumar::test
