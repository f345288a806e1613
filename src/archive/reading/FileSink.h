#pragma once

#include <cstdint>
#include <string>

#include "archive/base/Entry.h"
#include "archive/base/Error.h"
#include "archive/base/File.h"
#include "archive/reading/DataSink.h"

namespace pellumar::archive {

// Writes one entry's data into a new file. The file is made when the first data comes, so that an
// entry that is found damaged before leaves no trace. Unless it was finished, the file is removed
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

    // Sets the time and closes. `restored` becomes false if the system refused the time: that is no
    // error, since the data is whole. The permissions are the entry's, less what the user's umask
    // or the folder's access list takes off new files.
    [[nodiscard]] Result<> finish(bool* restored);

  private:
    int folder_;
    const Entry& entry_;
    std::string name_;
    File file_;
    bool made_ = false;
    bool finished_ = false;
};

}  // namespace pellumar::archive
