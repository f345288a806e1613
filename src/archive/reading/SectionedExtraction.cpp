#include "archive/reading/SectionedExtraction.h"

#include <atomic>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "archive/base/Crc32.h"
#include "archive/format/Sections.h"
#include "archive/reading/SectionInflater.h"

namespace pellumar::archive {

namespace {

// Below, other entries occupy the threads as well, or it is done before they have begun.
constexpr std::uint64_t kSmallest = 16UL * 1024 * 1024;

}  // namespace

// One entry, as its threads see it.
class SectionedExtraction::Job {
  public:
    Job(SectionedExtraction& owner,
        const EntryData& data,
        std::uint64_t dataOffset,
        std::vector<format::Section> sections,
        FileSink& file)
        : owner_(owner),
          data_(data),
          dataOffset_(dataOffset),
          sections_(std::move(sections)),
          file_(file),
          checksums_(sections_.size()) {}

    // On one of the threads: inflates sections until there are no more.
    void work() {
        SectionInflater inflater(owner_.source_);
        const auto place = [this](std::uint64_t position, ByteView bytes) {
            return write(position, bytes);
        };
        while (!failed_) {
            const std::size_t index = next_.fetch_add(1);
            if (index >= sections_.size()) {
                return;
            }
            const bool last = index + 1 == sections_.size();
            const auto crc = inflater.inflate(dataOffset_, sections_[index], last, place);
            if (!crc) {
                failed_ = true;
                return;
            }
            checksums_[index] = *crc;
        }
    }

    // When all have ended.
    Result<bool> outcome() {
        std::uint32_t crc = kCrc32OfNothing;
        for (std::size_t i = 0; i < sections_.size(); ++i) {
            crc = crc32Combine(crc, checksums_[i], sections_[i].contentSize);
        }
        if (!failed_ && (owner_.options_.skipChecksum || crc == data_.entry.crc32)) {
            return true;
        }
        owner_.progress_.takeBack(written_);
        return error_ ? Result<bool>(Failure(*std::move(error_))) : Result<bool>(false);
    }

  private:
    Result<> write(std::uint64_t position, ByteView bytes) {
        Result<> written = owner_.options_.stop.stop_requested()
                               ? Result<>(failure(ErrorCode::kCancelled))
                               : file_.writePart(position, bytes);
        if (written) {
            written_ += bytes.size();
            owner_.progress_.addBytes(bytes.size(), data_.entry.path);
            return written;
        }
        // What another thread meets is the same, or comes after it.
        const std::lock_guard lock(mutex_);
        error_ = error_ ? std::move(error_) : written.error();
        return written;
    }

    SectionedExtraction& owner_;
    const EntryData& data_;
    const std::uint64_t dataOffset_;
    const std::vector<format::Section> sections_;
    FileSink& file_;
    std::vector<std::uint32_t> checksums_;  // of each section, by its thread
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::uint64_t> written_ = 0;
    std::atomic<bool> failed_ = false;
    std::mutex mutex_;  // guards what follows
    std::optional<Error> error_;
};

bool SectionedExtraction::isFor(const EntryData& data, ByteView field) const {
    return threads_.count() > 1 && !field.empty() && data.entry.uncompressedSize >= kSmallest;
}

Result<bool> SectionedExtraction::extract(const EntryData& data, ByteView field, FileSink& file) {
    auto sections =
        format::parseSections(field, data.entry.compressedSize, data.entry.uncompressedSize);
    auto reader = threads_.readerOf(0);
    if (!reader) {
        return passOn(reader);
    }
    const auto dataOffset = (*reader)->findData(data);
    if (sections.empty() || !dataOffset) {
        return false;
    }
    if (auto begun = file.beginParts(); !begun) {
        return passOn(begun);
    }
    const std::size_t count = sections.size();
    Job job(*this, data, *dataOffset, std::move(sections), file);
    if (auto ran = threads_.run(count, [&job](EntryReader&) { job.work(); }); !ran) {
        return passOn(ran);
    }
    return job.outcome();
}

}  // namespace pellumar::archive
