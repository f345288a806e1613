#pragma once

#include <cstdint>
#include <string>

#include "archive/base/DataSink.h"
#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/ExtractionOptions.h"
#include "archive/base/File.h"
#include "archive/base/UnfinishedFile.h"

namespace pellumar::archive {

// Writes one entry's data into a new file. What comes in pieces stands under no name, or not under
// its own, until all of it has been read and verified. Unless it was finished, the file is removed
// with the sink.
class FileSink final : public DataSink {
  public:
    // Will make the file for `entry` in the folder behind `folder`, a descriptor that stays open as
    // long as the sink. What stands there under its name is treated as `existing` says, but not
    // skipped: that is to be asked before.
    FileSink(int folder, const Entry& entry, ExistingFiles existing = ExistingFiles::kRefuse);
    FileSink(const FileSink&) = delete;
    FileSink& operator=(const FileSink&) = delete;
    ~FileSink() override;

    // kTooLarge if the file system has no room for them.
    [[nodiscard]] Result<> expectMore(std::uint64_t bytes) override;

    // kAlreadyExists if anything stands under the name, a dangling link included, that is neither
    // to be replaced nor to be gone round.
    [[nodiscard]] Result<> write(ByteView bytes) override;
    [[nodiscard]] Result<> writeVerified(ByteView bytes) override;

    // Instead of writing what comes in order: bytes of the content at their place, from any number
    // of threads, once beginParts() has succeeded.
    [[nodiscard]] Result<> beginParts() { return makeUnfinished(); }
    [[nodiscard]] Result<> writePart(std::uint64_t position, ByteView bytes) {
        return unfinished_.file().writeAt(position, bytes);
    }

    // Sets the time and gives the file its name; kAlreadyExists if that was taken meanwhile. After
    // a failure what stood there under the name stands there still. `restored` becomes false if the
    // system refused the time: that is no error, since the data is whole. The permissions are the
    // entry's, less what the user's umask or the folder's access list takes off new files.
    [[nodiscard]] Result<> finish(bool* restored);

    // Whether the file has another name than its entry's; known when it is finished.
    [[nodiscard]] bool isRenamed() const { return renamed_; }

  private:
    [[nodiscard]] Result<> makeUnfinished();
    // Makes the file under its name, or the next that is free.
    [[nodiscard]] Result<> makeNamed();
    [[nodiscard]] Result<> nameUnfinished();
    // Tries `make` with the name, and where that is taken and another may do with the next ones.
    template <typename Make>
    [[nodiscard]] Result<> underFreeName(const Make& make);
    [[nodiscard]] Result<> finishUnfinished();

    int folder_;
    const Entry& entry_;
    ExistingFiles existing_;
    bool renamed_ = false;
    std::string name_;
    UnfinishedFile unfinished_;
    File file_;           // what makeNamed() made
    bool named_ = false;  // it stands under its name, and is to be removed unless finished
};

}  // namespace pellumar::archive
