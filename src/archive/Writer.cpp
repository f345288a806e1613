#include "archive/Writer.h"

#include <utility>

#include "archive/base/WithinMemory.h"
#include "archive/writing/ArchiveWriter.h"

namespace pellumar::archive {

namespace {

ArchiveWriter::Source inMemory(EntryType type,
                               std::shared_ptr<const std::vector<std::uint8_t>> bytes) {
    ArchiveWriter::Source source;
    source.memoryType = type;
    source.memory = std::move(bytes);
    return source;
}

// All of the entry but its stream.
ArchiveWriter::Source sourceOf(const NewEntry& entry) {
    ArchiveWriter::Source source;
    if (const auto* at = std::get_if<NewEntry::FromPath>(&entry.content)) {
        source.file = at->path;
        source.linkAsLink = at->linkAsLink;
        source.readSize = at->readSize;
    } else if (std::holds_alternative<NewEntry::Folder>(entry.content)) {
        source = inMemory(EntryType::kFolder, nullptr);
    } else if (const auto* link = std::get_if<NewEntry::Link>(&entry.content)) {
        source = inMemory(
            EntryType::kSymbolicLink,
            std::make_shared<std::vector<std::uint8_t>>(link->target.begin(), link->target.end()));
    } else if (const auto* buffer = std::get_if<NewEntry::Buffer>(&entry.content)) {
        source = inMemory(EntryType::kFile, *buffer);
    }
    source.name = entry.name;
    source.options = entry.options;
    return source;
}

const NewEntry::Stream* streamOf(const NewEntry& entry) {
    return std::get_if<NewEntry::Stream>(&entry.content);
}

// What can be told before anything is looked at.
bool isValid(const NewEntry& entry) {
    const auto* const at = std::get_if<NewEntry::FromPath>(&entry.content);
    const auto* const link = std::get_if<NewEntry::Link>(&entry.content);
    const auto* const stream = streamOf(entry);
    return (at == nullptr || !at->path.empty()) && (link == nullptr || !link->target.empty()) &&
           (stream == nullptr || *stream);
}

class DescriptorOutput final : public ByteOutput {
  public:
    explicit DescriptorOutput(File file) : file_(std::move(file)) {}

    Result<> write(ByteView bytes) override { return file_.write(bytes); }
    Result<> close() override { return file_.close(); }

  private:
    File file_;
};

}  // namespace

Writer::Writer(std::unique_ptr<ArchiveWriter> writer) : writer_(std::move(writer)) {}
Writer::Writer(Writer&&) noexcept = default;
Writer& Writer::operator=(Writer&&) noexcept = default;
Writer::~Writer() = default;

Result<Writer> Writer::create(const std::filesystem::path& path, WriterOptions options) {
    return withinMemory([&]() -> Result<Writer> {
        auto writer = ArchiveWriter::create(path, std::move(options));
        return writer ? Result<Writer>(Writer(std::move(*writer))) : passOn(writer);
    });
}

Result<Writer> Writer::toOutput(std::unique_ptr<ByteOutput> output, WriterOptions options) {
    return withinMemory([&]() -> Result<Writer> {
        auto writer = ArchiveWriter::create(std::move(output), {}, std::move(options));
        return writer ? Result<Writer>(Writer(std::move(*writer))) : passOn(writer);
    });
}

Result<Writer> Writer::toDescriptor(File file, WriterOptions options) {
    return withinMemory([&]() -> Result<Writer> {
        auto status = file.status();
        if (!status) {
            return passOn(status);
        }
        auto writer = ArchiveWriter::create(std::make_unique<DescriptorOutput>(std::move(file)),
                                            {.device = status->st_dev, .inode = status->st_ino},
                                            std::move(options));
        return writer ? Result<Writer>(Writer(std::move(*writer))) : passOn(writer);
    });
}

Result<> Writer::add(const NewEntry& entry) {
    return withinMemory([&]() -> Result<> {
        if (!isValid(entry)) {
            return Failure(Error{.code = ErrorCode::kInvalidArgument, .entry = entry.name});
        }
        const ArchiveWriter::Source source = sourceOf(entry);
        const NewEntry::Stream* const stream = streamOf(entry);
        return stream != nullptr ? writer_->addStream(source, *stream) : writer_->addEntry(source);
    });
}

Result<> Writer::addAll(const std::vector<NewEntry>& entries, const AfterEach& afterEach) {
    return withinMemory([&]() -> Result<> {
        writer_->expectEntries(entries.size());
        announce(entries, 0);
        for (std::size_t i = 0; i < entries.size();) {
            Result<> added = add(entries[i]);
            const Next otherwise = added ? Next::kGoOn : Next::kStop;
            const Next next = afterEach ? afterEach(i, added) : otherwise;
            if (next == Next::kStop) {
                writer_->compressAhead({});
                return added;
            }
            if (next == Next::kAgain) {
                announce(entries, i);
            } else {
                ++i;
            }
        }
        return {};
    });
}

void Writer::announce(const std::vector<NewEntry>& entries, std::size_t from) {
    std::vector<ArchiveWriter::Source> ahead;
    ahead.reserve(entries.size() - from);
    for (std::size_t i = from; i < entries.size(); ++i) {
        if (isValid(entries[i]) && streamOf(entries[i]) == nullptr) {
            ahead.push_back(sourceOf(entries[i]));
        }
    }
    writer_->compressAhead(std::move(ahead));
}

Result<> Writer::close() {
    return withinMemory([this] { return writer_->close(); });
}

const Warnings& Writer::warnings() const {
    return writer_->warnings();
}

}  // namespace pellumar::archive
