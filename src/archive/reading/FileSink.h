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
    // long as the sink. `umask` are the bits that the process takes off new files.
    FileSink(int folder, const Entry& entry, std::uint32_t umask);
    FileSink(const FileSink&) = delete;
    FileSink& operator=(const FileSink&) = delete;
    ~FileSink() override;

    // kAlreadyExists if anything stands under the name, a dangling link included.
    [[nodiscard]] Result<> write(ByteView bytes) override;

    // Sets permissions and time and closes. `restored` becomes false if the system refused either:
    // that is no error, since the data is whole.
    [[nodiscard]] Result<> finish(bool* restored);

  private:
    int folder_;
    const Entry& entry_;
    std::uint32_t umask_;
    std::string name_;
    File file_;
    bool made_ = false;
    bool finished_ = false;
};

}  // namespace pellumar::archive
