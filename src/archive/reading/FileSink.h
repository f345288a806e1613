#pragma once

#include <cstdint>
#include <string>

#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/base/UnfinishedFile.h"
#include "archive/reading/DataSink.h"

namespace pellumar::archive {

// Writes one entry's data into a new file. What comes in pieces stands under no name, or not under
// its own, until all of it has been read and verified. Unless it was finished, the file is removed
// with the sink.
class FileSink final : public DataSink {
  public:
    // Will make the file for `entry` in the folder behind `folder`, a descriptor that stays open as
    // long as the sink.
    FileSink(int folder, const Entry& entry);
    FileSink(const FileSink&) = delete;
    FileSink& operator=(const FileSink&) = delete;
    ~FileSink() override;

    // kTooLarge if the file system has no room for them.
    [[nodiscard]] Result<> expectMore(std::uint64_t bytes) override;

    // kAlreadyExists if anything stands under the name, a dangling link included.
    [[nodiscard]] Result<> write(ByteView bytes) override;
    [[nodiscard]] Result<> writeVerified(ByteView bytes) override;

    // Sets the time, gives the file its name and closes; kAlreadyExists if that was taken
    // meanwhile. `restored` becomes false if the system refused the time: that is no error, since
    // the data is whole. The permissions are the entry's, less what the user's umask or the
    // folder's access list takes off new files.
    [[nodiscard]] Result<> finish(bool* restored);

  private:
    int folder_;
    const Entry& entry_;
    std::string name_;
    UnfinishedFile unfinished_;
    File file_;           // the file once it stands under its name
    bool named_ = false;  // it does, and is to be removed unless finished
};

}  // namespace pellumar::archive
