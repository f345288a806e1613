#pragma once

#include <string>
#include <string_view>

#include "archive/base/DataSink.h"

namespace pellumar {

// Standard output, through a buffer. What comes after a failure is dropped; finish() tells.
class Output final : public archive::DataSink {
  public:
    Output();

    void append(std::string_view text);
    // A path and its end: for a terminal on a line that cannot command it, else byte for byte.
    void appendPath(std::string_view path, bool endWithNul);
    // Data on its way through: unlike the others it fails at once.
    [[nodiscard]] archive::Result<> write(archive::ByteView bytes) override;

    // Writes what is left. An empty text if all has arrived, else why not, as a line.
    [[nodiscard]] std::string finish();

  private:
    void flush();
    void writeOut(std::string_view bytes);

    const bool isTerminal_;
    std::string buffer_;
    int error_ = 0;  // errno of the first failure
};

}  // namespace pellumar
