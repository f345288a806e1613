#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/remoteconfig/ConfigStore.h"
#include "platform/remoteconfig/FlagEvaluation.h"
#include "platform/remoteconfig/RemoteConfigService.h"
#include "remote/RemoteSettings.h"

namespace pellumar::bench {
namespace {

constexpr int kKeys = 10'000;

QString key(int number) {
    return QStringLiteral("some_feature.parameter_%1").arg(number);
}

// A service with many active keys, as after a launch, and a store over it.
class ActiveKeys {
  public:
    ActiveKeys() {
        ConfigValues values;
        for (int i = 0; i < kKeys; ++i) {
            values.insert(key(i), i % 2 == 0 ? QString::number(i) : QStringLiteral("true"));
        }
        const bool kept = ConfigStore(folder().native(), console_).keepActive(values);
        if (!kept) {
            std::perror("ActiveKeys");
            std::abort();
        }
        settings_ = std::make_shared<RemoteSettings>(
            std::make_shared<RemoteConfigService>(options(), console_), console_);
    }

    static ActiveKeys& shared() {
        static ActiveKeys keys;
        return keys;
    }

    [[nodiscard]] RemoteConfigService::Options options() const {
        return {.folder = folder(), .endpoint = {}};
    }
    [[nodiscard]] Console& console() { return console_; }
    [[nodiscard]] const RemoteSettings& settings() const { return *settings_; }

  private:
    [[nodiscard]] std::filesystem::path folder() const { return folder_.path().toStdString(); }

    QTemporaryDir folder_;
    StreamConsole console_{stderr};
    std::shared_ptr<RemoteSettings> settings_;
};

template <typename Value>
void read(benchmark::State& state, int number, Value defaultValue) {
    const RemoteSettings& settings = ActiveKeys::shared().settings();
    const ScenarioParameter<Value> parameter{key(number), defaultValue};
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(settings.value(parameter));
    }
}

void BM_ReadText(benchmark::State& state) {
    read<QString>(state, 5000, "");
}

void BM_ReadInteger(benchmark::State& state) {
    read<qint64>(state, 5000, 0);
}

void BM_ReadBoolean(benchmark::State& state) {
    read<bool>(state, 5001, false);
}

void BM_ReadMissing(benchmark::State& state) {
    read<QString>(state, kKeys, "");
}

void BM_LaunchWithActiveKeys(benchmark::State& state) {
    ActiveKeys& keys = ActiveKeys::shared();
    for ([[maybe_unused]] auto _ : state) {
        RemoteConfigService service(keys.options(), keys.console());
        service.start();
        benchmark::DoNotOptimize(&service);
    }
}

void BM_ParseAnswer(benchmark::State& state) {
    QByteArray body = R"({"flags":[)";
    for (int i = 0; i < kKeys; ++i) {
        body += R"({"key":")" + key(i).toLatin1() + R"(","value":)" + QByteArray::number(i) +
                R"(,"variant":"on","reason":"STATIC"},)";
    }
    body.back() = ']';
    body += '}';
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(parseEvaluation(body));
    }
    state.SetBytesProcessed(state.iterations() * body.size());
}

BENCHMARK(BM_ReadText)->ThreadRange(1, 2);
BENCHMARK(BM_ReadInteger);
BENCHMARK(BM_ReadBoolean);
BENCHMARK(BM_ReadMissing);
BENCHMARK(BM_LaunchWithActiveKeys)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseAnswer)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pellumar::bench
