#include <valgrind/callgrind.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "archive/Reader.h"
#include "archive/Samples.h"
#include "archive/Writer.h"

// The jobs whose instructions are counted: small, on one thread, and the same each time. Run under
// callgrind by bench/guard/compare, which gets a dump of each, named after it.
namespace pellumar::bench {
namespace {

using archive::ByteView;
using archive::NewEntry;
using archive::Result;
using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kLarge = 2'500'000;  // three chunks
constexpr std::size_t kSmall = 5000;
constexpr int kSmallFiles = 150;
constexpr int kListed = 5000;

[[noreturn]] void fail(std::string_view what) {
    std::cerr << "guard_jobs: " << what << " failed\n";
    std::exit(EXIT_FAILURE);
}

class MemoryOutput final : public archive::ByteOutput {
  public:
    explicit MemoryOutput(Bytes& bytes) : bytes_(bytes) {}
    Result<> write(ByteView bytes) override {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return {};
    }

  private:
    Bytes& bytes_;
};

class Nowhere final : public archive::DataSink {
  public:
    Result<> write(ByteView /*bytes*/) override { return {}; }
};

NewEntry entryOf(std::string name, Bytes bytes) {
    return {.name = std::move(name), .content = std::make_shared<const Bytes>(std::move(bytes))};
}

NewEntry encrypted(NewEntry entry) {
    entry.options.password = std::make_shared<archive::Password>("guarded");
    return entry;
}

std::vector<NewEntry> smallFiles() {
    const Bytes text = makeSample(SampleKind::kText, kSmall * std::size_t{kSmallFiles});
    std::vector<NewEntry> entries;
    entries.reserve(kSmallFiles);
    for (int i = 0; i < kSmallFiles; ++i) {
        const auto start = text.begin() + static_cast<std::ptrdiff_t>(kSmall) * i;
        entries.push_back(
            entryOf("folder/" + std::to_string(i), Bytes(start, start + std::ptrdiff_t{kSmall})));
    }
    return entries;
}

std::vector<NewEntry> emptyFiles() {
    std::vector<NewEntry> entries;
    entries.reserve(kListed);
    for (int i = 0; i < kListed; ++i) {
        entries.push_back(entryOf("some/folder/" + std::to_string(i) + ".txt", {}));
    }
    return entries;
}

Bytes archiveOf(const std::vector<NewEntry>& entries) {
    Bytes bytes;
    auto writer = archive::Writer::toOutput(std::make_unique<MemoryOutput>(bytes),
                                            {.reproducible = true, .threads = 1});
    if (!writer || !writer->addAll(entries) || !writer->close()) {
        fail("making an archive");
    }
    return bytes;
}

archive::Reader opened(const Bytes& archive) {
    auto reader = archive::Reader::openMemory(archive);
    if (!reader) {
        fail("opening");
    }
    return std::move(*reader);
}

archive::ExtractionOptions options(const archive::Password* password = nullptr) {
    return {.password = password, .limits = {.threads = 1}};
}

void readAll(const Bytes& archive, const archive::Password* password = nullptr) {
    const archive::Reader reader = opened(archive);
    std::vector<std::size_t> all(reader.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    const auto nowhere = [](std::size_t) {
        return Result<std::unique_ptr<archive::DataSink>>(std::make_unique<Nowhere>());
    };
    if (!reader.extractTo(all, nowhere, options(password))) {
        fail("reading");
    }
}

void extractAll(const Bytes& archive) {
    std::string folder = (std::filesystem::temp_directory_path() / "guard-XXXXXX").string();
    const bool done = ::mkdtemp(folder.data()) != nullptr &&
                      opened(archive).extractAll(std::filesystem::path(folder) / "out", options());
    std::filesystem::remove_all(folder);
    if (!done) {
        fail("extracting");
    }
}

void count(const char* name, const std::function<void()>& job) {
    CALLGRIND_ZERO_STATS;
    job();
    CALLGRIND_DUMP_STATS_AT(name);
}

void countAll() {
    const std::vector<NewEntry> text = {entryOf("text", makeSample(SampleKind::kText, kLarge))};
    const std::vector<NewEntry> records = {
        entryOf("records", makeSample(SampleKind::kRecords, kLarge))};
    const std::vector<NewEntry> noise = {entryOf("noise", makeSample(SampleKind::kNoise, kLarge))};
    const std::vector<NewEntry> small = smallFiles();
    const std::vector<NewEntry> secret = {encrypted(noise.front())};
    const archive::Password password("guarded");

    const Bytes largeArchive = archiveOf(text);
    const Bytes smallArchive = archiveOf(small);
    const Bytes secretArchive = archiveOf(secret);
    const Bytes longArchive = archiveOf(emptyFiles());

    count("compress text", [&] { archiveOf(text); });
    count("compress records", [&] { archiveOf(records); });
    count("compress noise", [&] { archiveOf(noise); });
    count("compress small files", [&] { archiveOf(small); });
    count("encrypt", [&] { archiveOf(secret); });
    count("read text", [&] { readAll(largeArchive); });
    count("decrypt", [&] { readAll(secretArchive, &password); });
    count("extract small files", [&] { extractAll(smallArchive); });
    count("list", [&] { opened(longArchive); });
}

}  // namespace
}  // namespace pellumar::bench

int main() {
    pellumar::bench::countAll();
    return EXIT_SUCCESS;
}
