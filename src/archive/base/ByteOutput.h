#pragma once

#include "archive/base/Bytes.h"
#include "archive/base/Error.h"

namespace pellumar::archive {

// Where an archive goes that is written from its beginning to its end, a pipe for instance. Belongs
// to one thread.
class ByteOutput {
  public:
    ByteOutput() = default;
    ByteOutput(const ByteOutput&) = delete;
    ByteOutput& operator=(const ByteOutput&) = delete;
    virtual ~ByteOutput() = default;

    // Writes all of them, or returns what whoever makes the archive is given.
    [[nodiscard]] virtual Result<> write(ByteView bytes) = 0;

    // Called once, when all is written: whether it has arrived.
    [[nodiscard]] virtual Result<> close() { return {}; }
};

}  // namespace pellumar::archive
