#pragma once

#include <cstdint>

#include "archive/base/ByteSource.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/ProgressTeller.h"
#include "archive/reading/EntryTable.h"
#include "archive/reading/FileSink.h"
#include "archive/reading/ReaderThreads.h"

namespace pellumar::archive {

// Extracts large entries one at a time, each on all threads, where the directory says how their
// data can be divided. Belongs to the thread that made it, which is the first of these.
class SectionedExtraction {
  public:
    // All of them outlive this.
    SectionedExtraction(const ByteSource& source,
                        const ExtractionOptions& options,
                        ReaderThreads& threads,
                        ProgressTeller& progress)
        : source_(source), options_(options), threads_(threads), progress_(progress) {}

    // Whether it is worth it, by what the directory says: `field` of the entry's sections.
    [[nodiscard]] bool isFor(const EntryData& data, ByteView field) const;

    // Writes the entry into `file` and verifies it; false if its data cannot be divided so, or is
    // damaged: then it is to be read as a whole, which says what is wrong. kCancelled, and errors
    // of writing.
    [[nodiscard]] Result<bool> extract(const EntryData& data, ByteView field, FileSink& file);

  private:
    class Job;

    const ByteSource& source_;
    const ExtractionOptions& options_;
    ReaderThreads& threads_;
    ProgressTeller& progress_;
};

}  // namespace pellumar::archive
