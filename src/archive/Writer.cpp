#include "archive/Writer.h"

#include <utility>

#include "archive/base/EntrySource.h"
#include "archive/base/WithinMemory.h"
#include "archive/writing/ArchiveWriter.h"

namespace pellumar::archive {

namespace {

Result<ArchiveWriter::Source> sourceOf(const NewEntry& entry) {
    const auto* const at = std::get_if<NewEntry::FromPath>(&entry.content);
    if (at == nullptr || at->linkAsLink) {
        return failure(ErrorCode::kSourceNotSupported);
    }
    return ArchiveWriter::Source(entry.name, at->path);
}

}  // namespace

Writer::Writer(std::unique_ptr<ArchiveWriter> writer) : writer_(std::move(writer)) {}
Writer::Writer(Writer&&) noexcept = default;
Writer& Writer::operator=(Writer&&) noexcept = default;
Writer::~Writer() = default;

Result<Writer> Writer::create(const std::filesystem::path& path, WriterOptions options) {
    return withinMemory([&]() -> Result<Writer> {
        auto writer = ArchiveWriter::create(
            path,
            options.replace ? PendingFile::Existing::kReplace : PendingFile::Existing::kRefuse,
            options.threads);
        if (!writer) {
            return passOn(writer);
        }
        return Writer(std::move(*writer));
    });
}

Result<> Writer::add(const NewEntry& entry) {
    return withinMemory([&]() -> Result<> {
        auto source = sourceOf(entry);
        if (!source) {
            return Failure(std::move(source.error()).about(entry.name, 0));
        }
        return writer_->addEntry(*source, kDefaultWriteChunkSize);
    });
}

Result<> Writer::addAll(const std::vector<NewEntry>& entries, const AfterEach& afterEach) {
    return withinMemory([&]() -> Result<> {
        std::vector<ArchiveWriter::Source> ahead;
        for (const NewEntry& entry : entries) {
            if (auto source = sourceOf(entry)) {
                ahead.push_back(std::move(*source));
            }
        }
        writer_->compressAhead(std::move(ahead), kDefaultWriteChunkSize);
        for (std::size_t i = 0; i < entries.size();) {
            const Result<> added = add(entries[i]);
            const Next next = afterEach ? afterEach(i, added) : added ? Next::kGoOn : Next::kStop;
            if (next == Next::kStop) {
                return added;
            }
            i += next == Next::kGoOn ? 1U : 0U;
        }
        return {};
    });
}

Result<> Writer::close() {
    return withinMemory([this] { return writer_->close(); });
}

const Warnings& Writer::warnings() const {
    return writer_->warnings();
}

}  // namespace pellumar::archive
