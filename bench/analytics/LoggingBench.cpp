#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <vector>

#include "analytics/AnalyticsEngine.h"

namespace pellumar::bench {
namespace {

// Between two pauses in which the worker catches up, far fewer than the queue holds.
constexpr int kBurst = 500;

class RunningEngine {
  public:
    RunningEngine() { engine_.start(); }

    AnalyticsEngine& operator*() { return engine_; }
    void catchUp() { static_cast<void>(engine_.waitUntilStored(std::chrono::seconds(60))); }

  private:
    [[nodiscard]] AnalyticsEnvironment environment() const {
        AnalyticsEnvironment environment;
        environment.folder = folder_.path().toStdString();
        environment.versions = {.serviceName = "bench",
                                .serviceVersion = "1",
                                .osType = "linux",
                                .osVersion = "Debian 12"};
        environment.consent = ConsentStatus::kGranted;
        return environment;
    }

    int argc_ = 0;
    QCoreApplication application_{argc_, nullptr};
    QTemporaryDir folder_;
    AnalyticsEngine engine_{environment()};
};

// What one call costs the caller: the time of every single one, the clock's own included.
template <typename Call>
void measure(benchmark::State& state, const Call& call) {
    using Clock = std::chrono::steady_clock;
    RunningEngine engine;
    engine.catchUp();
    std::vector<std::int64_t> nanoseconds;
    for ([[maybe_unused]] auto _ : state) {
        const Clock::time_point start = Clock::now();
        call(*engine);
        nanoseconds.push_back(
            std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now() - start).count());
        if (nanoseconds.size() % kBurst == 0) {
            state.PauseTiming();
            engine.catchUp();
            state.ResumeTiming();
        }
    }
    std::sort(nanoseconds.begin(), nanoseconds.end());
    const auto percentile = [&](double share) {
        const auto last = static_cast<double>(nanoseconds.size() - 1);
        return static_cast<double>(nanoseconds[static_cast<std::size_t>(share * last)]);
    };
    state.counters["p50_ns"] = percentile(0.5);
    state.counters["p99_ns"] = percentile(0.99);
}

void BM_LogEvent(benchmark::State& state) {
    measure(state, [](AnalyticsEngine& engine) { engine.logEventWithName("tapped_zip", {}); });
}

void BM_LogEventWithParameters(benchmark::State& state) {
    measure(state, [](AnalyticsEngine& engine) {
        engine.logEventWithName("evaluated_app", QVariantMap{{"rating", 5}, {"screen", "home"}});
    });
}

void BM_SetUserProperty(benchmark::State& state) {
    measure(state, [](AnalyticsEngine& engine) {
        engine.setUserPropertyString("|1|7|", "participating_tests");
    });
}

BENCHMARK(BM_LogEvent);
BENCHMARK(BM_LogEventWithParameters);
BENCHMARK(BM_SetUserProperty);

}  // namespace
}  // namespace pellumar::bench
